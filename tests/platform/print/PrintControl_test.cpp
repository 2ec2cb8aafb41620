#include "platform/print/PrintControl.h"
#include "platform/print/Printed.h"

#include <gtest/gtest.h>

using namespace platform::print;
using namespace printed;

TEST(PrintControl, StartDoc_ReturnsEverySettingToItsDefault)
{
    PrintControl control;
    control.StartDoc();
    control.SetMarginLeft(2880);
    control.SetMarginTop(5000);
    control.SetIndentLeft(100);
    control.SetColumns(2);
    control.SetTextAlign(7);
    control.SetFontName("Times New Roman");
    control.SetFontSize(14);
    control.SetFontBold(true);
    control.SetTableBorder(7);
    control.SetPageBorder(2);
    control.SetSpaceBefore(60);
    control.SetHeader("a|b|c");
    control.StartDoc();
    EXPECT_EQ(control.PageWidth(), 12240.0);
    EXPECT_EQ(control.PageHeight(), 15840.0);
    EXPECT_EQ(control.MarginLeft(), 720.0);
    EXPECT_EQ(control.MarginRight(), 720.0);
    EXPECT_EQ(control.MarginTop(), 1440.0);
    EXPECT_EQ(control.MarginBottom(), 720.0);
    EXPECT_EQ(control.IndentLeft(), 0.0);
    EXPECT_EQ(control.Columns(), 1);
    EXPECT_EQ(control.TextAlign(), 0);
    EXPECT_EQ(control.FontName(), "Arial");
    EXPECT_EQ(control.FontSize(), 10.0F);
    EXPECT_FALSE(control.FontBold());
    EXPECT_EQ(control.TableBorder(), 0);
    EXPECT_EQ(control.PageBorder(), 0);
    EXPECT_EQ(control.SpaceBefore(), 0.0);
    EXPECT_EQ(control.Header(), "||");
    EXPECT_EQ(control.CurrentX(), 720.0);
    EXPECT_EQ(control.CurrentY(), 1440.0);
}

TEST(PrintControl, Paragraph_AdvancesByTheHeightOfItsFont)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.Paragraph("one");
    EXPECT_EQ(control.CurrentY(), top + line10);
    control.Paragraph("");
    EXPECT_EQ(control.CurrentY(), top + 2 * line10);
    control.SetFontSize(20);
    control.Paragraph("");
    EXPECT_EQ(control.CurrentY(), top + 2 * line10 + 447);
}

TEST(PrintControl, Paragraph_StandsAtTheLeftMarginWithItsBaselineBelowItsTop)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.Paragraph("one");
    const PlacedText text = At(Ended(control), "one");
    EXPECT_EQ(text.x, 720.0);
    EXPECT_EQ(text.y, top + base10);
}

TEST(PrintControl, CurrentXTold_FirstLineBeginsThereAndTheOthersAtTheMargin)
{
    OpenControl control;
    control.SetMarginLeft(2880);
    control.SetCurrentX(1080);
    control.Paragraph("first " + Repeated("word ", 60) + "\r\nlast");
    const Document& document = Ended(control);
    EXPECT_EQ(document.pages[0].ink.texts[0].x, 1080.0);
    EXPECT_EQ(document.pages[0].ink.texts[1].x, 2880.0);
    EXPECT_EQ(At(document, "last").x, 2880.0);
}

TEST(PrintControl, CurrentX_IsTheLeftMarginAgainBehindAParagraph)
{
    OpenControl control;
    control.SetCurrentX(1080);
    EXPECT_EQ(control.CurrentX(), 1080.0);
    control.Paragraph("one");
    EXPECT_EQ(control.CurrentX(), 720.0);
    control.SetMarginLeft(1440);
    EXPECT_EQ(control.CurrentX(), 1440.0);
}

TEST(PrintControl, IndentLeft_MovesAllLinesAndCurrentXCountsFromThePaper)
{
    OpenControl control;
    control.SetIndentLeft(1440);
    control.SetCurrentX(control.MarginLeft() + 1440);
    control.Paragraph(Repeated("word ", 60));
    const Document& document = Ended(control);
    EXPECT_EQ(document.pages[0].ink.texts[0].x, 2160.0);
    EXPECT_EQ(document.pages[0].ink.texts[1].x, 2160.0);
}

