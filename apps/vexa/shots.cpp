// shots FILE FOLDER [WIDTH HEIGHT]: the start form and every section and worksheet of a data file as
// pictures, light and dark, at 800 x 600 and at the given size. Runs without a display with
// QT_QPA_PLATFORM=offscreen.

#include "platform/widgets/Application.h"
#include "platform/widgets/TabStrip.h"
#include "platform/widgets/Theme.h"
#include "session/SessionState.h"
#include "session/a1VEXA.h"
#include "vexa/Program.h"
#include "worksheets/WorksheetTable.h"
#include "worksheets/frm02Tabs.h"
#include "worksheets/frm0_VEXA.h"

#include <cstdio>

namespace {

class Photographer
{
public:
    Photographer(frm0_VEXA& window, const QString& folder) : m_window(window), m_folder(folder) {}

    void Take(const QString& name)
    {
        for (const QSize size : {QSize(800, 600), m_size}) {
            m_window.resize(size);
            QApplication::processEvents();
            for (const bool dark : {false, true})
                Save(name, size, dark);
        }
    }
    void SetSize(QSize size) { m_size = size; }

private:
    void Save(const QString& name, QSize size, bool dark)
    {
        const QPalette before = QGuiApplication::palette();
        if (dark) QApplication::setPalette(platform::Theme::WithAccent(platform::Theme::DarkPalette()));
        QApplication::processEvents();
        m_window.grab().save(QStringLiteral("%1/%2-%3x%4%5.png")
                                 .arg(m_folder, name)
                                 .arg(size.width())
                                 .arg(size.height())
                                 .arg(dark ? QStringLiteral("-dark") : QString()));
        QApplication::setPalette(before);
    }

    frm0_VEXA& m_window;
    QString m_folder;
    QSize m_size = {1366, 768};
};

void TakeWorksheets(frm0_VEXA& window, Photographer& photographer)
{
    for (const SectionEntry& section : Sections()) {
        if (!section.shown) continue;
        window.Tabs()->vsTab1().SetCurrTab(section.section);
        for (int tab = 1; tab <= LastTab(section.section); ++tab) {
            window.Tabs()->vsTab2().SetCurrTab(tab);
            const QString key = QString::fromStdString(gCurrentTab);
            photographer.Take(tab == 1 ? key + QStringLiteral("-%1").arg(section.section) : key);
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("usage: shots FILE FOLDER [WIDTH HEIGHT]\n", stderr);
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    Program program;
    frm0_VEXA& window = program.Window();
    Photographer photographer(window, QString::fromLocal8Bit(argv[2]));
    if (argc >= 5) photographer.SetSize({QByteArray(argv[3]).toInt(), QByteArray(argv[4]).toInt()});
    program.Start("");
    photographer.Take(QStringLiteral("start"));
    a1VEXA::StartWithFile(argv[1]);
    if (window.Tabs() == nullptr) return 1;
    TakeWorksheets(window, photographer);
    window.close();
    return 0;
}
