#include "platform/print/Printed.h"
#include "platform/print/TableFormat.h"

#include <gtest/gtest.h>

using namespace platform::print;
using namespace printed;

namespace {

/// Vertical and horizontal rules of a page.
std::vector<PlacedLine> Rules(const Page& page, bool upright)
{
    std::vector<PlacedLine> rules;
    for (const PlacedLine& line : page.ink.lines) {
        if ((line.x1 == line.x2) == upright) rules.push_back(line);
    }
    return rules;
}

constexpr double cellInset = 60.0;

} // namespace

TEST(TableFormat, Columns_HaveMarkWidthAndRule)
{
    const TableFormat format = ReadFormat("7800|>2100!|^800|<10;data");
    EXPECT_EQ(format.columns,
              (std::vector<TableColumn>{{0, 7800, false}, {2, 2100, true}, {1, 800, false}, {0, 10, false}}));
    EXPECT_EQ(format.data, "data");
    EXPECT_EQ(ReadFormat("100").data, "");
}

TEST(TableFormat, Rows_EndAtSemicolonsAndCellsAtBars)
{
    using Rows = std::vector<std::vector<std::string>>;
    EXPECT_EQ(SplitRows("a|b;c|;"), (Rows{{"a", "b"}, {"c", ""}}));
    EXPECT_EQ(SplitRows(" | ;"), (Rows{{" ", " "}}));
    EXPECT_EQ(SplitRows(""), (Rows{}));
    EXPECT_EQ(SplitRows("no end"), (Rows{{"no end"}}));
    EXPECT_EQ(SplitRows("||;"), (Rows{{"", "", ""}}));
}

TEST(TableFormat, SignsWithinBraces_EndNothing)
{
    using Rows = std::vector<std::vector<std::string>>;
    EXPECT_EQ(SplitRows("{\\rtf1{\\fonttbl{\\f0 Arial;}}a|b}|c;"),
              (Rows{{"{\\rtf1{\\fonttbl{\\f0 Arial;}}a|b}", "c"}}));
    EXPECT_EQ(SplitRows("C:\\burn {old|x;y;"), (Rows{{"C:\\burn {old", "x"}, {"y"}}));
    EXPECT_EQ(SplitRows("{a \\} ; b}|c;"), (Rows{{"{a \\} ; b}", "c"}}));
}

TEST(PrintTables, Table_HasTheWidthsToldNeitherScaledNorClipped)
{
    OpenControl control;
    control.SetMarginRight(2160);
    control.Table("7800|>2100|^800;left|right|mid;");
    const Document& document = Ended(control);
    EXPECT_EQ(At(document, "left").x, 720.0 + cellInset);
    const PlacedText right = At(document, "right");
    EXPECT_EQ(RightEdge(right), 720 + 9900 - 60);
    const PlacedText mid = At(document, "mid");
    EXPECT_EQ(Middle(mid), 720 + 9900 + 400);
}

TEST(PrintTables, CellsAsAList_TakeBarsAndSemicolonsAsCharacters)
{
    OpenControl control;
    control.Table("3000|3000;", {{Plain("a|b; {c"), Plain("d")}});
    EXPECT_EQ(TextsOf(Ended(control).pages[0]), (std::vector<std::string>{"a|b; {c", "d"}));
}

TEST(PrintTables, Rows_AdvanceByTheirHighestCell)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.Table("2000|2000;one|two\r\nlines\r\nmore;next|row;");
    EXPECT_EQ(control.CurrentY(), top + 4 * line10);
    EXPECT_EQ(At(Ended(control), "next").y, top + 3 * line10 + base10);
}

TEST(PrintTables, TableBorder2_RulesTheTopOfEachRow)
{
    OpenControl control;
    control.SetTableBorder(2);
    const double top = control.CurrentY();
    control.Table("2000|2000;a|b;");
    const std::vector<PlacedLine> lines = Ended(control).pages[0].ink.lines;
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], (PlacedLine{720, top, 4720, top, 10, 0}));
}

