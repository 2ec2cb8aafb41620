#include "platform/print/Printed.h"

#include <gtest/gtest.h>

using namespace platform::print;
using namespace printed;

TEST(PrintPages, NewPageEvent_ComesOnceForEachPageButTheFirst)
{
    PrintControl control;
    int events = 0;
    control.OnNewPage([&] { ++events; });
    control.StartDoc();
    EXPECT_EQ(events, 0);
    control.NewPage();
    control.NewPage();
    control.EndDoc();
    EXPECT_EQ(events, 2);
    EXPECT_EQ(control.Pages().pages.size(), 3u);
}

TEST(PrintPages, HeaderOfAPage_IsDrawnWhenItEndsAndBeforeTheEvent)
{
    OpenControl control;
    control.SetHeader("||first");
    control.OnNewPage([&] {
        EXPECT_EQ(Letters(control.Pages()), "first");
        control.SetHeader("||second");
    });
    control.NewPage();
    const Document& document = Ended(control);
    EXPECT_EQ(TextsOf(document.pages[0]), std::vector<std::string>{"first"});
    EXPECT_EQ(TextsOf(document.pages[1]), std::vector<std::string>{"second"});
}

TEST(PrintPages, HeaderTakenOffDuringAPage_IsNotOnIt)
{
    OpenControl control;
    control.SetHeader("a|b|c");
    control.SetPageBorder(2);
    control.Paragraph("x");
    control.SetHeader("||");
    control.SetPageBorder(0);
    const Document& document = Ended(control);
    EXPECT_EQ(TextsOf(document.pages[0]), std::vector<std::string>{"x"});
    EXPECT_TRUE(document.pages[0].ink.lines.empty());
}

TEST(PrintPages, NumberedField_ShowsThePageNumber)
{
    OpenControl control;
    control.SetHeader("Fire|VEXA No. 7|Page %d");
    control.NewPage();
    const Document& document = Ended(control);
    EXPECT_EQ(TextsOf(document.pages[0]).back(), "Page 1");
    EXPECT_EQ(TextsOf(document.pages[1]).back(), "Page 2");
}

TEST(PrintPages, HeaderFields_StandLeftCentreAndRightOnOneLine)
{
    OpenControl control;
    control.SetHeader("Fire|VEXA No. 7|Page ___");
    const Document& document = Ended(control);
    const PlacedText left = At(document, "Fire");
    const PlacedText center = At(document, "VEXA");
    const PlacedText right = At(document, "Page ___");
    EXPECT_EQ(left.x, 720.0);
    EXPECT_EQ(Middle(center), 6120);
    EXPECT_EQ(RightEdge(right), 11520);
    EXPECT_EQ(left.y, center.y);
    EXPECT_EQ(left.y, right.y);
}

TEST(PrintPages, HeaderFieldsAsAList_TakeSignsOfTheFormatAsCharacters)
{
    OpenControl control;
    control.SetHeader({{{"Bar | 5%d"}, {"No. 7"}, {"Page %d", true}}});
    EXPECT_EQ(TextsOf(Ended(control).pages[0]), (std::vector<std::string>{"Bar | 5%d", "No. 7", "Page 1"}));
}

TEST(PrintPages, HeaderPlace_IsTheSameWhateverTheMarginsAre)
{
    OpenControl control;
    control.SetHeader("Fire||");
    control.SetPageBorder(2);
    control.NewPage();
    control.SetMarginLeft(2880);
    control.SetMarginRight(2160);
    control.SetMarginTop(8040);
    const Document& document = Ended(control);
    EXPECT_EQ(document.pages[0].ink.texts[0].x, document.pages[1].ink.texts[0].x);
    EXPECT_EQ(document.pages[0].ink.texts[0].y, document.pages[1].ink.texts[0].y);
    EXPECT_EQ(document.pages[0].ink.lines, document.pages[1].ink.lines);
}