TEST(PrintControl, Text_StaysOnTheLineThatTheParagraphEnds)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.SetFontBold(true);
    control.Text("Start:   ");
    EXPECT_EQ(control.CurrentY(), top);
    EXPECT_GT(control.CurrentX(), 720.0);
    const double x = control.CurrentX();
    control.SetFontBold(false);
    control.Paragraph("noon");
    EXPECT_EQ(control.CurrentY(), top + line10);
    const Document& document = Ended(control);
    EXPECT_EQ(At(document, "noon").y, At(document, "Start:").y);
    EXPECT_EQ(At(document, "noon").x, x);
    EXPECT_TRUE(LookOf(document, "Start:").bold);
    EXPECT_FALSE(LookOf(document, "noon").bold);
}

TEST(PrintControl, TextAtTheEnd_IsNotLost)
{
    OpenControl control;
    control.Text("alone");
    EXPECT_EQ(Letters(Ended(control)), "alone");
}

TEST(PrintControl, CalcParagraph_MeasuresWhatParagraphTakesAndWritesNothing)
{
    OpenControl control;
    const std::string body = BodyOf(Repeated("word ", 300) + "\\par \\fs40 big");
    const double top = control.CurrentY();
    control.CalcParagraph(Plain("1         ").Body(body));
    EXPECT_EQ(control.CurrentY(), top);
    EXPECT_EQ(control.Y1(), top);
    const double bottom = control.Y2();
    EXPECT_EQ(control.TextHei(), bottom - top);
    control.Paragraph(Plain("1         ").Body(body));
    EXPECT_EQ(control.CurrentY(), bottom);
}

TEST(PrintControl, CalcParagraphLongerThanThePage_IsMeasuredAsIfItHadNoEnd)
{
    OpenControl control;
    control.CalcParagraph(Repeated("line\r\n", 100));
    EXPECT_EQ(control.Y2(), control.CurrentY() + 101 * line10);
    EXPECT_EQ(Ended(control).pages.size(), 1u);
}

TEST(PrintControl, SpaceBeforeAndAfter_StandAboveAndBelowAParagraph)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.SetSpaceBefore(120);
    control.SetSpaceAfter(60);
    control.Paragraph("one");
    EXPECT_EQ(control.CurrentY(), top + 120 + line10 + 60);
    EXPECT_EQ(At(Ended(control), "one").y, top + 120 + base10);
}

TEST(PrintControl, TypedText_ShowsAsTyped)
{
    OpenControl control;
    control.Paragraph(Plain("C:\\burn {old} | 50%; \\b \\par"));
    EXPECT_EQ(TextsOf(Ended(control).pages[0])[0], "C:\\burn {old} | 50%; \\b \\par");
}

TEST(PrintControl, Fragments_AreRichBesideTypedText)
{
    OpenControl control;
    control.SetFontSize(11);
    control.Paragraph(
        Rich("{\\par\\b Name:}  ").Plain("C:\\burn {x").Rich("{\\par\\par\\b Next:}  ").Plain("y"));
    const Document& document = Ended(control);
    EXPECT_TRUE(LookOf(document, "Name:").bold);
    EXPECT_EQ(LookOf(document, "Name:").halfPoints, 22);
    EXPECT_FALSE(LookOf(document, "  C:\\burn {x").bold);
    EXPECT_EQ(LookOf(document, "  C:\\burn {x").halfPoints, 22);
    EXPECT_GT(At(document, "Next:").y, At(document, "Name:").y);
}

TEST(PrintControl, StoredBody_HasItsOwnFontsWhateverTheControlsAre)
{
    OpenControl control;
    control.SetFontName("Courier New");
    control.SetFontSize(14);
    control.SetFontBold(true);
    control.Paragraph(Body(BodyOf("one \\f1\\fs24 two")));
    control.Paragraph("three");
    const Document& document = Ended(control);
    EXPECT_EQ(LookOf(document, "one").font, "Arial");
    EXPECT_EQ(LookOf(document, "one").halfPoints, 20);
    EXPECT_FALSE(LookOf(document, "one").bold);
    EXPECT_EQ(LookOf(document, "two").font, "Times New Roman");
    EXPECT_EQ(LookOf(document, "three").font, "Courier New");
    EXPECT_TRUE(LookOf(document, "three").bold);
}