TEST(PrintTables, TableBorder0_RulesNothing)
{
    OpenControl control;
    control.Table("2000|2000;a|b;");
    EXPECT_TRUE(Ended(control).pages[0].ink.lines.empty());
}

TEST(PrintTables, TableBorder7_RulesAllEdges)
{
    OpenControl control;
    control.SetTableBorder(7);
    control.Table("2000|2000;a|b;c|d;");
    const Document& document = Ended(control);
    EXPECT_EQ(Rules(document.pages[0], false).size(), 3u);
    EXPECT_EQ(Rules(document.pages[0], true).size(), 6u);
}

TEST(PrintTables, ExclamationMark_RulesTheRightEdgeOfItsColumnOverTheWholeRow)
{
    OpenControl control;
    control.SetSpaceBefore(50);
    const double top = control.CurrentY();
    control.Table("2880!|>1800!|>1800;Total|1|2;");
    const std::vector<PlacedLine> rules = Rules(Ended(control).pages[0], true);
    ASSERT_EQ(rules.size(), 2u);
    EXPECT_EQ(rules[0], (PlacedLine{3600, top, 3600, top + 50 + line10, 10, 0}));
    EXPECT_EQ(rules[1].x1, 5400.0);
}

TEST(PrintTables, SpaceBeforeAndAfter_StandAroundARow)
{
    OpenControl control;
    control.SetSpaceBefore(120);
    control.SetSpaceAfter(60);
    control.SetTableBorder(2);
    const double top = control.CurrentY();
    control.Table("2000;a;");
    EXPECT_EQ(control.CurrentY(), top + 120 + line10 + 60);
    EXPECT_EQ(Ended(control).pages[0].ink.lines[0].y1, top + 120);
}

TEST(PrintTables, NothingIsLaidOutBeforeEndTable)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.StartTable();
    control.AddTable("2000;", "head;", "body;");
    control.SetTableCell(tcText, 1, 1, "told");
    EXPECT_EQ(control.CurrentY(), top);
    control.EndTable();
    EXPECT_EQ(control.CurrentY(), top + 2 * line10);
    EXPECT_EQ(Letters(Ended(control)), "headtold");
}

TEST(PrintTables, Settings_AreReadAsTheyWereSet)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("2000|>2000;", "head|;");
    control.SetTableCell(tcRows, 5);
    control.SetTableCell(tcAlign, 0, 1, 0, 2, 6);
    control.SetTableCell(tcRowHeight, 1, 1, 3, 480);
    control.SetTableCell(tcFontBold, 2, 2, true);
    EXPECT_EQ(control.TableCell(tcRows).Number(), 5.0);
    EXPECT_EQ(control.TableCell(tcAlign, 0, 2).Number(), 6.0);
    EXPECT_EQ(control.TableCell(tcAlign, 1, 2).Number(), 2.0);
    EXPECT_EQ(control.TableCell(tcRowHeight, 3).Number(), 480.0);
    EXPECT_EQ(control.TableCell(tcRowHeight, 4).Number(), 0.0);
    EXPECT_TRUE(control.TableCell(tcFontBold, 2, 2).IsTrue());
    EXPECT_TRUE(control.TableCell(tcRowIsHeader, 0).IsTrue());
    EXPECT_EQ(control.TableCell(tcAlign, 6, 1).Number(), 0.0);
    EXPECT_EQ(control.TableCell(tcAlign, 1, 3).Number(), 0.0);
}

TEST(PrintTables, SettingsOutsideOfTheTable_ArePassedOver)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("2000;", "head;");
    control.SetTableCell(tcText, 5, 1, "x");
    control.SetTableCell(tcText, 0, 9, "x");
    control.SetTableCell(tcRowKeepWithNext, 0, 1, 40, true);
    control.SetTableCell(tcRows, -3);
    control.EndTable();
    EXPECT_EQ(Letters(Ended(control)), "head");
}

