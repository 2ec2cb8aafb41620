#include "help/HelpSources.h"
#include "help/HelpTest.h"
#include "platform/base/HelpTopics.h"
#include "platform/widgets/HelpDesk.h"
#include "platform/widgets/HelpKey.h"
#include "support/ScriptedDesktop.h"

#include <QAction>
#include <QDialog>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextBlock>
#include <QTimer>
#include <QWindow>

#include <gmock/gmock.h>

namespace HelpTopics = platform::HelpTopics;
namespace Theme = platform::Theme;
using testing::Contains;
using testing::ElementsAre;

namespace {

TEST_F(HelpTest, Topic_ItsPageInFrontWithTheKeys)
{
    Show(4430);
    EXPECT_EQ(Shown(), "outcomes.html");
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Outcomes - VEXA Basic Help"));
    EXPECT_TRUE(Page().hasFocus());
    Show(4440);
    EXPECT_EQ(Shown(), "probabilities.html");
}

TEST_F(HelpTest, ContentsAndUnknownTopics_TheFirstPage)
{
    Show(HelpTopics::kContents);
    EXPECT_EQ(Shown(), "index.html");
    Show(4430);
    Show(4999);
    EXPECT_EQ(Shown(), "index.html");
}

TEST_F(HelpTest, EveryTopic_OpensThePageOfTheSources)
{
    for (const HelpSources::Entry& keyword : HelpSources().keywords) {
        if (keyword.id.toInt() == 0) continue;
        window->ShowTopic(keyword.id.toInt());
        EXPECT_EQ(Shown(), keyword.page.toStdString());
        EXPECT_GT(Page().document()->characterCount(), 150) << keyword.page.toStdString();
    }
}

TEST_F(HelpTest, BackForwardAndFirstPage_ByKeys)
{
    Show(4430);
    EXPECT_FALSE(In<QAction>("cmdBack").isEnabled());
    EXPECT_FALSE(In<QAction>("cmdForward").isEnabled());
    Show(4440);
    Key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Shown(), "outcomes.html");
    Key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Shown(), "probabilities.html");
    Key(Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Shown(), "index.html");
    In<QAction>("cmdBack").trigger();
    EXPECT_EQ(Shown(), "probabilities.html");
}

TEST_F(HelpTest, Link_FollowedByKeyboard)
{
    Show(HelpTopics::kContents);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Return);
    EXPECT_EQ(Shown(), "first-fire.html");
}

TEST_F(HelpTest, Contents_FollowThePageAndLeadToOne)
{
    Show(4551);
    auto& contents = In<QHelpContentWidget>("HelpContents");
    const auto current = [&] { return contents.currentIndex().data().toString(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return current() == QLatin1String("Cost per acre"); }));
    contents.setFocus();
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_EQ(Shown(), "resource-list.html");
}

TEST_F(HelpTest, Index_FirstLettersThenEnter)
{
    Show(HelpTopics::kContents);
    In<QTabWidget>("HelpTabs").setCurrentIndex(1);
    auto& list = In<QHelpIndexWidget>("HelpIndex");
    ASSERT_TRUE(QTest::qWaitFor([&] { return list.model()->rowCount() > 50; }));
    In<QLineEdit>("txtIndex").setFocus();
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("round"));
    Key(Qt::Key_Return);
    EXPECT_EQ(Shown(), "scores.html");
}

TEST_F(HelpTest, Search_PagesWithAllWords)
{
    Show(HelpTopics::kContents);
    In<QTabWidget>("HelpTabs").setCurrentIndex(2);
    auto& box = In<QLineEdit>("txtSearch");
    auto& results = In<QListWidget>("lstResults");
    box.setFocus();
    QTest::keyClicks(&box, QStringLiteral("retardant grey"));
    Key(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return results.count() > 0; }));
    EXPECT_EQ(In<QLabel>("lblResults").text(), QStringLiteral("1 page"));
    EXPECT_EQ(results.item(0)->text(), QStringLiteral("Resource list"));
    results.setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(Shown(), "resource-list.html");
    box.setText(QStringLiteral("zeppelin"));
    box.setFocus();
    Key(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return results.count() == 0; }));
    EXPECT_EQ(In<QLabel>("lblResults").text(), QStringLiteral("No page has all these words."));
}