TEST(PrintPages, PageBorder2_RulesThePageUnderItsHeader)
{
    OpenControl control;
    control.SetHeader("Fire||");
    control.SetPageBorder(2);
    const Document& document = Ended(control);
    ASSERT_EQ(document.pages[0].ink.lines.size(), 1u);
    const PlacedLine line = document.pages[0].ink.lines[0];
    EXPECT_EQ(line.x1, 720.0);
    EXPECT_EQ(line.x2, 11520.0);
    EXPECT_EQ(line.y1, line.y2);
    EXPECT_GT(line.y1, At(document, "Fire").y);
    EXPECT_LT(line.y1, 720.0);
}

TEST(PrintPages, LongFireName_NeitherRunsIntoTheOtherFieldsNorIntoThePage)
{
    OpenControl control;
    control.SetHeader({{{Repeated("Smith Creek ", 5)}, {"VEXA No. 7"}, {"Page %d", true}}});
    const Document& document = Ended(control);
    const double center = At(document, "VEXA").x;
    for (const PlacedText& text : document.pages[0].ink.texts) {
        const bool isName = text.text.starts_with("Smith") || text.text.starts_with("Creek");
        EXPECT_LT(isName ? text.x + text.width : 0.0, center);
        EXPECT_LT(text.y, 720.0);
        EXPECT_GT(text.y, 0.0);
    }
}

TEST(PrintPages, Event_FindsThePositionAtTheTopAndMayMoveIt)
{
    OpenControl control;
    control.SetMarginTop(5000);
    control.OnNewPage([&] {
        EXPECT_EQ(control.CurrentY(), 5000.0);
        control.SetMarginTop(1440);
        control.SetCurrentY(1440);
    });
    control.SetCurrentY(15000);
    control.Paragraph("b");
    const Document& document = Ended(control);
    EXPECT_EQ(PageOf(document, "b"), 1);
    EXPECT_EQ(At(document, "b").y, 1440.0 + base10);
}

TEST(PrintPages, MarginTopMovedWithoutTheEvent_StaysForTheNextPage)
{
    OpenControl control;
    control.SetMarginTop(4300);
    control.NewPage();
    control.Paragraph("x");
    EXPECT_EQ(At(Ended(control), "x").y, 4300.0 + base10);
}

TEST(PrintPages, Columns_FillOneAfterTheOtherFromTheMovedMargin)
{
    OpenControl control;
    control.SetMarginTop(10000);
    control.SetCurrentY(10000);
    control.SetColumns(2);
    std::string text;
    for (int i = 100; i < 150; ++i)
        text += (i > 100 ? "\r\nline" : "line") + std::to_string(i);
    control.Paragraph(text);
    const Document& document = Ended(control);
    ASSERT_EQ(document.pages.size(), 2u);
    EXPECT_EQ(At(document, "line100").x, 720.0);
    EXPECT_EQ(At(document, "line100").y, 10000 + base10);
    const PlacedText second = At(document, "line122"); // 22 lines fit
    EXPECT_EQ(second.x, 6300.0);
    EXPECT_EQ(second.y, 10000 + base10);
    EXPECT_EQ(PageOf(document, "line144"), 1);
}

TEST(PrintPages, NewColumn_GoesToTheNextAndBehindTheLastToANewPage)
{
    OpenControl control;
    control.SetColumns(2);
    control.Paragraph("a");
    control.NewColumn();
    EXPECT_EQ(control.CurrentX(), 6300.0);
    EXPECT_EQ(control.CurrentY(), 1440.0);
    control.Paragraph("b");
    control.NewColumn();
    control.Paragraph("c");
    const Document& document = Ended(control);
    EXPECT_EQ(PageOf(document, "b"), 0);
    EXPECT_EQ(PageOf(document, "c"), 1);
    EXPECT_EQ(At(document, "c").x, 720.0);
}