TEST(PrintTables, SpanWiderThanTheTable_IsCutToIt)
{
    OpenControl control;
    control.SetTableBorder(7);
    control.StartTable();
    control.AddTable("1000|1000|1000;", "wide||;");
    control.SetTableCell(tcColSpan, 0, 1, 12);
    control.EndTable();
    const Document& document = Ended(control);
    EXPECT_EQ(Rules(document.pages[0], true).size(), 2u);
    EXPECT_EQ(Rules(document.pages[0], false)[0].x2, 3720.0);
}

TEST(PrintTables, SpannedCells_DoNotShow)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("1000|1000|1000;", "a|b|c;");
    control.SetTableCell(tcColSpan, 0, 1, 2);
    control.EndTable();
    EXPECT_EQ(Letters(Ended(control)), "ac");
}

TEST(PrintTables, CellSettings_ChangeFontAndAlignment)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("4000|4000;", "title|other;");
    control.SetTableCell(tcFontSize, 0, 1, 14);
    control.SetTableCell(tcFontBold, 0, 1, true);
    control.SetTableCell(tcAlign, 0, 1, 7);
    control.EndTable();
    const Document& document = Ended(control);
    EXPECT_EQ(LookOf(document, "title").halfPoints, 28);
    EXPECT_TRUE(LookOf(document, "title").bold);
    EXPECT_EQ(Middle(At(document, "title")), 2720);
    EXPECT_EQ(LookOf(document, "other").halfPoints, 20);
    EXPECT_FALSE(LookOf(document, "other").bold);
}

TEST(PrintTables, RowHeight_IsTheLeastAndAlignmentPlacesTextInIt)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.StartTable();
    control.AddTable("2000|2000|2000;", "t|m|b;");
    control.SetTableCell(tcRowHeight, 0, 1000 + line10);
    control.SetTableCell(tcAlign, 0, 2, 4);
    control.SetTableCell(tcAlign, 0, 3, 7);
    control.EndTable();
    EXPECT_EQ(control.CurrentY(), top + 1000 + line10);
    const Document& document = Ended(control);
    EXPECT_EQ(At(document, "t").y, top + base10);
    EXPECT_EQ(At(document, "m").y, top + 500 + base10);
    EXPECT_EQ(At(document, "b").y, top + 1000 + base10);
}

TEST(PrintTables, RowSpacing_IsExtraSpaceAboveTheText)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.StartTable();
    control.AddTable("2000;", "a;");
    control.SetTableCell(tcRowSpacing, 0, 60);
    control.EndTable();
    EXPECT_EQ(control.CurrentY(), top + 60 + line10);
    EXPECT_EQ(At(Ended(control), "a").y, top + 60 + base10);
}

TEST(PrintTables, RowBorders_RuleAboveAndBelow)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("2000|1000;", "a|b;");
    control.SetTableCell(tcRowBorderAbove, 0, 7);
    control.SetTableCell(tcRowBorderBelow, 0, 7);
    control.EndTable();
    const std::vector<PlacedLine> lines = Ended(control).pages[0].ink.lines;
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].x1, 720.0);
    EXPECT_EQ(lines[0].x2, 3720.0);
    EXPECT_LT(lines[0].y1, lines[1].y1);
}

TEST(PrintTables, VerticalCell_ReadsUpwardFromTheBottom)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.StartTable();
    control.AddTable("420|1000;", " National Preparedness Level|x;");
    control.SetTableCell(tcVertical, 0, 1, true);
    control.SetTableCell(tcAlign, 0, 1, 6);
    control.SetTableCell(tcRowHeight, 0, 3900);
    control.EndTable();
    const PlacedText text = At(Ended(control), " National");
    EXPECT_TRUE(text.upward);
    EXPECT_EQ(text.y, top + 3900 - cellInset);
    EXPECT_GT(text.x, 720.0);
    EXPECT_LT(text.x, 720.0 + 420.0);
    EXPECT_EQ(control.CurrentY(), top + 3900);
}