TEST_F(HelpTest, FindInPage_MarksGoesRoundAndSaysWhenThereIsNone)
{
    Show(4440);
    Key(Qt::Key_F, Qt::ControlModifier);
    auto& box = In<QLineEdit>("txtFind");
    ASSERT_TRUE(box.hasFocus());
    QTest::keyClicks(&box, QStringLiteral("target"));
    const int first = Page().textCursor().selectionStart();
    EXPECT_EQ(Page().textCursor().selectedText().toLower(), QStringLiteral("target"));
    Key(Qt::Key_F3);
    EXPECT_GT(Page().textCursor().selectionStart(), first);
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Page().textCursor().selectionStart(), first);
    Key(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_GT(Page().textCursor().selectionStart(), first); // the last one
    QTest::keyClicks(&box, QStringLiteral("zzz"));
    EXPECT_EQ(In<QLabel>("lblFound").text(), QStringLiteral("Not found"));
    Key(Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(box.isVisible());
    Key(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(HelpTest, Pictures_AreNoWiderThanThePage)
{
    for (const QSize size : {QSize(800, 600), QSize(1400, 900)}) {
        window->resize(size);
        Show(4430);
        const int limit = Page().viewport()->width();
        const auto picture = Page().document()->resource(QTextDocument::ImageResource,
                                                         QUrl(QStringLiteral("pictures/outcomes.png")));
        const int width = picture.value<QImage>().width();
        EXPECT_GT(width, limit / 2) << size.width();
        EXPECT_LE(width, limit) << size.width();
        EXPECT_FALSE(Page().horizontalScrollBar()->isVisible()) << size.width();
    }
}

TEST_F(HelpTest, EveryPicture_IsSeenInLightAndDark)
{
    Show(HelpTopics::kContents);
    int pictures = 0;
    for (const bool dark : {false, true}) {
        if (dark) GoDark();
        for (const auto& [page, text] : HelpSources().pages) {
            Page().setSource(Page().source().resolved(QUrl(page)));
            for (const QString& name : HelpSources().PicturesOf(page)) {
                const QVariant picture =
                    Page().document()->resource(QTextDocument::ImageResource, QUrl(name));
                EXPECT_GT(picture.value<QImage>().width(), 300)
                    << name.toStdString() << (dark ? ", dark" : "");
                ++pictures;
            }
        }
    }
    EXPECT_GT(pictures, 40);
}

TEST_F(HelpTest, LinkToAPageThatIsNotThere_SaysSo)
{
    Show(HelpTopics::kContents);
    Page().setSource(Page().source().resolved(QUrl(QStringLiteral("none.html"))));
    EXPECT_THAT(Page().toPlainText().toStdString(),
                testing::HasSubstr("The help file has no page none.html."));
}

TEST_F(HelpTest, NoPage_NeedsAHorizontalScrollBar)
{
    window->resize(800, 600);
    Show(HelpTopics::kContents);
    for (const auto& [page, text] : HelpSources().pages) {
        Page().setSource(Page().source().resolved(QUrl(page)));
        QCoreApplication::processEvents();
        EXPECT_EQ(Page().horizontalScrollBar()->maximum(), 0) << page.toStdString();
    }
}

void ExpectReadable(const QTextDocument& document, const QPalette& palette, const std::string& page)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QBrush ground = block.blockFormat().background();
        const QColor behind = ground.style() == Qt::NoBrush ? palette.color(QPalette::Base) : ground.color();
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.isImageFormat()) continue;
            const QColor text = format.foreground().style() == Qt::NoBrush ? palette.color(QPalette::Text)
                                                                           : format.foreground().color();
            EXPECT_GE(Theme::Contrast(text, behind), 4.5)
                << page << ": " << part.fragment().text().toStdString();
        }
    }
}

TEST_F(HelpTest, EveryPage_ReadsWellInLightAndDark)
{
    Show(HelpTopics::kContents);
    for (const bool dark : {false, true}) {
        if (dark) GoDark();
        ASSERT_EQ(Theme::IsDark(Page().palette()), dark);
        for (const auto& [page, text] : HelpSources().pages) {
            Page().setSource(Page().source().resolved(QUrl(page)));
            ExpectReadable(*Page().document(), Page().palette(), page.toStdString() + (dark ? ", dark" : ""));
        }
    }
}

TEST_F(HelpTest, GoingDark_ColoursAndTheDrawnPictureFollowAtOnce)
{
    Show(HelpTopics::kContents);
    Page().setSource(Page().source().resolved(QUrl(QStringLiteral("probability.html"))));
    const auto corner = [this] {
        const auto picture = Page().document()->resource(QTextDocument::ImageResource,
                                                         QUrl(QStringLiteral("pictures/chances.png")));
        return QColor(picture.value<QImage>().pixel(1, 1)).lightness();
    };
    EXPECT_GT(corner(), 200);
    GoDark();
    EXPECT_LT(corner(), 80);
    EXPECT_EQ(Shown(), "probability.html");
}