TEST(PrintControl, Tabs_CountFromTheMarginOnEveryLine)
{
    OpenControl control;
    const std::string words = Repeated("words ", 40);
    control.Paragraph(Body(BodyOf("\\li360\\fi-360 hanging\\tab A" + words)));
    control.Paragraph(Body(BodyOf("\\li500\\tx2000 word\\tab B" + words + "\\line x\\tab C")));
    control.Paragraph(Body(BodyOf("a\\tab D")));
    control.Paragraph(Body(BodyOf("\\tqr\\tx5000 a\\tab E")));
    control.Paragraph(Body(BodyOf("\\tqc\\tx5000 a\\tab F")));
    const Document& document = Ended(control);
    EXPECT_EQ(At(document, "A").x, 720.0 + 720.0);
    EXPECT_EQ(At(document, "B").x, 720.0 + 2000.0);
    EXPECT_EQ(At(document, "C").x, 720.0 + 2000.0);
    EXPECT_EQ(At(document, "D").x, 720.0 + 720.0);
    EXPECT_EQ(RightEdge(At(document, "E")), 5720);
    EXPECT_EQ(Middle(At(document, "F")), 5720);
    for (const PlacedText& text : document.pages[0].ink.texts)
        EXPECT_LE(text.x + text.width, 11520.0);
}

TEST(PrintControl, TabLeader_FillsTheGapUpToTheStop)
{
    OpenControl control;
    control.Paragraph(Body(BodyOf("\\tqr\\tldot\\tx5000 a\\tab 7")));
    const PlacedText dots = At(Ended(control), "...");
    EXPECT_GT(dots.x, 720.0 + At(control.Pages(), "a").width);
    EXPECT_LE(dots.x + dots.width, At(control.Pages(), "7").x);
    EXPECT_GT(dots.width, 4000.0);
}

TEST(PrintControl, ListItems_HaveTheirMarkersInFrontOfTheText)
{
    OpenControl control;
    control.Paragraph(
        Body(BodyOf("{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec\\pnstart1{\\pntxta .}}\\fi-360"
                    "\\li720 one " +
                    Repeated("words ", 40) + "\\par two")));
    const Document& document = Ended(control);
    EXPECT_EQ(At(document, "1.").x, 720.0 + 360.0);
    EXPECT_EQ(At(document, "one").x, 720.0 + 720.0);
    EXPECT_EQ(At(document, "2.").x, 720.0 + 360.0);
    EXPECT_EQ(At(document, "two").x, 720.0 + 720.0);
}

TEST(PrintControl, GiantLetters_StayOnThePaper)
{
    OpenControl control;
    control.Paragraph(Body(BodyOf("{\\fs3276 MW}")));
    const Document& document = Ended(control);
    EXPECT_EQ(Letters(document), "MW");
    for (const Page& page : document.pages) {
        for (const PlacedText& text : page.ink.texts)
            EXPECT_LE(text.x + text.width, 12240.0);
    }
}

TEST(PrintControl, JoinedBodies_AllShow)
{
    OpenControl control;
    control.Paragraph(Body(BodyOf("one") + BodyOf("two") + BodyOf("three")));
    EXPECT_EQ(Letters(Ended(control)), "onetwothree");
}

TEST(PrintControl, ParagraphHigherThanThePage_GoesOnOnTheNext)
{
    OpenControl control;
    std::string text;
    for (int i = 100; i < 300; ++i)
        text += "line" + std::to_string(i) + "\r\n";
    control.Paragraph(text);
    const Document& document = Ended(control);
    EXPECT_EQ(document.pages.size(), 4u);
    for (const Page& page : document.pages) {
        for (const PlacedText& one : page.ink.texts) {
            EXPECT_GE(one.y, 1440.0);
            EXPECT_LE(one.y, 15840.0 - 720.0);
        }
    }
    for (int i = 100; i < 300; ++i)
        EXPECT_TRUE(Find(document, "line" + std::to_string(i))) << i;
}

