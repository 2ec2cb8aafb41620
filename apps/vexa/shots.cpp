// shots FILE FOLDER [WIDTH HEIGHT]: the start form, every section and worksheet of a data file and their
// dialogs as pictures, light and dark, at 800 x 600 and at the given size. Runs without a display with
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
#include "worksheets/frmPreview.h"

#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <functional>

namespace {

constexpr int kLookForBoxes = 20; // milliseconds

/// Something done to a dialog before the next picture.
struct DialogStep
{
    QString suffix; // of the picture's name
    std::function<void(QDialog&)> act;
};

const QList<DialogStep> kResourceSteps = {
    {QStringLiteral("-copy"),
     [](QDialog& dialog) { dialog.findChild<QTabBar*>(QStringLiteral("TabStrip1"))->setCurrentIndex(1); }},
    {QStringLiteral("-add"),
     [](QDialog& dialog) {
         dialog.findChild<QTabBar*>(QStringLiteral("TabStrip1"))->setCurrentIndex(0);
         dialog.findChild<QPushButton*>(QStringLiteral("cmdAddItem"))->click();
     }},
};

class Photographer
{
public:
    Photographer(frm0_VEXA& window, const QString& folder) : m_window(window), m_folder(folder) {}

    void Take(const QString& name)
    {
        for (const QSize size : {QSize(800, 600), m_size}) {
            m_window.resize(size);
            QApplication::processEvents();
            SaveBoth(m_window, name, size);
        }
    }
    /// What the button of the worksheet shown opens, as it comes up and with more done to it; closed again.
    void TakeDialog(const QString& name, const char* button, const QList<DialogStep>& steps = {})
    {
        auto* opens = m_window.findChild<QPushButton*>(QString::fromUtf8(button));
        if (opens == nullptr || !opens->isEnabled()) return;
        for (const QSize size : {QSize(800, 600), m_size}) {
            m_window.resize(size);
            QTimer::singleShot(0, &m_window, [this, name, size, steps] {
                auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                if (dialog == nullptr) return;
                SaveBoth(*dialog, name, size);
                for (const DialogStep& step : steps) {
                    step.act(*dialog);
                    SaveBoth(*dialog, name + step.suffix, size);
                }
                dialog->reject();
            });
            opens->click();
        }
    }
    /// The preview of the report, on its first page and on a later one as a whole.
    void TakePreview()
    {
        m_window.findChild<QPushButton*>(QStringLiteral("cmdPreview"))->click();
        frmPreview* preview = frmPreview::Loaded();
        if (preview == nullptr) return;
        for (const QSize size : {QSize(800, 600), m_size}) {
            preview->resize(size);
            SaveBoth(*preview, QStringLiteral("frmPreview"), size);
        }
        preview->findChild<QToolButton*>(QStringLiteral("cmdNextPage"))->click();
        preview->findChild<QToolButton*>(QStringLiteral("cmdFitPage"))->click();
        preview->findChild<QLineEdit*>(QStringLiteral("txtFind"))->setText(QStringLiteral("fire"));
        SaveBoth(*preview, QStringLiteral("frmPreview-find"), m_size);
        frmPreview::Unload();
    }
    void SetSize(QSize size) { m_size = size; }

private:
    static QString Name(QSize size, bool dark)
    {
        return QStringLiteral("-%1x%2%3.png")
            .arg(size.width())
            .arg(size.height())
            .arg(dark ? QStringLiteral("-dark") : QString());
    }

    void SaveBoth(QWidget& window, const QString& name, QSize size)
    {
        for (const bool dark : {false, true})
            Save(window, name, size, dark);
    }

    void Save(QWidget& window, const QString& name, QSize size, bool dark)
    {
        const QPalette before = QGuiApplication::palette();
        if (dark) QApplication::setPalette(platform::Theme::WithAccent(platform::Theme::DarkPalette()));
        QApplication::processEvents();
        window.grab().save(m_folder + QLatin1Char('/') + name + Name(size, dark));
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
            if (gCurrentTab == "tab83") photographer.TakePreview();
            if (gCurrentTab != "tab56") continue;
            photographer.TakeDialog(QStringLiteral("frm561"), "cmdSize");
            photographer.TakeDialog(QStringLiteral("frm562"), "cmdSRUse", kResourceSteps);
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
    QStandardPaths::setTestModeEnabled(true); // the pictures' file is no document that a user opened
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    Program program;
    frm0_VEXA& window = program.Window();
    Photographer photographer(window, QString::fromLocal8Bit(argv[2]));
    if (argc >= 5) photographer.SetSize({QByteArray(argv[3]).toInt(), QByteArray(argv[4]).toInt()});
    // A box that a screen shows about its file waits for nobody here.
    QTimer boxes;
    QObject::connect(&boxes, &QTimer::timeout, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->reject();
    });
    boxes.start(kLookForBoxes);
    program.Start("");
    photographer.Take(QStringLiteral("start"));
    a1VEXA::StartWithFile(argv[1]);
    if (window.Tabs() == nullptr) return 1;
    TakeWorksheets(window, photographer);
    window.close();
    return 0;
}
