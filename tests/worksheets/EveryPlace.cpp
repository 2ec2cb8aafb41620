#include "worksheets/EveryPlace.h"

#include "platform/widgets/ListBox.h"
#include "platform/widgets/QtDesktop.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/TabStrip.h"
#include "reports/ReportUtilities.h"
#include "session/SessionState.h"
#include "worksheets/WorksheetTable.h"
#include "worksheets/frmPreview.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>

EveryPlace::~EveryPlace()
{
    frmPreview::Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ReportUtilities::EndReports();
}

void EveryPlace::Settle()
{
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
}

void EveryPlace::InDialog(const std::function<void()>& open, const std::function<void(QDialog&)>& work)
{
    bool came = false;
    QTimer::singleShot(0, window.get(), [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        came = QTest::qWaitForWindowActive(dialog);
        Settle();
        work(*dialog);
        if (dialog->isVisible()) dialog->reject();
    });
    open();
    QCoreApplication::processEvents();
    EXPECT_TRUE(came);
}

void EveryPlace::VisitStart(const Visitor& visit)
{
    Start();
    window->resize(windowSize);
    Settle();
    visit(*window, "start form");
}

void EveryPlace::VisitWorksheets(const Visitor& visit)
{
    window->resize(windowSize);
    for (const SectionEntry& section : ::Sections()) {
        if (!section.shown) continue;
        ClickTab(Sections(), section.section);
        for (int tab = 1; tab <= LastTab(section.section); ++tab) {
            // With no alternatives this one says so in a box.
            if (section.section == 4 && tab == 4 && m_empty) desktop.ExpectText({"No alternatives"});
            ClickTab(Worksheets(), tab);
            Settle();
            visit(*window, gCurrentTab + (tab == 1 ? "-" + std::to_string(section.section) : std::string()));
        }
    }
}

void EveryPlace::VisitDialogs(const Visitor& visit)
{
    GoTo(5, 5);
    InDialog([this] { Find<QPushButton>("cmdSize")->click(); },
             [&](QDialog& dialog) { visit(dialog, "frm561"); });
    InDialog([this] { Find<QPushButton>("cmdSRUse")->click(); },
             [&](QDialog& dialog) { VisitResources(dialog, visit); });
    VisitSpelling(visit);
}

void EveryPlace::VisitResources(QDialog& dialog, const Visitor& visit)
{
    visit(dialog, "frm562");
    auto* tabs = dialog.findChild<QTabBar*>(QStringLiteral("TabStrip1"));
    tabs->setCurrentIndex(1);
    Settle();
    visit(dialog, "frm562 copy");
    tabs->setCurrentIndex(0);
    dialog.findChild<QPushButton*>(QStringLiteral("cmdAddItem"))->click();
    Settle();
    visit(dialog, "frm562 new item");
}

void EveryPlace::VisitSpelling(const Visitor& visit)
{
    GoTo(2, 3);
    if (Find<platform::ListBox>("lstTopics")->ListCount() == 0) return;
    auto* body = Find<platform::RichTextEdit>("txtBody");
    body->setFocus();
    body->moveCursor(QTextCursor::End);
    QTest::keyClicks(body, QStringLiteral(" hte steap slope"));
    InDialog([this] { Find<QPushButton>("cmdSpellcheck")->click(); },
             [&](QDialog& dialog) { visit(dialog, "spelling"); });
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(body, Qt::Key_F, Qt::ControlModifier);
    Settle();
    visit(*window, "tab23 find");
}

void EveryPlace::VisitPreview(const Visitor& visit)
{
    qputenv("CUPS_SERVER", "/nowhere/cups.sock"); // no test prints on a printer of this computer
    GoTo(7, 3);
    Press("cmdPreview");
    frmPreview* preview = frmPreview::Loaded();
    ASSERT_NE(preview, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(preview));
    preview->resize(windowSize);
    Settle();
    visit(*preview, "preview");
    preview->findChild<QLineEdit*>(QStringLiteral("txtFind"))->setText(QStringLiteral("fire"));
    Settle();
    visit(*preview, "preview find");
    frmPreview::Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void EveryPlace::VisitBoxes(const Visitor& visit)
{
    platform::QtDesktop real(QStringLiteral("VEXA Basic"));
    platform::SetDesktop(&real);
    InDialog([this] { Pick("mnuHelp", 9); }, [&](QDialog& dialog) { visit(dialog, "about"); });
    for (const platform::Buttons buttons :
         {platform::Buttons::OkCancel, platform::Buttons::YesNo, platform::Buttons::StayLeave}) {
        platform::Message message;
        message.lines = {"One sentence that says what happened."};
        message.buttons = buttons;
        message.icon = platform::Icon::Question;
        InDialog([&] { real.Show(message); },
                 [&](QDialog& dialog) { visit(dialog, "box " + std::to_string(static_cast<int>(buttons))); });
    }
    platform::SetDesktop(&desktop);
}

void EveryPlace::VisitAll(const Visitor& visit)
{
    VisitStart(visit);
    ASSERT_NO_FATAL_FAILURE(StartWithSample());
    VisitWorksheets(visit);
    VisitDialogs(visit);
    VisitPreview(visit);
    VisitBoxes(visit);
}

void EveryPlace::VisitEmptyFile(const Visitor& visit)
{
    m_empty = true;
    ASSERT_NO_FATAL_FAILURE(StartWithNewFile());
    const Visitor named = [&](QWidget& shown, const std::string& place) { visit(shown, "empty " + place); };
    VisitWorksheets(named);
    VisitDialogs(named);
}