TEST(PrintControl, BlankLinesAtTheFootOfAPage_OpenNoOther)
{
    OpenControl control;
    control.SetCurrentY(15000);
    for (int i = 0; i < 5; ++i)
        control.Paragraph("");
    EXPECT_EQ(Ended(control).pages.size(), 1u);
}

TEST(PrintControl, WordWiderThanItsColumn_IsBrokenAndWhole)
{
    OpenControl control;
    const std::string word(500, 'w');
    control.Paragraph(word);
    const Document& document = Ended(control);
    EXPECT_EQ(Letters(document), word);
    EXPECT_GT(document.pages[0].ink.texts.size(), 1u);
    for (const PlacedText& text : document.pages[0].ink.texts)
        EXPECT_LE(text.x + text.width, 12240.0 - 720.0 + 1.0);
}

TEST(PrintControl, AlignmentCodes_PlaceTextAcross)
{
    OpenControl control;
    for (const Integer code : {alignCenterTop, alignCenterMiddle, alignCenterBottom}) {
        control.SetTextAlign(code);
        control.Paragraph("centre");
    }
    for (const Integer code : {alignRightTop, alignRightBottom}) {
        control.SetTextAlign(code);
        control.Paragraph("right");
    }
    for (const PlacedText& text : Ended(control).pages[0].ink.texts) {
        EXPECT_EQ(text.text == "centre" ? Middle(text) : 6120, 6120);
        EXPECT_EQ(text.text == "right" ? RightEdge(text) : 11520, 11520);
    }
}

TEST(PrintControl, Margins_BoundTheText)
{
    OpenControl control;
    control.SetMarginRight(6000);
    control.Paragraph(Repeated("word ", 50));
    for (const PlacedText& text : Ended(control).pages[0].ink.texts)
        EXPECT_LE(text.x + text.width, 6240.0);
}

TEST(PrintControl, Lines_AreDrawnWhereTheyAreTold)
{
    OpenControl control;
    control.SetPenColor(0x0000FF); // red, as colours stand here
    control.DrawLine(1000, 2000, 500, 3000);
    control.SetX1(720);
    control.SetY1(5000);
    control.SetX2(11520);
    control.SetY2(5000);
    control.SetDraw(1);
    const std::vector<PlacedLine> lines = Ended(control).pages[0].ink.lines;
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], (PlacedLine{1000, 2000, 500, 3000, 10, 0xFF0000}));
    EXPECT_EQ(lines[1], (PlacedLine{720, 5000, 11520, 5000, 10, 0xFF0000}));
}

TEST(PrintControl, TextBox_WritesIntoItsPlaceAndLeavesThePosition)
{
    OpenControl control;
    const double y = control.CurrentY();
    control.SetTextAlign(alignLeftBottom);
    control.TextBox(Plain("label"), 745, 2240, 3600, 0);
    control.SetTextAlign(alignRightBottom);
    control.TextBox(Plain("70%"), 3620, 3000, 600, 0);
    EXPECT_EQ(control.CurrentY(), y);
    const Document& document = Ended(control);
    EXPECT_EQ(At(document, "label").x, 745.0);
    EXPECT_EQ(At(document, "label").y, 2240.0 + base10);
    EXPECT_EQ(RightEdge(At(document, "70%")), 4220);
}

TEST(PrintControl, TextBoxOfAHeight_PlacesTextDown)
{
    OpenControl control;
    for (const Integer code : {alignLeftTop, alignLeftMiddle, alignLeftBottom}) {
        control.SetTextAlign(code);
        control.TextBox(Plain("box" + std::to_string(code)), 1000, 2000, 3000, 1000 + line10);
    }
    const Document& document = Ended(control);
    EXPECT_EQ(At(document, "box0").y, 2000 + base10);
    EXPECT_EQ(At(document, "box3").y, 2500 + base10);
    EXPECT_EQ(At(document, "box6").y, 3000 + base10);
}