TEST(PrintTables, VerticalCellWithoutAHeight_MakesTheRowAsHighAsItsText)
{
    OpenControl control;
    const double top = control.CurrentY();
    control.StartTable();
    control.AddTable("420;", "National;");
    control.SetTableCell(tcVertical, 0, 1, true);
    control.EndTable();
    EXPECT_EQ(control.CurrentY(), top + At(Ended(control), "National").width + 2 * cellInset);
}

TEST(PrintTables, HeaderRow_IsRepeatedOnEachPage)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("3000;", "head;", Repeated("row;", 150));
    control.EndTable();
    const Document& document = Ended(control);
    ASSERT_EQ(document.pages.size(), 3u);
    for (const Page& page : document.pages)
        EXPECT_EQ(TextsOf(page).front(), "head");
    EXPECT_EQ(Letters(document).size(), 150u * 3 + 3 * 4);
}

TEST(PrintTables, HeaderRowSetNotToBeOne_IsNotRepeated)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("3000;", "head;", Repeated("row;", 100));
    control.SetTableCell(tcRowIsHeader, 0, 0);
    control.EndTable();
    EXPECT_EQ(TextsOf(Ended(control).pages[1]).front(), "row");
}

TEST(PrintTables, HeaderRowWithinTheTable_IsRepeatedForItsOwnRowsOnly)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("3000;", "title;");
    control.SetTableCell(tcRows, 100);
    for (Long row = 1; row <= 100; ++row)
        control.SetTableCell(
            tcText, row, 1, row % 49 == 2 ? "issue " + std::to_string(row) : "row " + std::to_string(row));
    control.SetTableCell(tcRowIsHeader, 2, 1);
    control.SetTableCell(tcRowIsHeader, 51, 1);
    control.EndTable();
    const std::vector<std::string> second = TextsOf(Ended(control).pages[1]);
    EXPECT_EQ(second[0], "title");
    EXPECT_EQ(second[1], "issue 51");
    EXPECT_EQ(second[2].substr(0, 3), "row");
}

TEST(PrintTables, RowsKeptTogether_MoveToTheNextPageAsOne)
{
    OpenControl control;
    control.SetCurrentY(14000);
    control.StartTable();
    control.AddTable("3000;", "head;", Repeated("row;", 9));
    control.SetTableCell(tcRowKeepWithNext, 0, 1, 9, true);
    control.EndTable();
    const Document& document = Ended(control);
    EXPECT_TRUE(TextsOf(document.pages[0]).empty());
    EXPECT_EQ(TextsOf(document.pages[1]).size(), 10u);
}

TEST(PrintTables, RowsNotKeptTogether_AreBrokenBetween)
{
    OpenControl control;
    control.SetCurrentY(14000);
    control.Table("3000;" + Repeated("row;", 10));
    const Document& document = Ended(control);
    EXPECT_EQ(TextsOf(document.pages[0]).size(), 5u);
    EXPECT_EQ(TextsOf(document.pages[1]).size(), 5u);
}

TEST(PrintTables, RowThatFitsAPage_IsNotBroken)
{
    OpenControl control;
    control.SetCurrentY(10000);
    control.Table("3000;", {{Plain(Repeated("line\r\n", 40))}});
    const Document& document = Ended(control);
    ASSERT_EQ(document.pages.size(), 2u);
    EXPECT_EQ(TextsOf(document.pages[1]).size(), 40u);
}

