#include "ReportTest.h"

namespace {

using namespace ReportUtilities;
using platform::print::FlowRaw;

class Utilities : public support::ReportTest
{
protected:
    Utilities()
    {
        OpenNew("INSERT OR REPLACE INTO Items (ItemKey, ItemName, Body) VALUES (11, '', 'Smith Creek'),"
                " (221, '', 'LKF-7');");
        Printer().StartDoc();
        PrintSet_Init();
    }
    /// The texts that went into the export as they are.
    static std::vector<std::string> RawTexts()
    {
        std::vector<std::string> texts;
        for (const auto& item : Printer().Pages().flow) {
            if (const FlowRaw* raw = std::get_if<FlowRaw>(&item.content)) texts.push_back(raw->text);
        }
        return texts;
    }
};

// The stack of formats

TEST_F(Utilities, RestoreFormat_AllFieldsChanged_WritesTheirThirteenBack)
{
    SaveFormat();
    Printer().SetMarginTop(1);
    Printer().SetMarginLeft(2);
    Printer().SetMarginRight(3);
    Printer().SetMarginBottom(4);
    Printer().SetColumns(2);
    Printer().SetTextAlign(7);
    Printer().SetIndentLeft(5);
    Printer().SetIndentFirst(6);
    Printer().SetIndentRight(7);
    Printer().SetFontName("Courier");
    Printer().SetFontSize(22.0);
    Printer().SetFontBold(true);
    Printer().SetFontItalic(true);
    RestoreFormat();
    EXPECT_EQ(Printer().MarginTop(), 1440.0);
    EXPECT_EQ(Printer().MarginLeft(), 720.0);
    EXPECT_EQ(Printer().MarginRight(), 720.0);
    EXPECT_EQ(Printer().MarginBottom(), 720.0);
    EXPECT_EQ(Printer().Columns(), 1);
    EXPECT_EQ(Printer().TextAlign(), 0);
    EXPECT_EQ(Printer().IndentLeft(), 0.0);
    EXPECT_EQ(Printer().IndentFirst(), 0.0);
    EXPECT_EQ(Printer().IndentRight(), 0.0);
    EXPECT_EQ(Printer().FontName(), "Arial");
    EXPECT_EQ(Printer().FontSize(), 10.0F);
    EXPECT_FALSE(Printer().FontBold());
    EXPECT_FALSE(Printer().FontItalic());
}

TEST_F(Utilities, RestoreFormat_OtherSettingsChanged_LeavesThem)
{
    SaveFormat();
    Printer().SetTableBorder(7);
    Printer().SetSpaceBefore(120.0);
    Printer().SetPageBorder(2);
    Printer().SetHeader("a|b|c");
    Printer().SetCurrentY(5000.0);
    RestoreFormat();
    EXPECT_EQ(Printer().TableBorder(), 7);
    EXPECT_EQ(Printer().SpaceBefore(), 120.0);
    EXPECT_EQ(Printer().PageBorder(), 2);
    EXPECT_EQ(Printer().Header(), "a|b|c");
    EXPECT_EQ(Printer().CurrentY(), 5000.0);
}

TEST_F(Utilities, SaveFormat_Nested_RestoresTheInnerOneFirst)
{
    Printer().SetFontSize(8.0);
    SaveFormat();
    Printer().SetFontSize(9.5);
    SaveFormat();
    Printer().SetFontSize(20.0);
    RestoreFormat();
    EXPECT_EQ(Printer().FontSize(), 9.5F);
    RestoreFormat();
    EXPECT_EQ(Printer().FontSize(), 8.0F);
}

TEST_F(Utilities, PrintSet_Init_AfterAFailedReport_LeavesNothingOnTheStack)
{
    Printer().SetMarginLeft(100.0);
    SaveFormat();
    PrintSet_Init();
    Printer().SetMarginLeft(200.0);
    SaveFormat();
    Printer().SetMarginLeft(300.0);
    RestoreFormat();
    EXPECT_EQ(Printer().MarginLeft(), 200.0);
    EXPECT_DEBUG_DEATH(RestoreFormat(), "");
}

// Header, headings, rules

TEST_F(Utilities, SetPageHeader_AFile_TellsFireNumberAndPageAndSetsTheRule)
{
    SetPageHeader();
    EXPECT_EQ(Printer().Header(), "Smith Creek|VEXA No. LKF-7|Page ___");
    EXPECT_EQ(Printer().HdrFontName(), "Arial");
    EXPECT_EQ(Printer().HdrFontSize(), 10.0F);
    EXPECT_FALSE(Printer().HdrFontBold());
    EXPECT_EQ(Printer().PageBorder(), 2);
}

TEST_F(Utilities, SetPageHeader_BarAndPageMarkInTheFireName_AreCharacters)
{
    OpenNew("INSERT OR REPLACE INTO Items (ItemKey, ItemName, Body) VALUES (11, '', 'A|B {\\b %d}');");
    Select({1, 2, 3, 4, 5, 6, 7, 8});
    Printer().StartDoc();
    SetPageHeader();
    Printer().EndDoc();
    const std::vector<std::string> lines = LinesOfPage(1);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines.front(), "A|B {\\b %d} VEXA No. Page 1");
}