TEST(PrintControl, TextBoxThatOnlyMeasures_TellsTheHeight)
{
    OpenControl control;
    control.TextBox(Plain("\r\n"), 8100, 1440, 3100, 0, true, true);
    EXPECT_EQ(control.TextHei(), 2 * line10);
    control.TextBox(Plain("a\r\nb\r\nc"), 8100, 1440, 3100, 0, true, true);
    EXPECT_EQ(control.TextHei(), 3 * line10);
    EXPECT_EQ(control.Y2(), 1440 + 3 * line10);
    EXPECT_EQ(Letters(Ended(control)), "");
}

TEST(PrintControl, TextBoxLongerThanThePage_GoesOnOnAPageOfItsOwn)
{
    OpenControl control;
    std::string text;
    for (int i = 100; i < 200; ++i)
        text += "line" + std::to_string(i) + "\r\n";
    int events = 0;
    control.OnNewPage([&] { ++events; });
    control.TextBox(Plain(text), 8100, 9000, 3000);
    control.NewPage();
    control.Paragraph("behind");
    const Document& document = Ended(control);
    EXPECT_EQ(document.pages.size(), 4u);
    EXPECT_EQ(events, 3);
    for (int i = 100; i < 200; ++i)
        EXPECT_EQ(At(document, "line" + std::to_string(i)).x, 8100.0) << i;
    EXPECT_EQ(PageOf(document, "behind"), 3);
}

TEST(PrintControl, LabelOf300Characters_ShowsWhole)
{
    OpenControl control;
    const std::string label = Repeated("ridge ", 50);
    control.SetMarginLeft(2880);
    control.Paragraph(Plain(label));
    control.TextBox(Plain(label), 745, 5000, 3600);
    control.Table("1800|1800;", {{Plain(label), Plain(label)}});
    std::string letters = Repeated("ridge", 200);
    EXPECT_EQ(Letters(Ended(control)), letters);
}

TEST(PrintControl, OutsideOfADocument_NothingIsWritten)
{
    PrintControl control;
    control.Paragraph("x");
    control.Text("x");
    control.Table("1000;x;");
    control.DrawLine(0, 0, 1, 1);
    control.NewPage();
    control.EndDoc();
    EXPECT_EQ(control.Pages().pages.size(), 0u);
}

TEST(PrintControl, EmptyDocument_IsOneEmptyPage)
{
    OpenControl control;
    EXPECT_EQ(Ended(control).pages.size(), 1u);
}

TEST(PrintControl, FontsOfThePrinter_HoldThoseServedBySubstitutesOfEqualMetrics)
{
    PrintControl control;
    bool hasArial = false;
    for (Long i = 0; i < control.FontCount(); ++i)
        hasArial = hasArial || control.Fonts(i) == "Arial";
    EXPECT_TRUE(hasArial);
    EXPECT_EQ(control.Fonts(-1), "");
    EXPECT_EQ(control.Fonts(control.FontCount()), "");
}

TEST(PrintControl, FontsOfAPrinterOfItsOwn_AreThoseAlone)
{
    PrintControl control;
    control.SetFonts({"Courier New"});
    EXPECT_EQ(control.FontCount(), 1);
    EXPECT_EQ(control.Fonts(0), "Courier New");
}

TEST(PrintControl, Preview_KeepsThePagesFromThePrinter)
{
    PrintControl control;
    std::vector<std::pair<Long, Long>> printed;
    control.SetPrinter([&](const Document&, Long first, Long last) { printed.emplace_back(first, last); });
    EXPECT_TRUE(control.Preview());
    control.StartDoc();
    control.NewPage();
    control.EndDoc();
    EXPECT_TRUE(printed.empty());
    control.SetPreviewPage(2);
    control.SetAction(8);
    ASSERT_EQ(printed.size(), 1u);
    EXPECT_EQ(printed[0], (std::pair<Long, Long>(1, 1)));
    control.SetPreview(false);
    control.StartDoc();
    control.NewPage();
    control.NewPage();
    control.EndDoc();
    ASSERT_EQ(printed.size(), 2u);
    EXPECT_EQ(printed[1], (std::pair<Long, Long>(0, 2)));
}
