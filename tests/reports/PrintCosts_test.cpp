#include "PageCells.h"
#include "ReportTest.h"
#include "model/FireSql.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Errors.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "reports/CostTables.h"
#include "reports/ReportState.h"

#include <algorithm>

namespace {

using firesql::Alternative;
using firesql::kExtremeKey;
using firesql::TargetKey;
using Cells = std::vector<std::string>;

std::string Text(Long value) { return std::to_string(value); }

/// A land unit where every acre costs the same.
std::string Unit(Long key, const std::string& name, const std::string& rate)
{
    return "INSERT INTO FMZList VALUES (" + Text(key) + ", 'U', '" + name +
           "'); INSERT INTO SuppressionPerAcreCost VALUES (" + Text(key) + ", 1, 0, " + rate + ");";
}

std::string Portion(Long outcomeKey, Long unitKey, Long portion)
{
    return "INSERT INTO OutcomeFMZs (OutcomeKey, FMZKey, Portion) VALUES (" + Text(outcomeKey) + ", " +
           Text(unitKey) + ", " + Text(portion) + ");";
}

/// Lines of the resource list, of the template's first type.
std::string Uses(Long outcomeKey, Long count)
{
    std::string sql;
    for (Long line = 1; line <= count; ++line)
        sql += "INSERT INTO SRUses VALUES (NULL, " + Text(outcomeKey) + ", " + Text(line) + ", 1, " +
               Text(1000 + line) + ", " + Text(line % 30 + 1) + ");";
    return sql;
}

std::string Words(const std::string& word, int count)
{
    std::string words;
    for (int i = 1; i <= count; ++i)
        words += word + Text(i) + " ";
    words.pop_back();
    return words;
}

class Costs : public support::ReportTest
{
protected:
    static std::vector<const platform::print::FlowTable*> Tables()
    {
        std::vector<const platform::print::FlowTable*> tables;
        for (const auto& item : Printer().Pages().flow) {
            if (const auto* table = std::get_if<platform::print::FlowTable>(&item.content))
                tables.push_back(table);
        }
        return tables;
    }
    static std::vector<std::size_t> RowCounts()
    {
        std::vector<std::size_t> counts;
        for (const auto* table : Tables())
            counts.push_back(table->table.rows.size());
        return counts;
    }
    static std::vector<Cells> CellsBetween(support::Mark from, const std::vector<Double>& edges)
    {
        std::vector<Cells> cells;
        for (const auto& row : RowsBetween(Printer().Pages(), from, support::lastMark, edges))
            cells.push_back(row.cells);
        return cells;
    }
    /// The rows of the first table of land units on Letter, from its heads on.
    static std::vector<Cells> UnitRows(std::size_t units)
    {
        const Place head = PlaceOf("FMU");
        std::vector<Cells> rows = CellsBetween(
            {head.page, head.y}, {720, 3420, 3960, 4860, 6120, 6660, 7560, 8820, 9360, 10260, 11520});
        rows.resize(units + 1);
        return rows;
    }
    /// The lines below the captions of the only table of resources on Letter.
    static std::vector<Cells> ResourceRows()
    {
        const Place caption = PlacesOf("Target Outcome").back();
        return CellsBetween({caption.page, caption.y + 1.0},
                            {720, 1320, 2760, 3300, 4320, 4920, 6360, 6900, 7920, 8520, 9960, 10500, 11520});
    }
    static std::string BasisOfTarget()
    {
        const Place cost = PlacesOf("Estimated suppression cost: $0").front();
        const auto rows = support::RowsBetween(
            Printer().Pages(), {cost.page, cost.y + 1.0}, support::lastMark, {720, 4320});
        return support::ColumnText(rows, 0);
    }
    static platform::print::PlacedText Placed(const std::string& text)
    {
        for (const auto& page : Printer().Pages().pages) {
            for (const auto& placed : page.ink.texts) {
                if (placed.text == text) return placed;
            }
        }
        ADD_FAILURE() << text;
        return {};
    }
    static Double RightEnd(const std::string& text) { return Placed(text).x + Placed(text).width; }
    /// To the twip.
    static Long Middle(const std::string& text)
    {
        return platform::ToLong(Placed(text).x + Placed(text).width / 2.0);
    }
    /// The words of the report in the order of the lines, for what is parted over lines.
    static std::string AllText()
    {
        std::string all;
        for (const std::string& line : Lines())
            all += line + " ";
        return all;
    }
};

TEST_F(Costs, NoAlternatives_HeadingAlone)
{
    OpenNew();
    Produce({7});
    EXPECT_EQ(PageCount(), 1);
    EXPECT_EQ(LinesOfPage(1).front(), "VEXA No. Page ___");
    EXPECT_EQ(LinesOfPage(1).back(), "Estimated Suppression Costs");
    EXPECT_EQ(CountLog("PrintCosts"), 1);
}

// Which tables

TEST_F(Costs, NoLandUnitOrOne_ResourceTableCarriesTheTitle)
{
    for (const std::string& units : std::vector<std::string>{"", Unit(1, "North", "10")}) {
        OpenNew(Alternative(1) + units);
        Produce({7});
        EXPECT_EQ(RowCounts(), (std::vector<std::size_t>{4})) << units;
        PlaceOf("Alternative A. Name A");
        EXPECT_TRUE(PlacesOf("FMU").empty());
        EXPECT_FALSE(ReportUtilities::State().bCostByFMU);
    }
}

TEST_F(Costs, TwoLandUnits_UnitTableCarriesTheTitleAndTheRowOfTheOtherTitleIsEmpty)
{
    OpenNew(Alternative(1) + Unit(1, "North", "10") + Unit(2, "South", "20"));
    Produce({7});
    EXPECT_EQ(RowCounts(), (std::vector<std::size_t>{5, 4}));
    EXPECT_TRUE(ReportUtilities::State().bCostByFMU);
    const Place title = PlaceOf("Alternative A. Name A");
    EXPECT_LT(title.y, PlaceOf("FMU").y);
    EXPECT_EQ(PlacesOf("Target Outcome").size(), 2u);
    // The empty row stands there all the same, between its rules: below the units, above the captions.
    std::vector<Double> rules;
    for (const auto& line : Printer().Pages().pages.front().ink.lines) {
        const bool isWhole = line.y1 == line.y2 && line.x1 == 720.0 && line.x2 == 11520.0;
        if (isWhole && line.y1 > PlaceOf("South").y) rules.push_back(line.y1);
    }
    rules.erase(std::unique(rules.begin(), rules.end()), rules.end());
    ASSERT_GE(rules.size(), 2u);
    EXPECT_GT(rules.back() - rules.front(), 200.0);
    EXPECT_LT(rules.back(), PlacesOf("Target Outcome").back().y);
}

TEST_F(Costs, FileOfOneLandUnitBehindOneOfTwo_KeepsTheUnitTableAndTheEmptyTitle)
{
    OpenNew(Alternative(1) + Unit(1, "North", "10") + Unit(2, "South", "20"));
    Produce({7});
    Open(MakeFile(Alternative(1) + Unit(4, "Alone", "30"), "Other.qel"));
    Produce({7});
    EXPECT_EQ(RowCounts(), (std::vector<std::size_t>{4, 4}));
    PlaceOf("Alternative A. Name A");
    EXPECT_EQ(UnitRows(1)[1], (Cells{"Alone", "100", "30", "0", "", "", "", "100", "30", "0"}));
    Open(MakeFile(Alternative(1), "None.qel")); // nor does a file of none end it
    Produce({7});
    EXPECT_EQ(RowCounts(), (std::vector<std::size_t>{3, 4}));
    ReportUtilities::EndReports();
    Produce({7});
    EXPECT_EQ(RowCounts(), (std::vector<std::size_t>{4}));
}

TEST_F(Costs, ResourcesUsed_StaysTrueInTheSession)
{
    OpenNew(Alternative(1));
    Produce({7});
    EXPECT_FALSE(ReportUtilities::State().bResourcesUsed);
    Open(MakeFile(Alternative(1) + Uses(kExtremeKey, 1), "Other.qel"));
    Produce({7});
    EXPECT_TRUE(ReportUtilities::State().bResourcesUsed);
    Open(MakeFile(Alternative(1), "None.qel"));
    Produce({7});
    EXPECT_TRUE(ReportUtilities::State().bResourcesUsed);
}

// Columns and rows

TEST_F(Costs, UnitTable_ColumnsStandToTheTwipInAllRules)
{
    OpenNew(Alternative(1, "FireSize = 7") + Unit(1, "North", "10.5") + Unit(2, "South", "20") +
            Portion(TargetKey(1), 1, 3) + Portion(TargetKey(1), 2, 1));
    Produce({7});
    EXPECT_EQ(Placed("North").x, 780.0);
    EXPECT_EQ(RightEnd("55"), 6060.0); // 10.5 x 75 x 7 / 100 = 55.125
    EXPECT_EQ(Middle("75"), 3690);
    EXPECT_EQ(Middle("FMU"), 2070);
    EXPECT_EQ(Placed("Target Outcome").y, Placed("Extreme Outcome").y);
    std::vector<std::string> uprights;
    const Double y = Placed("South").y;
    for (const auto& line : Printer().Pages().pages.front().ink.lines) {
        if (line.x1 == line.x2 && line.y1 < y && line.y2 > y) uprights.push_back(platform::TextOf(line.x1));
    }
    std::sort(uprights.begin(), uprights.end());
    uprights.erase(std::unique(uprights.begin(), uprights.end()), uprights.end());
    EXPECT_EQ(
        uprights,
        (Cells{"10260", "11520", "3420", "3960", "4860", "6120", "6660", "720", "7560", "8820", "9360"}));
}

TEST_F(Costs, UnitTitle_TwelveColumnsAreCutToTheTablesTen)
{
    OpenNew(Alternative(1) + Unit(1, "North", "10") + Unit(2, "South", "20"));
    Produce({7});
    const auto& rows = Tables().front()->table.rows;
    ASSERT_EQ(rows[0].cells.size(), 1u);
    EXPECT_EQ(rows[0].cells[0].width, 10800);
    EXPECT_EQ(Middle("Alternative A. Name A"), 6120);
}

TEST_F(Costs, UnitTable_OnA4TakesAQuarterToTheEvenTwip)
{
    OpenNew(Alternative(1) + Unit(1, "North", "10") + Unit(2, "South", "20"));
    UseA4();
    Produce({7});
    std::vector<Long> widths;
    for (const auto& cell : Tables().front()->table.rows[2].cells)
        widths.push_back(cell.width);
    // 10466 / 4 = 2616.5
    EXPECT_EQ(widths, (std::vector<Long>{2616, 540, 900, 1176, 540, 900, 1176, 540, 900, 1176}));
}

TEST_F(Costs, ResourceTable_ColumnsStandToTheTwip)
{
    OpenNew(Alternative(1) + Uses(TargetKey(1), 1) + Uses(kExtremeKey, 3));
    Produce({7});
    EXPECT_EQ(Placed("Target Outcome").x, 780.0);
    EXPECT_EQ(RightEnd("1001"), 1260.0);
    EXPECT_EQ(Placed("Crew T1").x, 1380.0);
    EXPECT_EQ(RightEnd("2"), 3240.0);
    EXPECT_EQ(Placed("days").x, 3360.0);
    EXPECT_EQ(Placed("Extreme Outcome").x, 7980.0);
    EXPECT_EQ(RightEnd("1003"), 8460.0);
    EXPECT_EQ(RightEnd("4"), 10440.0);
    EXPECT_EQ(PlacesOf("days").back().x, 10560.0);
    EXPECT_EQ(PlacesOf("Estimated suppression cost: $0").front().x, 780.0);
    EXPECT_EQ(PlacesOf("Estimated suppression cost: $0").back().x, 7980.0);
}

TEST_F(Costs, ResourceTable_OnA4TakesAThird)
{
    OpenNew(Alternative(1) + Uses(TargetKey(1), 1));
    UseA4();
    Produce({7});
    std::vector<Long> widths;
    for (const auto& cell : Tables().front()->table.rows[2].cells)
        widths.push_back(cell.width);
    // 10466 / 3 = 3488.67
    EXPECT_EQ(widths, (std::vector<Long>{600, 1440, 540, 909, 600, 1440, 540, 909, 600, 1440, 540, 909}));
}

TEST_F(Costs, ResourceTable_HasRulesAtItsTitleAlone)
{
    OpenNew(Alternative(1) + Uses(TargetKey(1), 2));
    Produce({7});
    const auto lines = DrawnLines(1);
    ASSERT_EQ(lines.size(), 3u); // the last is that of the running header
    for (const std::size_t line : {0u, 1u})
        EXPECT_TRUE(lines[line].starts_with("720 ")) << lines[line];
    EXPECT_EQ(Printer().TableBorder(), 0); // it is left in force
}

TEST_F(Costs, Fonts_AreThoseOfTitleCaptionsRowsAndCosts)
{
    OpenNew(Alternative(1) + Uses(TargetKey(1), 1) + Unit(1, "North", "10") + Unit(2, "South", "20"));
    const auto& document = Produce({7});
    const auto look = [&](const std::string& text) {
        const auto& format = document.looks.at(static_cast<std::size_t>(Placed(text).look));
        return platform::TextOf(format.halfPoints) + (format.bold ? " bold" : "");
    };
    EXPECT_EQ(look("Alternative A. Name A"), "22 bold");
    EXPECT_EQ(look("Target Outcome"), "16 bold");
    EXPECT_EQ(look("FMU"), "16");
    EXPECT_EQ(look("North"), "16");
    EXPECT_EQ(look("Crew T1"), "16");
    EXPECT_EQ(look("Estimated suppression cost: $0"), "18");
    EXPECT_EQ(look("Basis for cost estimate:"), "18");
    EXPECT_EQ(Printer().FontSize(), 10.0F); // the format is given back
    EXPECT_FALSE(Printer().FontBold());
}

TEST_F(Costs, NoResourceUses_CaptionsCostAndBasisMakeThreeRows)
{
    OpenNew(Alternative(1));
    Produce({7});
    EXPECT_EQ(RowCounts(), (std::vector<std::size_t>{4})); // and the title
    EXPECT_EQ(
        ResourceRows(),
        (std::vector<Cells>{
            {"Estimated suppression cost: $0",
             "",
             "",
             "",
             "",
             "",
             "",
             "",
             "Estimated suppression cost: $0",
             "",
             "",
             ""},
            {"Basis for cost estimate:", "", "", "", "", "", "", "", "Basis for cost estimate:", "", "", ""},
            {"Historic average cost per acre",
             "",
             "",
             "",
             "",
             "",
             "",
             "",
             "Historic average cost per acre",
             "",
             "",
             ""}}));
}

TEST_F(Costs, CostRow_HasSixtyAboveItAndNoOtherRowHas)
{
    OpenNew(Alternative(1) + Uses(TargetKey(1), 2));
    Produce({7});
    std::vector<Double> spacings;
    for (const auto& rules : Tables().front()->rules)
        spacings.push_back(rules.spacing);
    EXPECT_EQ(spacings, (std::vector<Double>{0, 0, 0, 0, 60, 0}));
}

TEST_F(Costs, RowsOfBothTables_AreKeptTogether)
{
    OpenNew(Alternative(1) + Uses(TargetKey(1), 1) + Unit(1, "North", "10") + Unit(2, "South", "20"));
    Produce({7});
    for (const auto* table : Tables()) {
        // That of the land units has the mark on its last row too.
        const bool isUnits = table == Tables().front();
        for (std::size_t row = 0; row < table->rules.size(); ++row)
            EXPECT_EQ(table->rules[row].keepWithNext, isUnits || row + 1 < table->rules.size()) << row;
    }
}

TEST_F(Costs, TableThatDoesNotFit_GoesToTheNextPageWhole)
{
    OpenNew(Alternative(1) + Alternative(2) + Uses(TargetKey(1), 40) + Uses(TargetKey(2), 30));
    Produce({7});
    EXPECT_EQ(PageCount(), 2);
    EXPECT_EQ(PlaceOf("Alternative A. Name A").page, 1);
    EXPECT_EQ(PlaceOf("Alternative B. Name B").page, 2);
    std::vector<Long> lines(3);
    for (const Place& place : PlacesOf("Crew T1"))
        ++lines.at(static_cast<std::size_t>(place.page));
    EXPECT_EQ(lines, (std::vector<Long>{0, 40, 30}));
}

// Outcomes

TEST_F(Costs, FallbackShown_StandsInTheMiddle)
{
    OpenNew(Alternative(1, "FireSize = 100", "Success = 30, FireSize = 200") +
            Uses(firesql::FallbackKey(1), 1) + Unit(1, "North", "10") + Unit(2, "South", "20"));
    Produce({7});
    EXPECT_EQ(
        UnitRows(2),
        (std::vector<Cells>{{"FMU", "%", "$/acre", "Cost", "%", "$/acre", "Cost", "%", "$/acre", "Cost"},
                            {"North", "50", "10", "500", "50", "10", "1000", "50", "10", "0"},
                            {"South", "50", "20", "1000", "50", "20", "2000", "50", "20", "0"}}));
    EXPECT_EQ(PlacesOf("Fallback Outcome").size(), 2u);
    EXPECT_EQ(ResourceRows().front(),
              (Cells{"", "", "", "", "1001", "Crew T1", "2", "days", "", "", "", ""}));
}

TEST_F(Costs, FallbackNotShown_ItsColumnsStayEmpty)
{
    OpenNew(Alternative(1, "FireSize = 100", "FireSize = 200") + Unit(1, "North", "10") +
            Unit(2, "South", "20"));
    Produce({7});
    EXPECT_EQ(UnitRows(1),
              (std::vector<Cells>{{"FMU", "%", "$/acre", "Cost", "", "", "", "%", "$/acre", "Cost"},
                                  {"North", "50", "10", "500", "", "", "", "50", "10", "0"}}));
    EXPECT_TRUE(PlacesOf("Fallback Outcome").empty());
    EXPECT_EQ(PlacesOf("Basis for cost estimate:").size(), 2u);
}

TEST_F(Costs, LinesOfAFallbackNotShown_LeaveAsManyRowsEmpty)
{
    OpenNew(Alternative(1) + Uses(firesql::FallbackKey(1), 5) + Uses(TargetKey(1), 2));
    EXPECT_EQ(CostTables::MaxSRUses(*g51Alternatives::Alternative(1)), 5);
    Produce({7});
    EXPECT_EQ(RowCounts(), (std::vector<std::size_t>{9}));
    EXPECT_EQ(PlacesOf("Crew T1").size(), 2u);
}

TEST_F(Costs, MaxSRUses_IsTheGreatestOfTheThree)
{
    for (const Long outcome : {TargetKey(1), firesql::FallbackKey(1), kExtremeKey}) {
        OpenNew(Alternative(1) + Uses(outcome, 3));
        EXPECT_EQ(CostTables::MaxSRUses(*g51Alternatives::Alternative(1)), 3) << outcome;
    }
}

// Figures by land unit

TEST_F(Costs, Percent_IsThatOfTheUnitsPlaceWhateverItsKey)
{
    OpenNew(Alternative(1, "FireSize = 100") + Unit(7, "North", "10") + Unit(9, "South", "20") +
            Unit(40, "West", "0.1") + Portion(TargetKey(1), 7, 1) + Portion(TargetKey(1), 9, 2) +
            Portion(TargetKey(1), 40, 5));
    Produce({7});
    const auto rows = UnitRows(3);
    EXPECT_EQ(Cells(rows[1].begin(), rows[1].begin() + 4), (Cells{"North", "12", "10", "120"}));
    EXPECT_EQ(Cells(rows[2].begin(), rows[2].begin() + 4), (Cells{"South", "25", "20", "500"}));
    EXPECT_EQ(Cells(rows[3].begin(), rows[3].begin() + 4), (Cells{"West", "62", "0.1", "6"}));
}

TEST_F(Costs, Rate_IsThatOfTheWholeFiresSize)
{
    OpenNew(Alternative(1, "FireSize = 1000") + Unit(1, "North", "0") + Unit(2, "South", "0") +
            "UPDATE SuppressionPerAcreCost SET TopSize = 600, Cost = 10 WHERE FMZKey = 1;"
            "INSERT INTO SuppressionPerAcreCost VALUES (1, 2, 0, 4);" +
            Portion(TargetKey(1), 1, 1) + Portion(TargetKey(1), 2, 1));
    Produce({7});
    const Cells row = UnitRows(1)[1];
    EXPECT_EQ(Cells(row.begin(), row.begin() + 4), (Cells{"North", "50", "4", "2000"}));
}

TEST_F(Costs, Cost_IsCountedInDoubleFromTheSizesText)
{
    // As a single the size is 0.100000001490116, and the cost would end in 1.
    OpenNew(Alternative(1, "FireSize = 0.1") + Unit(1, "North", "1000000000") + Unit(2, "South", "0") +
            Portion(TargetKey(1), 1, 1));
    Produce({7});
    EXPECT_EQ(UnitRows(1)[1][3], "100000000");
    // No single holds 33 percent of this.
    OpenNew(Alternative(1, "FireSize = 16777215") + Unit(1, "North", "1") + Unit(2, "South", "0") +
            Portion(TargetKey(1), 1, 33) + Portion(TargetKey(1), 2, 67));
    Produce({7});
    EXPECT_EQ(UnitRows(1)[1][3], "5536481"); // 5536480.95
    OpenNew(Alternative(1, "FireSize = 16777213") + Unit(1, "North", "123") + Unit(2, "South", "0") +
            Portion(TargetKey(1), 1, 1));
    Produce({7});
    EXPECT_EQ(UnitRows(1)[1][3], "2063597199");
}

TEST_F(Costs, Cost_RoundsHalvesAwayFromZero)
{
    OpenNew(Alternative(1, "FireSize = 1") + Unit(1, "North", "1") + Unit(2, "South", "5"));
    Produce({7});
    EXPECT_EQ(UnitRows(2)[1][3], "1"); // 0.5
    EXPECT_EQ(UnitRows(2)[2][3], "3"); // 2.5
}

TEST_F(Costs, FireSizesOfOddText_CountAsTheModelReadsThem)
{
    for (const char* stored : {"''", "'1,500'", "'abc'", "NULL", "'12.5'", "-4"}) {
        OpenNew(Alternative(1, std::string("FireSize = ") + stored) + Unit(1, "North", "2") +
                Unit(2, "South", "0") + Portion(TargetKey(1), 1, 1));
        const auto target = g51Alternatives::Alternative(1)->Outcome(1);
        const std::string cost = platform::Format(2.0 * platform::NumberOf(target->FireSize()), "0");
        Produce({7});
        EXPECT_EQ(UnitRows(1)[1][3], cost) << stored;
    }
}

TEST_F(Costs, FireSizesTyped_CountAsTheModelTakesThem)
{
    OpenNew(Alternative(1) + Unit(1, "North", "2") + Unit(2, "South", "0") + Portion(TargetKey(1), 1, 1));
    const auto target = g51Alternatives::Alternative(1)->Outcome(1);
    target->SetFireSize("1,500");
    Produce({7});
    EXPECT_EQ(UnitRows(1)[1][3], "3000");
    EXPECT_THROW(target->SetFireSize(""), platform::TypeMismatch);
    Produce({7});
    EXPECT_EQ(UnitRows(1)[1][3], "3000");
}

// Costs and their basis

TEST_F(Costs, BasisByCostSource_HasItsWords)
{
    const std::vector<std::pair<std::string, std::string>> cases{
        {"0", "Basis for cost estimate: Historic average cost per acre"}, // reads as 1
        {"1", "Basis for cost estimate: Historic average cost per acre"},
        {"2", "Basis for cost estimate: Estimated suppression resources needed"},
        {"4", "Basis for cost estimate: Daily expense rate"},
        {"8", "Basis for cost estimate: As we know it"},
        {"3", ""},
        {"16", ""},
        {"-1", ""},
    };
    for (const auto& [source, words] : cases) {
        OpenNew(Alternative(1, "CostRationale = 'As we know it', CostSource = " + source));
        Produce({7});
        EXPECT_EQ(BasisOfTarget(), words) << source;
    }
}

TEST_F(Costs, Cost_IsTheEstimateOfEachOutcome)
{
    OpenNew(Alternative(1,
                        "CostSource = 8, AdjustedCost = 1234567.5",
                        "Success = 10, CostSource = 4, ContainTime = 3, DailyContainCost = 1000, "
                        "ControlTime = 10, DailyControlCost = 500") +
            firesql::SetOutcome(kExtremeKey, "CostSource = 8, AdjustedCost = -20"));
    Produce({7});
    EXPECT_EQ(ResourceRows().front(),
              (Cells{"Estimated suppression cost: $1,234,568",
                     "",
                     "",
                     "",
                     "Estimated suppression cost: $6,500",
                     "",
                     "",
                     "",
                     "Estimated suppression cost: -$20",
                     "",
                     "",
                     ""}));
}

TEST_F(Costs, CostRationale_IsRichOnlyWhereItBeginsSo)
{
    OpenNew(Alternative(1, "CostSource = 8, CostRationale = '{\\b a|b;} \\par'"));
    Produce({7});
    PlaceOf("{\\b a|b;} \\par");
    OpenNew(Alternative(1, "CostSource = 8, CostRationale = '{\\rtf1 rich {\\b words}\\par }'"));
    Produce({7});
    EXPECT_TRUE(HasLine("rich words Historic average cost per acre"));
}

TEST_F(Costs, MarksInNames_AreCharacters)
{
    OpenNew(Alternative(1) + Uses(TargetKey(1), 1) + Unit(1, "a|b; {\\b c}", "1") + Unit(2, "South", "2") +
            "UPDATE SRTypes SET ShortName = 'x|y;', UnitName = '{\\i z}' WHERE ItemKey = 1;"
            "UPDATE Items SET Heading = '{\\b x} a|b;' WHERE ItemKey = 1;");
    Produce({7});
    PlaceOf("a|b; {\\b c}");
    PlaceOf("Alternative A. {\\b x} a|b;");
    EXPECT_EQ(ResourceRows().front(),
              (Cells{"1001", "x|y;", "2", "{\\i z}", "", "", "", "", "", "", "", ""}));
}

// Much of everything

TEST_F(Costs, FortyAlternatives_AllHaveTheirTables)
{
    std::string sql;
    for (Long key = 1; key <= 40; ++key) {
        sql += "INSERT INTO Items VALUES (" + Text(1000 + key) + ", 'A" + Text(key) +
               "', 'Name', '', NULL, 26, " + Text(key) + ");";
        for (const Long index : {1, 2}) {
            sql += "INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex, Success, CostSource, AdjustedCost) "
                   "VALUES (" +
                   Text(2000 + 2 * key + index) + ", " + Text(1000 + key) + ", " + Text(index) + ", 50, 8, " +
                   Text(1000 * key + index) + ");";
        }
    }
    OpenNew(sql);
    Produce({7});
    EXPECT_EQ(RowCounts().size(), 40u);
    for (Long key = 1; key <= 40; ++key) {
        const Place title = PlaceOf("Alternative A" + Text(key) + ". Name");
        for (const Long index : {1, 2}) {
            const Place cost = PlaceOf("Estimated suppression cost: " +
                                       platform::Format(Double(1000 * key + index), "$#,0"));
            EXPECT_EQ(cost.page, title.page) << key; // a table is not parted
            EXPECT_GT(cost.y, title.y) << key;
        }
    }
}

TEST_F(Costs, NamesOf300Characters_WrapWithinTheirColumns)
{
    const std::string unit = Words("unit", 45).substr(0, 300), type = Words("type", 45).substr(0, 300);
    OpenNew(Alternative(1) + Uses(TargetKey(1), 1) + Unit(1, unit, "1") +
            Unit(2, std::string(300, 'W'), "2") + "UPDATE SRTypes SET ShortName = '" + type +
            "', UnitName = '" + std::string(300, 'M') + "' WHERE ItemKey = 1; UPDATE Items SET Heading = '" +
            Words("title", 40) + "' WHERE ItemKey = 1;");
    Produce({7});
    const auto column = [](Double left, Double right) {
        const auto rows =
            support::RowsBetween(Printer().Pages(), support::firstMark, support::lastMark, {left, right});
        return support::ColumnText(rows, 0);
    };
    EXPECT_NE(column(720, 3420).find(unit), std::string::npos);
    EXPECT_NE(column(1320, 2760).find(type), std::string::npos);
    Long letters = 0, others = 0;
    for (const auto& page : Printer().Pages().pages) {
        for (const auto& text : page.ink.texts) {
            letters += static_cast<Long>(std::count(text.text.begin(), text.text.end(), 'M'));
            others += static_cast<Long>(std::count(text.text.begin(), text.text.end(), 'W'));
            EXPECT_LE(text.x + text.width, 11520.0) << text.text;
        }
    }
    EXPECT_GE(letters, 300);
    EXPECT_GE(others, 300);
    EXPECT_NE(AllText().find("title40"), std::string::npos);
}

TEST_F(Costs, BasisLongerThanAPage_ComesThroughWhole)
{
    const std::string rationale = Words("because", 2000);
    OpenNew(Alternative(1, "CostSource = 8, CostRationale = '" + rationale + "'") + Alternative(2));
    Produce({7});
    EXPECT_GT(PageCount(), 2);
    const auto rows =
        support::RowsBetween(Printer().Pages(), support::firstMark, support::lastMark, {720, 4320});
    EXPECT_NE(support::ColumnText(rows, 0).find("because1 "), std::string::npos);
    for (const std::string word : {"because1", "because999", "because1500", "because2000"})
        EXPECT_NE((AllText()).find(word + " "), std::string::npos) << word;
    PlaceOf("Alternative B. Name B");
}

TEST_F(Costs, ThreeHundredLines_NoneIsLostThoughAllAreToStayTogether)
{
    OpenNew(Alternative(1) + Uses(TargetKey(1), 300) + Alternative(2));
    Produce({7});
    EXPECT_GT(PageCount(), 3);
    Place last;
    for (Long line = 1; line <= 300; ++line) {
        const Place place = PlaceOf(Text(1000 + line));
        EXPECT_TRUE(place.page > last.page || place.y > last.y) << line;
        EXPECT_LT(place.y, 15120.0);
        last = place;
    }
    // The title stands on each page that the table goes on to.
    const Long pages = last.page - PlacesOf("Alternative A. Name A").front().page + 1;
    EXPECT_EQ(PlacesOf("Alternative A. Name A").size(), static_cast<std::size_t>(pages));
    PlaceOf("Alternative B. Name B");
}

TEST_F(Costs, ThreeHundredLandUnits_NoneIsLost)
{
    std::string units;
    for (Long key = 1; key <= 300; ++key)
        units += Unit(key, "Unit " + Text(key), Text(key));
    OpenNew(Alternative(1, "FireSize = 1000") + units);
    Produce({7});
    for (Long key = 1; key <= 300; ++key)
        PlaceOf("Unit " + Text(key));
    EXPECT_GT(PageCount(), 4);
}

TEST_F(Costs, Export_HasBothTablesAndEveryFigure)
{
    OpenNew(Alternative(1, "FireSize = 100, CostSource = 8, AdjustedCost = 98765") + Uses(TargetKey(1), 2) +
            Unit(1, "North", "13") + Unit(2, "South", "17"));
    Select({7});
    ReportRun::SaveSelectedSections(folder.File("out.rtf"));
    const std::string rtf = support::ReadFile(folder.File("out.rtf"));
    for (const char* text : {"Alternative A. Name A",
                             "North",
                             "13",
                             "650",
                             "17",
                             "850",
                             "1001",
                             "1002",
                             "Estimated suppression cost: $98,765"})
        EXPECT_NE(rtf.find(text), std::string::npos) << text;
    EXPECT_NE(rtf.find("\\cellx"), std::string::npos);
}

} // namespace
