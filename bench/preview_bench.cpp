// When the preview's first page stands on the screen, in the processor's time behind the press of its button,
// against the layout of the whole report without a screen: of the sample, and of a report of 200 pages.

#include "Measure.h"
#include "platform/print/PrintControl.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/PageView.h"
#include "platform/widgets/TabStrip.h"
#include "reports/ReportRun.h"
#include "reports/ReportUtilities.h"
#include "session/a1VEXA.h"
#include "support/TestSession.h"
#include "vexa/Program.h"
#include "worksheets/frm02Tabs.h"
#include "worksheets/frmPreview.h"

#include <QEvent>
#include <QPushButton>

#include <algorithm>
#include <ctime>
#include <string>
#include <vector>

namespace {

constexpr int kRuns = 7;
constexpr double kAllowedOfSample = 1.0;
constexpr double kAllowedOfLong = 0.8;

double Clock() { return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC; }

/// Notes when a view of pages has painted one.
class WatchingApplication : public platform::Application
{
public:
    using platform::Application::Application;

    bool notify(QObject* receiver, QEvent* event) override
    {
        const bool answer = platform::Application::notify(receiver, event);
        if (firstPage == 0.0 && event->type() == QEvent::Paint) {
            const auto* pages = qobject_cast<platform::PageView*>(receiver->parent());
            if (pages != nullptr && pages->PageCount() > 0) firstPage = Clock();
        }
        return answer;
    }
    double firstPage = 0.0;
};

/// Narratives of so many pages together, in the objectives.
void MakeLong(const std::string& path)
{
    std::string words;
    for (int sentence = 0; sentence < 30; ++sentence)
        words += "The fire burns in mixed conifer above the river, and spotting was seen ahead of it. ";
    std::string body = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 ";
    for (int paragraph = 0; paragraph < 46; ++paragraph)
        body += words + "\\par ";
    support::ExecuteSql(path, "UPDATE Objectives SET Explanation = '" + body + "}' WHERE Key > 2");
}

class Bench
{
public:
    Bench(WatchingApplication& application, Program& program) : m_application(application), m_program(program)
    {}

    void Measure(const std::string& name, const std::string& path, double allowed)
    {
        a1VEXA::StartWithFile(path);
        m_program.Window().Tabs()->vsTab1().SetCurrTab(7);
        m_program.Window().Tabs()->vsTab2().SetCurrTab(3);
        QApplication::processEvents();
        Preview(); // fonts are loaded
        std::vector<double> first, whole;
        for (int run = 0; run < kRuns; ++run) {
            first.push_back(Preview());
            whole.push_back(Layout());
        }
        const std::size_t pages = ReportUtilities::VSPrinter1().Pages().pages.size();
        bench::PrintMedians("preview's first page / layout of all " + std::to_string(pages) + ", " + name,
                            first,
                            whole,
                            allowed);
    }

private:
    double Preview()
    {
        m_application.firstPage = 0.0;
        const double start = Clock();
        m_program.Window().findChild<QPushButton*>(QStringLiteral("cmdPreview"))->click();
        while (m_application.firstPage == 0.0)
            QApplication::processEvents();
        const double needed = m_application.firstPage - start;
        frmPreview::Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return needed;
    }
    static double Layout()
    {
        const double start = Clock();
        ReportRun::PreviewSelectedSections();
        return Clock() - start;
    }

    WatchingApplication& m_application;
    Program& m_program;
};

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("CUPS_SERVER", "/nowhere/cups.sock"); // its printers are no part of this
    int toolkitArguments = std::min(argc, 1);
    WatchingApplication application(toolkitArguments, argv);
    support::TempFolder folder;
    support::CopyFile(support::BuiltFile("QEL.new"), folder.File("QEL.new"));
    const std::string sample = folder.File("Sample.qel"), longOne = folder.File("Long.qel");
    for (const std::string& path : {sample, longOne})
        support::CopyFile(support::BuiltFile("samples/smith-creek.qel"), path);
    MakeLong(longOne);
    Program program;
    program.Start("");
    Bench bench(application, program);
    bench.Measure("sample", sample, kAllowedOfSample);
    bench.Measure("long", longOne, kAllowedOfLong);
    program.Window().close();
    return 0;
}
