#include "platform/print/PrintControl.h"
#include "platform/widgets/PageView.h"
#include "platform/widgets/PageViewSearch.h"
#include "platform/widgets/Theme.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <gmock/gmock.h>

using platform::PageView;
using platform::print::PrintControl;
namespace Theme = platform::Theme;

namespace {

/// So many pages; on each, "Page text N" and a sentence that breaks over two lines.
class Report : public PrintControl
{
public:
    explicit Report(int pages)
    {
        StartDoc();
        for (int page = 1; page <= pages; ++page) {
            if (page > 1) NewPage();
            Paragraph("Page text " + std::to_string(page));
            SetMarginRight(8000.0);
            Paragraph("The saddle at Coffin Gap on the Wagon Road is the weak place of this line.");
            SetMarginRight(720.0);
        }
        EndDoc();
    }
};

class PageViewTest : public ::testing::Test
{
protected:
    void Show(int pages, QSize size = {800, 600})
    {
        report = std::make_unique<Report>(pages);
        view.setObjectName(QStringLiteral("PageView1"));
        view.resize(size);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
        view.setFocus();
        view.ShowDocument(&report->Pages());
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&view, key, modifiers);
    }
    void Wheel(int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPointF middle(view.viewport()->rect().center());
        QWheelEvent event(middle,
                          view.viewport()->mapToGlobal(middle),
                          {},
                          QPoint(0, 120 * notches),
                          Qt::NoButton,
                          modifiers,
                          Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(view.viewport(), &event);
    }
    int Top() const { return view.verticalScrollBar()->value(); }
    int PageWidth() const
    {
        return static_cast<int>(std::lround(12240.0 * view.Zoom() * view.logicalDpiX() / 1440.0));
    }

    std::unique_ptr<Report> report;
    PageView view;
};

// ---- What is shown

TEST_F(PageViewTest, NewDocument_OpensOnPage1AtPageWidth)
{
    Show(12);
    EXPECT_EQ(view.PageCount(), 12);
    EXPECT_EQ(view.CurrentPage(), 1);
    EXPECT_EQ(Top(), 0);
    EXPECT_EQ(view.FitsTo(), PageView::Fit::Width);
    EXPECT_EQ(PageWidth(), view.viewport()->width() - 2 * Theme::Margin());
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

TEST_F(PageViewTest, NoDocument_TheSentenceAndNoPages)
{
    view.SetSentence(QStringLiteral("Nothing here."));
    Show(3);
    view.ShowDocument(nullptr);
    EXPECT_EQ(view.PageCount(), 0);
    EXPECT_EQ(view.CurrentPage(), 0);
    EXPECT_TRUE(view.accessibleDescription().startsWith(QStringLiteral("Nothing here.")));
    Key(Qt::Key_PageDown);
    Key(Qt::Key_End);
    view.Find(QStringLiteral("text"));
    view.FindNext();
    view.SetZoom(2.0);
    EXPECT_EQ(view.CurrentPage(), 0);
    EXPECT_EQ(view.HitCount(), 0);
}

TEST_F(PageViewTest, Description_TheTextsOfTheCurrentPageOneALine)
{
    Show(3);
    EXPECT_TRUE(view.accessibleDescription().startsWith(QStringLiteral("Page text 1\nThe saddle at")));
    Key(Qt::Key_PageDown);
    EXPECT_TRUE(view.accessibleDescription().startsWith(QStringLiteral("Page text 2\n")));
}

TEST_F(PageViewTest, MarkOfTestsFromOutside_StaysAtTheEndOfTheDescription)
{
    Show(2);
    view.setAccessibleDescription(view.accessibleDescription() + QStringLiteral(" #PageView1"));
    Key(Qt::Key_PageDown);
    EXPECT_TRUE(view.accessibleDescription().startsWith(QStringLiteral("Page text 2")));
    EXPECT_TRUE(view.accessibleDescription().endsWith(QStringLiteral(" #PageView1")));
}

TEST_F(PageViewTest, PagesOfTheRecord_AreDrawnWhiteWithTheirText)
{
    Show(2);
    const QImage shown = view.viewport()->grab().toImage();
    const QPoint corner(shown.width() / 2, Theme::Margin() + 3);
    EXPECT_EQ(shown.pixelColor(corner), QColor(Qt::white));
    int dark = 0;
    for (int x = 0; x < shown.width(); ++x) {
        for (int y = 0; y < shown.height(); ++y)
            dark += shown.pixelColor(x, y).lightness() < 60 ? 1 : 0;
    }
    EXPECT_GT(dark, 100);
}

TEST_F(PageViewTest, PagesAdded_CountGrowsAndThePlaceStays)
{
    PrintControl growing;
    growing.StartDoc();
    growing.Paragraph("First");
    growing.NewPage();
    view.resize(800, 600);
    view.show();
    view.ShowDocument(&growing.Pages());
    EXPECT_EQ(view.PageCount(), 1);
    view.verticalScrollBar()->setValue(100);
    growing.Paragraph("Second");
    growing.NewPage();
    growing.EndDoc();
    view.PagesAdded();
    EXPECT_EQ(view.PageCount(), 3);
    EXPECT_EQ(view.CurrentPage(), 1);
    EXPECT_EQ(Top(), 100);
}

TEST_F(PageViewTest, Frozen_KeepsItsPictureWhileTheDocumentIsMadeAnew)
{
    Show(5);
    Key(Qt::Key_PageDown);
    const QImage before = view.viewport()->grab().toImage();
    view.Freeze();
    report->StartDoc(); // the pages are gone
    EXPECT_EQ(view.viewport()->grab().toImage(), before);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(view.viewport()->grab().toImage(), before);
    report->Paragraph("Anew");
    report->EndDoc();
    view.ShowDocument(&report->Pages());
    EXPECT_EQ(view.PageCount(), 1);
    EXPECT_NE(view.viewport()->grab().toImage(), before);
}

TEST_F(PageViewTest, MadeAnew_ThePlaceTheZoomAndTheMarksStay)
{
    Show(5);
    view.Find(QStringLiteral("page"));
    view.SetZoom(1.25);
    view.GoToPage(3);
    view.verticalScrollBar()->setValue(Top() + 91);
    const int top = Top(), hit = view.CurrentHit(), hits = view.HitCount();
    ASSERT_GT(hits, 0);
    view.Freeze();
    report = std::make_unique<Report>(5);
    view.ShowAgain(&report->Pages());
    EXPECT_EQ(Top(), top);
    EXPECT_EQ(view.CurrentPage(), 3);
    EXPECT_EQ(view.Zoom(), 1.25);
    EXPECT_EQ(view.CurrentHit(), hit);
    EXPECT_EQ(view.HitCount(), hits);
}

TEST_F(PageViewTest, MadeAnewWithFewerPages_TheNearestPage)
{
    Show(5);
    view.GoToPage(5);
    view.Freeze();
    report = std::make_unique<Report>(2);
    view.ShowAgain(&report->Pages());
    EXPECT_EQ(view.CurrentPage(), 2);
    view.Freeze();
    report->Abandon();
    view.ShowAgain(&report->Pages());
    EXPECT_EQ(view.CurrentPage(), 0);
}

// ---- Pages

TEST_F(PageViewTest, PageKeys_TurnPagesAndStopAtTheEnds)
{
    Show(4);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(view.CurrentPage(), 1);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(view.CurrentPage(), 2);
    Key(Qt::Key_End);
    EXPECT_EQ(view.CurrentPage(), 4);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(view.CurrentPage(), 4);
    EXPECT_EQ(Top(), view.verticalScrollBar()->maximum());
    Key(Qt::Key_PageUp);
    EXPECT_EQ(view.CurrentPage(), 3);
    Key(Qt::Key_Home);
    EXPECT_EQ(view.CurrentPage(), 1);
    EXPECT_EQ(Top(), 0);
}

TEST_F(PageViewTest, GoToPage_NumberThatThereIsNot_TheNearest)
{
    Show(4);
    view.GoToPage(99);
    EXPECT_EQ(view.CurrentPage(), 4);
    view.GoToPage(-3);
    EXPECT_EQ(view.CurrentPage(), 1);
}

TEST_F(PageViewTest, SeveralPagesInSight_EachPageAskedForIsTheCurrentOne)
{
    Show(4);
    view.SetZoom(0.1);
    for (const int page : {2, 3, 4, 1}) {
        view.GoToPage(page);
        EXPECT_EQ(view.CurrentPage(), page);
    }
}

TEST_F(PageViewTest, WheelAndSpace_ScrollAndThePageInSightIsTheCurrentOne)
{
    Show(3);
    QSignalSpy changes(&view, &PageView::PageChanged);
    Wheel(-1);
    EXPECT_GT(Top(), 0);
    EXPECT_EQ(view.CurrentPage(), 1);
    Wheel(1);
    EXPECT_EQ(Top(), 0);
    EXPECT_EQ(changes.count(), 0);
    Key(Qt::Key_Space);
    EXPECT_EQ(Top(), view.viewport()->height());
    Key(Qt::Key_Space);
    EXPECT_EQ(view.CurrentPage(), 2);
    EXPECT_EQ(changes.count(), 1);
    Key(Qt::Key_Space, Qt::ShiftModifier);
    Key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(view.CurrentPage(), 1);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    EXPECT_EQ(view.CurrentPage(), 3);
}

// ---- Zoom

TEST_F(PageViewTest, ZoomKeys_StepThroughRoundPercents)
{
    Show(2);
    view.SetZoom(1.0);
    EXPECT_EQ(view.FitsTo(), PageView::Fit::None);
    Key(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(std::lround(view.Zoom() * 100), 125);
    Key(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(std::lround(view.Zoom() * 100), 150);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(std::lround(view.Zoom() * 100), 75);
}

TEST_F(PageViewTest, Zoom_StaysBetweenItsLimits)
{
    Show(2);
    for (int i = 0; i < 40; ++i)
        view.ZoomIn();
    EXPECT_EQ(view.Zoom(), 8.0);
    EXPECT_FALSE(view.viewport()->grab().isNull()); // drawn without a picture of the whole page
    for (int i = 0; i < 40; ++i)
        view.ZoomOut();
    EXPECT_EQ(std::lround(view.Zoom() * 100), 10);
}

TEST_F(PageViewTest, WheelWithCtrl_ZoomsAroundThePointer)
{
    Show(3);
    view.GoToPage(2);
    const double before = view.Zoom();
    Wheel(1, Qt::ControlModifier);
    EXPECT_GT(view.Zoom(), before);
    EXPECT_EQ(view.CurrentPage(), 2);
    Wheel(-1, Qt::ControlModifier);
    EXPECT_EQ(std::lround(view.Zoom() * 1000), std::lround(before * 1000));
}

TEST_F(PageViewTest, FitPage_TheWholePageInTheWindowAlsoAfterResizing)
{
    Show(3);
    view.GoToPage(2);
    view.SetFit(PageView::Fit::Page);
    EXPECT_EQ(view.CurrentPage(), 2);
    const auto pageHeight = [this] { return 15840.0 * view.Zoom() * view.logicalDpiX() / 1440.0; };
    EXPECT_EQ(std::lround(pageHeight()), view.viewport()->height() - 2 * Theme::Margin());
    view.resize(500, 900);
    QCoreApplication::processEvents();
    EXPECT_LE(PageWidth(), view.viewport()->width() - 2 * Theme::Margin());
    EXPECT_EQ(view.CurrentPage(), 2);
}

TEST_F(PageViewTest, FitWidth_FollowsTheWindowAndKeepsThePlace)
{
    Show(6);
    view.GoToPage(4);
    view.resize(1200, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(PageWidth(), view.viewport()->width() - 2 * Theme::Margin());
    EXPECT_EQ(view.CurrentPage(), 4);
}

// ---- Find

TEST_F(PageViewTest, Find_EveryPlaceWhateverItsCase)
{
    Show(3);
    QSignalSpy changes(&view, &PageView::HitsChanged);
    view.Find(QStringLiteral("PAGE text"));
    EXPECT_EQ(view.HitCount(), 3);
    EXPECT_EQ(view.CurrentHit(), 1);
    EXPECT_EQ(changes.count(), 1);
    view.FindNext();
    EXPECT_EQ(view.CurrentHit(), 2);
    EXPECT_EQ(view.CurrentPage(), 2);
    view.FindPrevious();
    view.FindPrevious(); // around the beginning
    EXPECT_EQ(view.CurrentHit(), 3);
    EXPECT_EQ(view.CurrentPage(), 3);
    view.FindNext(); // around the end
    EXPECT_EQ(view.CurrentHit(), 1);
}

TEST_F(PageViewTest, Find_BeginsAtTheCurrentPage)
{
    Show(3);
    view.GoToPage(2);
    view.Find(QStringLiteral("page text"));
    EXPECT_EQ(view.CurrentHit(), 2);
    EXPECT_EQ(view.CurrentPage(), 2);
}

TEST_F(PageViewTest, Find_WordsThatALineEndParts_AreFound)
{
    Show(1);
    const auto& texts = report->Pages().pages.at(0).ink.texts;
    std::string first = texts.at(1).text; // the first line of the sentence
    ASSERT_EQ(texts.at(2).y > texts.at(1).y, true);
    const std::string lastWord = first.substr(first.find_last_of(' ', first.size() - 2) + 1);
    const std::string nextWord = texts.at(2).text.substr(0, texts.at(2).text.find(' '));
    view.Find(QString::fromStdString(lastWord + " " + nextWord));
    ASSERT_EQ(view.HitCount(), 1);
    const auto hits =
        platform::FindInPages(report->Pages(), QString::fromStdString(lastWord + " " + nextWord));
    EXPECT_EQ(hits.at(0).marks.size(), 2u);
}

TEST_F(PageViewTest, Find_NotThere_NothingMoves)
{
    Show(3);
    view.GoToPage(2);
    view.Find(QStringLiteral("zebra"));
    EXPECT_EQ(view.HitCount(), 0);
    EXPECT_EQ(view.CurrentHit(), 0);
    view.FindNext();
    EXPECT_EQ(view.CurrentPage(), 2);
    view.Find(QStringLiteral("   "));
    EXPECT_EQ(view.HitCount(), 0);
}

TEST_F(PageViewTest, Find_TheMarkIsOnThePageAndGoesWithAnEmptyText)
{
    Show(1);
    const QImage plain = view.viewport()->grab().toImage();
    view.Find(QStringLiteral("saddle"));
    EXPECT_NE(view.viewport()->grab().toImage(), plain);
    view.Find(QString());
    EXPECT_EQ(view.viewport()->grab().toImage(), plain);
}

TEST(PageViewSearch, Mark_StandsOnTheWord)
{
    Report report(1);
    const auto& text = report.Pages().pages.at(0).ink.texts.at(0);
    ASSERT_EQ(text.text, "Page text 1");
    const auto whole = platform::FindInPages(report.Pages(), QStringLiteral("page text 1"));
    ASSERT_EQ(whole.size(), 1u);
    const QRectF mark = whole[0].marks.at(0);
    EXPECT_EQ(mark.left(), text.x);
    EXPECT_LT(mark.top(), text.y);
    EXPECT_GT(mark.bottom(), text.y);
    EXPECT_EQ(std::lround(mark.width()), std::lround(text.width));
    const auto part = platform::FindInPages(report.Pages(), QStringLiteral("text"));
    EXPECT_GT(part.at(0).marks.at(0).left(), mark.left());
    EXPECT_LT(part.at(0).marks.at(0).right(), mark.right());
}

TEST(PageViewSearch, WordsOfTwoParagraphs_ABlankParts)
{
    PrintControl control;
    control.StartDoc();
    control.Paragraph("one");
    control.Paragraph("two");
    control.EndDoc();
    EXPECT_EQ(platform::FindInPages(control.Pages(), QStringLiteral("one two")).size(), 1u);
    EXPECT_EQ(platform::FindInPages(control.Pages(), QStringLiteral("onetwo")).size(), 0u);
}

} // namespace