TEST_F(HelpTest, ControlsOfTheWindow_HaveNamesThatAreRead)
{
    Show(HelpTopics::kContents);
    In<QAction>("cmdFind").trigger();
    for (const char* name : {"HelpPage",
                             "HelpContents",
                             "HelpIndex",
                             "txtIndex",
                             "txtSearch",
                             "lstResults",
                             "txtFind",
                             "cmdFindNext",
                             "cmdFindPrevious"}) {
        EXPECT_FALSE(In<QWidget>(name).accessibleName().isEmpty()) << name;
    }
}

TEST_F(HelpTest, TwoPrograms_DoNotMeet)
{
    Show(4430);
    {
        platform::HelpWindow other(OpenFile());
        other.ShowTopic(4440);
    }
    Show(4550);
    EXPECT_EQ(Shown(), "cost-analysis.html");
}

TEST_F(HelpTest, BesideADialog_OpenToTheUser)
{
    Show(4550);
    QDialog dialog;
    QTimer::singleShot(0, &dialog, [&] {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        window->ShowTopic(4551);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        EXPECT_EQ(window->windowHandle()->transientParent(), dialog.windowHandle());
        // What the toolkit keeps from a user never reaches the widget.
        QTest::mouseClick(window->windowHandle(),
                          Qt::LeftButton,
                          {},
                          In<QTabWidget>("HelpTabs").mapTo(window.get(), QPoint(5, 5)));
        EXPECT_TRUE(window->isEnabled());
        dialog.reject();
    });
    dialog.exec();
    EXPECT_EQ(Shown(), "cost-per-acre.html");
    Show(4430);
    EXPECT_EQ(window->windowHandle()->transientParent(), nullptr);
}

TEST_F(HelpTest, TheProgram_EndsWithoutIt)
{
    EXPECT_FALSE(window->testAttribute(Qt::WA_QuitOnClose));
    EXPECT_EQ(platform::HelpKey::TopicOf(&Page()), HelpTopics::kHelp);
}

// ---- The desk

class HelpDeskTest : public ::testing::Test
{
protected:
    HelpDeskTest() { platform::SetDesktop(&desktop); }
    ~HelpDeskTest() override { platform::SetDesktop(nullptr); }

    support::TempFolder folder;
    support::ScriptedDesktop desktop;
    platform::HelpDesk desk;
};

TEST_F(HelpDeskTest, NothingIsRead_BeforeItIsAskedFor) { EXPECT_EQ(desk.Window(), nullptr); }

TEST_F(HelpDeskTest, AskedTwice_OneWindow)
{
    const std::string file = support::BuiltFile("VEXAPlus.hlp");
    desk.Show(file, 4430);
    const platform::HelpWindow* first = desk.Window();
    ASSERT_NE(first, nullptr);
    desk.Window()->close();
    desk.Show(file, 4440);
    EXPECT_EQ(desk.Window(), first);
    EXPECT_TRUE(first->isVisible());
}

TEST_F(HelpDeskTest, FileMissing_ToldWhereItBelongs)
{
    desktop.ExpectText(
        {"The help file VEXAPlus.hlp is missing.", "It belongs into the folder " + folder.Path() + "."});
    desk.Show(folder.File("VEXAPlus.hlp"), 4430);
    EXPECT_EQ(desk.Window(), nullptr);
}

TEST_F(HelpDeskTest, FileDamaged_ToldAndTriedAgainLater)
{
    const std::string file = folder.File("VEXAPlus.hlp");
    for (const std::string& bytes : {std::string(),
                                     std::string("no help"),
                                     support::ReadFile(support::BuiltFile("VEXAPlus.hlp")).substr(0, 5000)}) {
        support::WriteFile(file, bytes);
        desktop.ExpectText({"The help file VEXAPlus.hlp cannot be read.",
                            "Put the one that came with the program into the folder " + folder.Path() + "."});
        desk.Show(file, 4430);
        EXPECT_EQ(desk.Window(), nullptr);
    }
    support::CopyFile(support::BuiltFile("VEXAPlus.hlp"), file);
    desk.Show(file, 4430);
    EXPECT_NE(desk.Window(), nullptr);
}

TEST_F(HelpDeskTest, HelpFile_IsLeftAsItIs)
{
    const std::string file = folder.File("VEXAPlus.hlp");
    support::CopyFile(support::BuiltFile("VEXAPlus.hlp"), file);
    const std::string before = support::ReadFile(file);
    desk.Show(file, 4430);
    EXPECT_EQ(support::ReadFile(file), before);
    EXPECT_EQ(QDir(QString::fromStdString(folder.Path())).entryList(QDir::Files),
              QStringList{QStringLiteral("VEXAPlus.hlp")});
}

} // namespace
