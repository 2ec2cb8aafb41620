// What it costs to open the Conditions worksheet on a topic whose body has 200 KB, against a bare text edit
// that is made, given the same text and shown at the same size: both by turns, each with the drawing that
// follows.

#include "Measure.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/TabStrip.h"
#include "session/SessionState.h"
#include "session/a1VEXA.h"
#include "session/g2Situation.h"
#include "support/TempFolder.h"
#include "vexa/Program.h"
#include "worksheets/frm02Tabs.h"
#include "worksheets/frm0_VEXA.h"

#include <QTextDocumentFragment>

#include <string>
#include <vector>

namespace {

constexpr int kTurns = 21;
constexpr std::size_t kBodySize = 200 * 1024;
constexpr double kAllowed = 1.5;

std::string LongBody()
{
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
        "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 ";
    while (rtf.size() < kBodySize)
        rtf += "\\pard The crew held the \\b ridge road\\b0  through the night. Winds stayed light from the "
               "west and "
               "the line along the creek was tied in before the next shift came up from the camp.\\par ";
    return rtf + "}";
}

double WithDrawing(const std::function<void()>& job)
{
    return bench::Milliseconds([&] {
        job();
        QApplication::processEvents();
    });
}

/// A bare edit that shows the text of another one: made, filled, laid out, drawn.
double ShowBare(const QTextEdit& model)
{
    QTextEdit bare;
    return WithDrawing([&] {
        bare.setFont(model.font());
        bare.setUndoRedoEnabled(false);
        QTextCursor(bare.document()).insertFragment(QTextDocumentFragment(model.document()));
        bare.resize(model.size());
        bare.show();
    });
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int toolkitArguments = std::min(argc, 1);
    platform::Application application(toolkitArguments, argv);
    const support::TempFolder folder;
    const std::string fire = folder.Path() + "/fire.qel";
    support::CopyFile(support::BuiltFile("samples/smith-creek.qel"), fire);
    Program program;
    program.Start(fire);
    g2Situation::GetSituationTopics().front()->SetBody(LongBody());
    platform::TabStrip& sections = program.Window().Tabs()->vsTab1();
    platform::TabStrip& worksheets = program.Window().Tabs()->vsTab2();
    sections.SetCurrTab(2);
    std::vector<double> ours;
    std::vector<double> bares;
    for (int turn = 0; turn < kTurns; ++turn) {
        worksheets.SetCurrTab(1);
        QApplication::processEvents();
        ours.push_back(WithDrawing([&] { worksheets.SetCurrTab(3); }));
        bares.push_back(
            ShowBare(*program.Window().findChild<platform::RichTextEdit*>(QStringLiteral("txtBody"))));
    }
    bench::PrintMedians("opening a worksheet with a body of 200 KB / bare edit", ours, bares, kAllowed);
    program.Window().close();
    return 0;
}