TEST(PrintTables, RowHigherThanAPage_GoesOnOverPagesAndLosesNothing)
{
    for (const bool longText : {true, false}) {
        OpenControl control;
        std::string text;
        for (int i = 1000; i < 1300; ++i)
            text += "line" + std::to_string(i) + "\r\n";
        control.StartTable();
        control.AddTable("3000|3000;", PrintCells{"head", ""});
        control.SetTableCell(tcRows, 2);
        control.SetTableCell(tcRowLongText, 1, longText);
        control.SetTableCell(tcText, 1, 1, Plain(text));
        control.SetTableCell(tcText, 1, 2, "beside");
        control.SetTableCell(tcText, 2, 1, "behind");
        control.EndTable();
        const Document& document = Ended(control);
        EXPECT_EQ(document.pages.size(), 6u);
        for (int i = 1000; i < 1300; ++i)
            EXPECT_TRUE(Find(document, "line" + std::to_string(i))) << i;
        EXPECT_EQ(PageOf(document, "beside"), 0);
        EXPECT_EQ(PageOf(document, "behind"), 5);
        for (const Page& page : document.pages) {
            EXPECT_EQ(TextsOf(page).front(), "head");
            for (const PlacedText& one : page.ink.texts)
                EXPECT_LE(one.y, 15120.0);
        }
    }
}

TEST(PrintTables, WordWiderThanItsCell_IsBrokenAndWhole)
{
    OpenControl control;
    control.Table("600|600;", {{Plain(std::string(60, 'w')), Plain("x")}});
    EXPECT_EQ(Letters(Ended(control)), std::string(60, 'w') + "x");
}

TEST(PrintTables, StoredBodiesInCells_AreRich)
{
    OpenControl control;
    control.Table("4000|4000;" + BodyOf("one \\b two\\b0  | three;") + "|" + BodyOf("{\\fs40 four}") + ";");
    const Document& document = Ended(control);
    EXPECT_EQ(Letters(document), "onetwo|three;four");
    EXPECT_TRUE(LookOf(document, "two").bold);
    EXPECT_EQ(LookOf(document, "four").halfPoints, 40);
}

TEST(PrintTables, LinesOfOneHeight_GiveTheHeaderItsOwnRow)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("5400|5400;", PrintCells{"Vexarium\r\n", ""});
    control.EndTable();
    EXPECT_EQ(control.CurrentY(), 1440 + 2 * line10);
}

TEST(PrintTables, RowsTooHighToStayTogether_LeaveNoHeadAlone)
{
    OpenControl control;
    control.SetCurrentY(14600);
    control.StartTable();
    control.AddTable("3000;", "title;", "head;");
    control.SetTableCell(tcRows, 2);
    control.SetTableCell(tcRowKeepWithNext, 0, 1, 2, true);
    control.SetTableCell(tcText, 2, 1, Plain(Repeated("line\r\n", 100)));
    control.EndTable();
    const Document& document = Ended(control);
    EXPECT_TRUE(TextsOf(document.pages[0]).empty());
    EXPECT_EQ(TextsOf(document.pages[1])[2], "line");
}

TEST(PrintTables, BlankRowsAtTheEndThatDoNotFit_BeginNoPageUnderRepeatedHeads)
{
    OpenControl control;
    control.SetCurrentY(14500);
    control.StartTable();
    control.AddTable("3000;", "head;", "last;");
    control.SetTableCell(tcRows, 4);
    control.EndTable();
    control.Paragraph("behind");
    const Document& document = Ended(control);
    EXPECT_EQ(PageOf(document, "last"), 0);
    ASSERT_EQ(document.pages.size(), 2u); // of the text behind the table
    EXPECT_EQ(TextsOf(document.pages[1]), std::vector<std::string>{"behind"});
    const FlowTable* table = std::get_if<FlowTable>(&document.flow.front().content);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->table.rows.size(), table->rules.size());
    EXPECT_LT(table->table.rows.size(), 5u);
}

TEST(PrintTables, BlankRowsWithRules_AreKept)
{
    OpenControl control;
    control.SetCurrentY(14500);
    control.SetTableBorder(tableBorderAll);
    control.StartTable();
    control.AddTable("3000;", "head;", "last;");
    control.SetTableCell(tcRows, 4);
    control.EndTable();
    EXPECT_EQ(Ended(control).pages.size(), 2u);
}