TEST_F(Utilities, PrintHeading_AnyFont_StandsCentredFiftyBelowTheMarginAndLeavesTheFormat)
{
    Printer().SetMarginTop(2000.0);
    Printer().SetFontSize(9.0);
    PrintHeading("Objectives");
    EXPECT_EQ(Printer().FontSize(), 9.0F);
    EXPECT_EQ(Printer().TextAlign(), 0);
    EXPECT_FALSE(Printer().FontBold());
    const Double below = Printer().CurrentY();
    Printer().EndDoc();
    ASSERT_EQ(Printer().Pages().bookmarks.size(), 1u);
    EXPECT_EQ(Printer().Pages().bookmarks.front().title, "Objectives");
    EXPECT_EQ(Printer().Pages().bookmarks.front().y, 2050.0);
    const auto& text = Printer().Pages().pages.front().ink.texts.front();
    EXPECT_EQ(text.x + text.width / 2.0, 6120.0);
    const auto& look = Printer().Pages().looks.at(static_cast<std::size_t>(text.look));
    EXPECT_EQ(look.halfPoints, 24);
    EXPECT_TRUE(look.bold);
    // A blank line of its size stands below it.
    EXPECT_GT(below, 2050.0 + 2.0 * 240.0);
    EXPECT_LT(below, 2050.0 + 2.0 * 300.0);
}

TEST_F(Utilities, PrintBanner_ALetterPage_StandsBetweenTwoRules)
{
    PrintBanner("Costs");
    EXPECT_EQ(Printer().FontSize(), 11.0F); // and stays so
    EXPECT_TRUE(Printer().FontBold());
    EXPECT_EQ(Printer().TextAlign(), 0);
    Printer().EndDoc();
    EXPECT_EQ(DrawnLines(1), (std::vector<std::string>{"720 1440 11520 1440", "720 1690 11520 1690"}));
    const Place place = PlaceOf("Costs");
    EXPECT_GT(place.y, 1440.0);
    EXPECT_LT(place.y, 1690.0);
}

TEST_F(Utilities, DrawRule_TwoCorners_DrawsThroughThem)
{
    DrawRule(1, 2, 3, 4);
    EXPECT_EQ(Printer().X1(), 1.0);
    EXPECT_EQ(Printer().Y2(), 4.0);
    Printer().EndDoc();
    EXPECT_EQ(DrawnLines(1), std::vector<std::string>{"1 2 3 4"});
}

TEST_F(Utilities, GetTextWidth_LetterAndA4_IsThePaperLessAnInch)
{
    EXPECT_EQ(GetTextWidth(), 10800);
    UseA4();
    Printer().StartDoc();
    EXPECT_EQ(GetTextWidth(), 10466);
}

TEST_F(Utilities, MaxLong_TwoNumbers_IsTheGreater)
{
    EXPECT_EQ(MaxLong(-1, 2), 2);
    EXPECT_EQ(MaxLong(3, 2), 3);
}

// Fonts

TEST_F(Utilities, GetPrintFont_ArialServed_IsArialAndKept)
{
    Printer().SetFonts({"Microsoft Sans Serif", "Arial"});
    EXPECT_EQ(GetPrintFont(), "Arial");
    EXPECT_EQ(sPrintFont(), "Arial");
    Printer().SetFonts({"Courier"});
    EXPECT_EQ(GetPrintFont(), "Arial");
}