TEST(PrintPages, Columns_WrapTextToTheirOwnWidth)
{
    OpenControl control;
    control.SetColumns(2);
    control.Paragraph(Repeated("word ", 100));
    for (const PlacedText& text : Ended(control).pages[0].ink.texts)
        EXPECT_LE(text.x + text.width, 720.0 + 5220.0);
}

TEST(PrintPages, Progress_TellsEachPageAndCancelLeavesNone)
{
    OpenControl control;
    std::vector<Long> told;
    control.OnProgress([&](Long page) {
        told.push_back(page);
        return page < 3;
    });
    EXPECT_THROW(
        {
            for (;;)
                control.Paragraph("line");
        },
        PrintCancelled);
    EXPECT_EQ(told, (std::vector<Long>{1, 2, 3}));
    EXPECT_FALSE(control.IsOpen());
    EXPECT_EQ(control.Pages().pages.size(), 0u);
}

TEST(PrintPages, CancelWithinATableOrAtTheEnd_LeavesNoPages)
{
    PrintControl control;
    control.OnProgress([](Long) { return false; });
    control.StartDoc();
    EXPECT_THROW(control.Table("3000;" + Repeated("cell;", 200)), PrintCancelled);
    EXPECT_EQ(control.Pages().pages.size(), 0u);
    control.StartDoc();
    EXPECT_THROW(control.NewPage(), PrintCancelled);
    control.StartDoc();
    EXPECT_THROW(control.EndDoc(), PrintCancelled);
    EXPECT_EQ(control.Pages().pages.size(), 0u);
}

TEST(PrintPages, StartDocAfterAnUnfinishedRun_BeginsAnew)
{
    OpenControl control;
    control.Paragraph("old");
    control.NewPage();
    control.StartTable();
    control.StartDoc();
    control.Paragraph("new");
    EXPECT_EQ(Letters(Ended(control)), "new");
    EXPECT_EQ(control.Pages().pages.size(), 1u);
}

TEST(PrintPages, Paper_CountsFromTheNextDocumentOn)
{
    PrintControl control;
    control.SetPaper(11906, 16838);
    control.StartDoc();
    control.SetHeader("||Page %d");
    const Document& document = Ended(control);
    EXPECT_EQ(control.PageHeight(), 16838.0);
    EXPECT_EQ(document.pages[0].width, 11906.0);
    EXPECT_EQ(RightEdge(At(document, "Page")), 11186);
}

TEST(PrintPages, Bookmarks_KnowThePageAndPlaceOfTheNextParagraph)
{
    OpenControl control;
    control.NewPage();
    control.SetCurrentY(1490);
    control.AddBookmark("Decision Tree");
    control.Paragraph("Decision Tree");
    control.Paragraph("text");
    const Document& document = Ended(control);
    ASSERT_EQ(document.bookmarks.size(), 1u);
    EXPECT_EQ(document.bookmarks[0].title, "Decision Tree");
    EXPECT_EQ(document.bookmarks[0].page, 1);
    EXPECT_EQ(document.bookmarks[0].y, 1490.0);
}

TEST(PrintPages, LinesOfAPage_ReadFromTopToBottom)
{
    OpenControl control;
    control.TextBox(Plain("right"), 6000, 3000, 3000);
    control.TextBox(Plain("left"), 1000, 3000, 3000);
    control.Paragraph("top");
    EXPECT_EQ(LinesOf(Ended(control).pages[0]), (std::vector<std::string>{"top", "left right"}));
}

TEST(PrintPages, Dump_TellsPositionsInWholeTwips)
{
    OpenControl control;
    control.SetFontBold(true);
    control.Paragraph("ab");
    control.DrawLine(1000, 2000, 500, 3000.4);
    EXPECT_EQ(DumpPages(Ended(control)),
              "page 1 12240 x 15840\n"
              "line 1000 2000 500 3000 10 #000000\n"
              "text 720 1621 233 [Arial 10 b] ab\n");
}