TEST_F(Utilities, GetPrintFont_NoArial_IsMicrosoftSansSerif)
{
    Printer().SetFonts({"Arial Black", "arial", "Microsoft Sans Serif"});
    EXPECT_EQ(GetPrintFont(), "Microsoft Sans Serif");
    EXPECT_EQ(sPrintFont(), "Microsoft Sans Serif");
}

TEST_F(Utilities, GetPrintFont_NeitherFont_IsTheControlsAndSearchedAfreshEachTime)
{
    Printer().SetFonts({"Courier"});
    Printer().SetFontName("Courier");
    EXPECT_EQ(GetPrintFont(), "Courier");
    EXPECT_EQ(sPrintFont(), "");
    PrintHeading("One");
    Printer().SetFonts({"Courier", "Arial"});
    PrintHeading("Two");
    EXPECT_EQ(sPrintFont(), "Arial");
    Printer().EndDoc();
    const auto& document = Printer().Pages();
    const auto& texts = document.pages.front().ink.texts;
    EXPECT_EQ(document.looks.at(static_cast<std::size_t>(texts.at(0).look)).font, "Courier");
    EXPECT_EQ(document.looks.at(static_cast<std::size_t>(texts.at(1).look)).font, "Arial");
}

TEST_F(Utilities, GetPrintFont_ThisSystem_FindsArialOrWhatStandsInForIt)
{
    EXPECT_EQ(GetPrintFont(), "Arial");
}

// Lines

TEST_F(Utilities, DrawReportLine_NotExporting_DrawsALineAlone)
{
    DrawReportLine(1000, 2000, 500, 3000);
    EXPECT_TRUE(RawTexts().empty());
    Printer().EndDoc();
    EXPECT_EQ(DrawnLines(1), std::vector<std::string>{"1000 2000 500 3000"});
}

TEST_F(Utilities, DrawReportLine_Exporting_WritesItsLiteralShapeToo)
{
    SetbSavingRtf(true);
    DrawReportLine(1000, 2000, 500, 3000);
    // The form is fixed, also where word processors of today pass over it.
    EXPECT_EQ(RawTexts(),
              std::vector<std::string>{"{\\shp{\\shpleft-220\\shptop1280\\shpright280\\shpbottom2280"
                                       "{\\sp{\\sn shapeType}{\\sv 20}}{\\sp{\\sn fFlipH}{\\sv 1}}"
                                       "{\\sp{\\sn fFlipV}{\\sv 0}}{\\sp{\\sn lineColor}{\\sv 0}}"
                                       "{\\sp{\\sn lineWidth}{\\sv 7200}}}}"});
    Printer().EndDoc();
    EXPECT_EQ(DrawnLines(1), std::vector<std::string>{"1000 2000 500 3000"});
}

TEST_F(Utilities, DrawReportLine_LevelLineOfAColouredPen_IsFlippedDownAndTellsThePen)
{
    SetbSavingRtf(true);
    Printer().SetPenColor(0x00FF00);
    Printer().SetPenWidth(15.0);
    DrawReportLine(720, 720, 820, 720); // equal counts as not less
    EXPECT_EQ(RawTexts(),
              std::vector<std::string>{"{\\shp{\\shpleft0\\shptop0\\shpright100\\shpbottom0"
                                       "{\\sp{\\sn shapeType}{\\sv 20}}{\\sp{\\sn fFlipH}{\\sv 0}}"
                                       "{\\sp{\\sn fFlipV}{\\sv 1}}{\\sp{\\sn lineColor}{\\sv 65280}}"
                                       "{\\sp{\\sn lineWidth}{\\sv 10800}}}}"});
}

TEST_F(Utilities, TrimRight_TextsOfAllKinds_LosesBlanksAndLineEndsAtTheEndAlone)
{
    EXPECT_EQ(TrimRight(""), "");
    EXPECT_EQ(TrimRight(" \r\n \n"), "");
    EXPECT_EQ(TrimRight(" a b \r\n \r\n"), " a b");
    EXPECT_EQ(TrimRight("a\t"), "a\t"); // a tab stays
    EXPECT_EQ(TrimRight("a\r\nb"), "a\r\nb");
}

} // namespace
