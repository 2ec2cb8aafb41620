#include "ReportTest.h"
#include "model/FireSql.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "platform/richtext/RtfReader.h"
#include "reports/ImpactTable.h"
#include "session/u92Utilities.h"
#include "values/g33FMUs.h"
#include "values/g34NVCResources.h"
#include "values/g36ThreatenedItems.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace {

using Cells = std::vector<std::string>;
using platform::Format;

constexpr Double kLeft = 720.0, kNameWidth = 2880.0, kColumnWidth = 1800.0, kRight = 10800.0;
constexpr Long kExtreme = firesql::kExtremeKey;

Long AlternativeKey(Long place) { return 1000 + place; }
Long TargetKey(Long place) { return 2000 + 2 * place; }
Long FallbackKey(Long place) { return TargetKey(place) + 1; }
Long ItemKey(Long place) { return 3000 + place; }

/// Alternatives "A1. Plan", "A2. Plan" and so on, their Targets sure of half, without a Fallback.
std::string Alternatives(Long count)
{
    std::string sql;
    for (Long place = 1; place <= count; ++place) {
        const std::string key = std::to_string(AlternativeKey(place)), number = std::to_string(place);
        sql += "INSERT INTO Items VALUES (" + key + ", 'A" + number + "', 'Plan', '', NULL, 26, " + number +
               "); INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex, Success, CostSource) VALUES (" +
               std::to_string(TargetKey(place)) + ", " + key + ", 1, 50, 1), (" +
               std::to_string(FallbackKey(place)) + ", " + key + ", 2, -1, 1);";
    }
    return sql;
}

std::string Item(Long place, const std::string& name)
{
    return "INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES (" +
           std::to_string(ItemKey(place)) + ", '" + name + "', 23, " + std::to_string(place) + ");";
}

/// Threatened items "Item 1", "Item 2" and so on.
std::string Items(Long count)
{
    std::string sql;
    for (Long place = 1; place <= count; ++place)
        sql += Item(place, "Item " + std::to_string(place));
    return sql;
}

std::string Loss(Long outcomeKey, Long place, const std::string& dollars)
{
    return "INSERT INTO ItemImpacts VALUES (" + std::to_string(outcomeKey) + ", " +
           std::to_string(ItemKey(place)) + ", " + dollars + ");";
}

/// Dollars an acre that a resource changes by at intensity level 4.
std::string Resource(Long resource, const std::string& dollars)
{
    return "UPDATE NVCPerAcre SET Fil4 = " + dollars +
           " WHERE FMZKey = 0 AND ResourceIndex = " + std::to_string(resource) + ";";
}

std::string Set(Long outcomeKey, const std::string& columns)
{
    return firesql::SetOutcome(outcomeKey, columns);
}

std::string Gains(const std::string& value)
{
    return "INSERT INTO Properties VALUES ('UseNVCGains', '" + value + "');";
}

std::string Repeated(const std::string& text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

class Impacts : public support::ReportTest
{
protected:
    static const platform::print::Page& PageAt(Long page)
    {
        return Printer().Pages().pages.at(static_cast<std::size_t>(page) - 1);
    }
    /// The tops of the banners, in order of drawing, as "page: top".
    static std::vector<std::string> Tops()
    {
        std::vector<std::string> tops;
        for (Long page = 1; page <= PageCount(); ++page) {
            for (const Double top : BannersOf(page))
                tops.push_back(std::to_string(page) + ": " + platform::TextOf(top));
        }
        return tops;
    }
    static std::vector<std::string> TopsFor(Long alternatives, Long perPage)
    {
        std::vector<std::string> tops;
        for (Long i = 0; i < alternatives; ++i)
            tops.push_back(std::to_string(i / perPage + 1) + ": " +
                           std::to_string(2040 + 12000 / perPage * (i % perPage)));
        return tops;
    }
    /// The rows of a table that begins at `top` and ends on its page, its heads first, cell by cell.
    static std::vector<Cells> TableAt(Long page, Double top)
    {
        const std::vector<Double> banners = BannersOf(page);
        const auto next = std::upper_bound(banners.begin(), banners.end(), top);
        std::vector<Double> starts{top + 300.0};
        for (const auto& line : PageAt(page).ink.lines) {
            const bool isInside = line.y1 > top + 300.0 && (next == banners.end() || line.y1 < *next);
            if (line.x1 == kLeft && line.x2 == kRight && isInside) starts.push_back(line.y1);
        }
        std::vector<Cells> rows(starts.size(), Cells(5));
        for (const auto& text : PageAt(page).ink.texts) {
            if (text.y < starts.front() || (next != banners.end() && text.y > *next)) continue;
            const auto row = std::upper_bound(starts.begin(), starts.end(), text.y) - starts.begin() - 1;
            std::string& cell = rows.at(static_cast<std::size_t>(row)).at(ColumnAt(text.x));
            cell += (cell.empty() ? "" : " ") + ReportUtilities::TrimRight(text.text);
        }
        return rows;
    }
    /// That of an alternative that stands alone in the report.
    static std::vector<Cells> OneTable() { return TableAt(1, 2040.0); }
    static const platform::richtext::CharacterFormat& LookOf(const std::string& text)
    {
        for (Long page = 1; page <= PageCount(); ++page) {
            for (const auto& placed : PageAt(page).ink.texts) {
                if (placed.text == text) return Look(placed);
            }
        }
        ADD_FAILURE() << text << " is not there";
        return Printer().Pages().looks.at(0);
    }
    /// The edges of a text in whole twips.
    static std::pair<long, long> EdgesOf(const std::string& text)
    {
        for (const auto& placed : PageAt(1).ink.texts) {
            if (placed.text == text) return {std::lround(placed.x), std::lround(placed.x + placed.width)};
        }
        ADD_FAILURE() << text << " is not there";
        return {};
    }
    /// What is printed over something else: texts that share a place.
    static std::vector<std::string> Overprints()
    {
        std::vector<std::string> found;
        for (Long page = 1; page <= PageCount(); ++page) {
            const auto& texts = PageAt(page).ink.texts;
            for (std::size_t i = 0; i < texts.size(); ++i) {
                for (std::size_t j = i + 1; j < texts.size(); ++j) {
                    constexpr Double closest = 150.0; // baselines
                    const bool isBeside = texts[i].x + texts[i].width <= texts[j].x ||
                                          texts[j].x + texts[j].width <= texts[i].x;
                    if (std::abs(texts[i].y - texts[j].y) < closest && !isBeside)
                        found.push_back(texts[i].text + " / " + texts[j].text);
                }
            }
        }
        return found;
    }
    /// What the model says of an alternative, row by row.
    static std::vector<Cells> Expected(c51Alternative& alternative)
    {
        std::vector<Cells> rows{{"Item",
                                 "Target Outcome",
                                 alternative.Outcome(2)->bShow() ? "Fallback Outcome" : "",
                                 "Extreme Case Outcome",
                                 "Expected Impact"}};
        for (Long resource = 1; resource <= 14; ++resource) {
            if (!g33FMUs::bResourceValueAnywhere(resource)) continue;
            rows.push_back(
                Row(alternative, g34NVCResources::NVCResourceName(resource), [&](c53Outcome& outcome) {
                    return Format(outcome.NVCResourceLoss(resource), "#,0");
                }));
        }
        for (const auto& item : g36ThreatenedItems::ThreatenedItemCollection()) {
            rows.push_back(Row(alternative, item->ItemName(), [&](c53Outcome& outcome) {
                return Format(Rounded(outcome.SingleItemImpact(item->ItemKey())), "#,0");
            }));
        }
        rows.push_back(Row(alternative, "Total (rounded)", [](c53Outcome& outcome) {
            return Format(Rounded(outcome.EstimatedLoss()), "$#,0");
        }));
        rows.back().at(4) = Format(alternative.ExpectedLoss(), "$#,0");
        return rows;
    }
    /// Every alternative's table against the model.
    static void ExpectTables()
    {
        const std::vector<std::pair<Long, Double>> places = BannerPlaces();
        const auto& alternatives = g51Alternatives::AlternativeCollection();
        ASSERT_EQ(static_cast<Long>(places.size()), alternatives.Count());
        for (Long i = 1; i <= alternatives.Count(); ++i) {
            const auto [page, top] = places.at(static_cast<std::size_t>(i) - 1);
            c51Alternative& alternative = *alternatives.At(i);
            EXPECT_EQ(TableAt(page, top), Expected(alternative)) << alternative.Label();
            EXPECT_FALSE(PlacesOf("Alternative " + alternative.Label()).empty());
        }
        EXPECT_EQ(Overprints(), std::vector<std::string>());
    }

private:
    static Double Rounded(Single dollars) { return u92Utilities::RoundSignificant(Double(dollars), 3); }
    template <class Value> static Cells Row(c51Alternative& alternative, const std::string& name, Value value)
    {
        const auto target = alternative.Outcome(1), fallback = alternative.Outcome(2);
        Cells cells{name, value(*target), "n/a", "n/a", ""};
        if (target->Success() == 100) return cells;
        cells[2] = fallback->bShow() ? value(*fallback) : "";
        if (fallback->Success() != 100) cells[3] = value(*g53Outcomes::ExtremeOutcome());
        return cells;
    }
    static std::vector<Double> BannersOf(Long page)
    {
        std::vector<Double> tops;
        const auto& lines = PageAt(page).ink.lines;
        for (const auto& line : lines) {
            const bool isUpper = std::any_of(lines.begin(), lines.end(), [&](const auto& other) {
                return other.x1 == 720.0 && other.x2 == 11520.0 && other.y1 == line.y1 + 250.0;
            });
            if (line.x1 == 720.0 && line.x2 == 11520.0 && isUpper) tops.push_back(line.y1);
        }
        return tops;
    }
    static std::vector<std::pair<Long, Double>> BannerPlaces()
    {
        std::vector<std::pair<Long, Double>> places;
        for (Long page = 1; page <= PageCount(); ++page) {
            for (const Double top : BannersOf(page))
                places.emplace_back(page, top);
        }
        return places;
    }
    static std::size_t ColumnAt(Double x)
    {
        if (x < kLeft + kNameWidth) return 0;
        return static_cast<std::size_t>((x - kLeft - kNameWidth) / kColumnWidth) + 1;
    }
    static const platform::richtext::CharacterFormat& Look(const platform::print::PlacedText& text)
    {
        return Printer().Pages().looks.at(static_cast<std::size_t>(text.look));
    }
};

// How many tables stand on a page

TEST_F(Impacts, ImpactLayout_RowsOnBothSidesOfEachStep_GiveTheirCode)
{
    const std::map<Long, Long> codes{{0, 49},
                                     {1, 49},
                                     {8, 49},
                                     {9, 48},
                                     {10, 48},
                                     {11, 39},
                                     {13, 39},
                                     {14, 38},
                                     {15, 38},
                                     {16, 29},
                                     {24, 29},
                                     {25, 28},
                                     {27, 28},
                                     {28, 19},
                                     {60, 19}};
    for (const auto& [rows, code] : codes) {
        OpenNew(Items(rows));
        EXPECT_EQ(ImpactTable::ImpactLayout(), code) << rows;
    }
}

TEST_F(Impacts, ImpactLayout_NameOf36Characters_CountsTwiceAndOf35Once)
{
    struct Case
    {
        std::string name;
        Long code;
    };
    const std::string seven = Items(7); // the name makes it 8 or 9
    for (const Case& at : {Case{std::string(35, 'i'), 49},
                           Case{std::string(36, 'i'), 48},
                           Case{Repeated("\u00E9", 35), 49}, // characters, not bytes
                           Case{Repeated("\u00E9", 36), 48},
                           Case{Repeated("\u2014", 35), 49},
                           Case{std::string(200, 'i'), 48}}) {
        OpenNew(seven + Item(8, at.name));
        EXPECT_EQ(ImpactTable::ImpactLayout(), at.code) << at.name;
    }
}

TEST_F(Impacts, ImpactLayout_ResourcesOfAValue_CountBesideTheItems)
{
    OpenNew(Items(8));
    EXPECT_EQ(ImpactTable::ImpactLayout(), 49);
    OpenNew(Items(8) + Resource(14, "-1"));
    EXPECT_EQ(ImpactTable::ImpactLayout(), 48);
    std::string all;
    for (Long resource = 1; resource <= 14; ++resource)
        all += Resource(resource, "-1");
    OpenNew(all);
    EXPECT_EQ(ImpactTable::ImpactLayout(), 38);
    OpenNew(all + Items(2));
    EXPECT_EQ(ImpactTable::ImpactLayout(), 29);
}

TEST_F(Impacts, ImpactLayout_ResourceOfGainsAlone_CountsWhereGainsDo)
{
    OpenNew(Items(8) + Resource(3, "5"));
    EXPECT_EQ(ImpactTable::ImpactLayout(), 49);
    OpenNew(Items(8) + Resource(3, "5") + Gains("Yes"));
    EXPECT_EQ(ImpactTable::ImpactLayout(), 48);
}

class Adjustments : public Impacts, public ::testing::WithParamInterface<Long>
{};

INSTANTIATE_TEST_SUITE_P(Alternatives, Adjustments, ::testing::Range<Long>(1, 8));

TEST_P(Adjustments, EveryLayout_PlacesTheTablesInTheirBandsAndSize)
{
    // The layout used for each number of alternatives, by the rows that have the code at its head.
    const std::map<Long, Long> rowsOf{{19, 28}, {28, 27}, {29, 16}, {38, 14}, {39, 12}, {48, 9}, {49, 1}};
    const std::map<Long, std::map<Long, Long>> used{
        {1, {{19, 19}, {28, 28}, {29, 29}, {38, 38}, {39, 39}, {48, 48}, {49, 49}}},
        {2, {{19, 19}, {28, 28}, {29, 29}, {38, 29}, {39, 29}, {48, 29}, {49, 29}}},
        {3, {{19, 19}, {28, 28}, {29, 29}, {38, 38}, {39, 39}, {48, 39}, {49, 39}}},
        {4, {{19, 19}, {28, 28}, {29, 29}, {38, 29}, {39, 39}, {48, 48}, {49, 49}}},
        {5, {{19, 19}, {28, 28}, {29, 29}, {38, 38}, {39, 39}, {48, 39}, {49, 39}}},
        {6, {{19, 19}, {28, 28}, {29, 29}, {38, 38}, {39, 39}, {48, 39}, {49, 39}}},
        {7, {{19, 19}, {28, 28}, {29, 29}, {38, 38}, {39, 39}, {48, 48}, {49, 49}}}};
    const Long count = GetParam();
    for (const auto& [code, layout] : used.at(count)) {
        SCOPED_TRACE(code);
        OpenNew(Alternatives(count) + Items(rowsOf.at(code)));
        ASSERT_EQ(ImpactTable::ImpactLayout(), code);
        Produce({8});
        const Long perPage = layout / 10, size = layout % 10;
        EXPECT_EQ(Tops(), TopsFor(count, perPage));
        EXPECT_EQ(PageCount(), (count + perPage - 1) / perPage);
        EXPECT_EQ(LookOf("Item 1").halfPoints, 2 * size);
        EXPECT_EQ(LookOf("Item").halfPoints, 2 * (size + 1));
        EXPECT_EQ(LookOf("Total (rounded)").halfPoints, 2 * (size + 1));
        EXPECT_EQ(Overprints(), std::vector<std::string>());
    }
}

TEST_F(Impacts, FullestTableOfEachLayout_EndsWithinItsBand)
{
    for (const Long rows : {8, 10, 13, 15, 24, 27}) {
        SCOPED_TRACE(rows);
        OpenNew(Alternatives(7) + Items(rows));
        Produce({8});
        const Long perPage = ImpactTable::ImpactLayout() / 10;
        EXPECT_EQ(Tops(), TopsFor(7, perPage));
        const std::vector<Place> totals = PlacesOf("Total (rounded)");
        ASSERT_EQ(totals.size(), 7u);
        for (std::size_t i = 0; i < totals.size(); ++i) {
            const Double band = 12000.0 / perPage;
            EXPECT_LT(totals[i].y,
                      2040.0 + band * static_cast<Double>(i % static_cast<std::size_t>(perPage) + 1));
        }
    }
}

// What stands above the tables

TEST_F(Impacts, Heading_GainsCountedOrNot_SaysSo)
{
    struct Case
    {
        std::string property;
        std::string heading;
    };
    for (const Case& at : {Case{"", "Resource Value Losses"},
                           Case{Gains("No"), "Resource Value Losses"},
                           Case{Gains("Yes"), "Impact on Resource Values"},
                           Case{Gains("yes"), "Resource Value Losses"}}) {
        OpenNew(Alternatives(1) + at.property);
        const auto& document = Produce({8});
        ASSERT_EQ(document.bookmarks.size(), 1u);
        EXPECT_EQ(document.bookmarks.front().title, at.heading) << at.property;
        EXPECT_EQ(PlaceOf(at.heading).page, 1);
    }
}

TEST_F(Impacts, Heading_NothingSaidOfGains_WritesThePresetDown)
{
    OpenNew();
    Produce({8});
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'UseNVCGains'"), (support::Rows{{"No"}}));
}

TEST_F(Impacts, Notes_StandBelowTheHeadingAndAboveTheFirstBand)
{
    OpenNew(Alternatives(1) + Items(3));
    Produce({8});
    const std::string first = "Note: Outcome values, including totals, are rounded to 3 significant digits "
                              "counting from the left.";
    const std::string second = "Expected Impact is rounded to 2 significant digits.";
    for (const std::string& note : {first, second}) {
        EXPECT_EQ(PlaceOf(note).x, 720.0);
        EXPECT_EQ(LookOf(note).halfPoints, 20);
        EXPECT_FALSE(LookOf(note).bold);
    }
    EXPECT_GT(PlaceOf(first).y, PlaceOf("Resource Value Losses").y);
    EXPECT_GT(PlaceOf(second).y, PlaceOf(first).y);
    EXPECT_LT(PlaceOf(second).y, 2040.0);
}

TEST_F(Impacts, NoAlternatives_HeadingAndNotesAlone)
{
    OpenNew(Items(3));
    Produce({8});
    EXPECT_EQ(PageCount(), 1);
    EXPECT_EQ(LinesOfPage(1).size(), 4u); // with the running header
    EXPECT_EQ(DrawnLines(1).size(), 1u);
}

// The table

TEST_F(Impacts, Columns_StandInTheirWidthsToTheTwip)
{
    OpenNew(Alternatives(1) + Items(1) + Set(TargetKey(1), "FireSize = 10") +
            Set(FallbackKey(1), "Success = 40") + Loss(TargetKey(1), 1, "1100") +
            Loss(FallbackKey(1), 1, "2200") + Loss(kExtreme, 1, "3300"));
    Produce({8});
    EXPECT_EQ(EdgesOf("Item").first, 780);
    EXPECT_EQ(EdgesOf("Item 1").first, 780);
    EXPECT_EQ(EdgesOf("Total (rounded)").second, 3540);
    EXPECT_EQ(EdgesOf("1,100").second, 5340);
    EXPECT_EQ(EdgesOf("2,200").second, 7140);
    EXPECT_EQ(EdgesOf("3,300").second, 8940);
    EXPECT_EQ(EdgesOf("$1,100").second, 5340);
    EXPECT_EQ(EdgesOf("$2,200").second, 7140);
    EXPECT_EQ(EdgesOf("$3,300").second, 8940);
    EXPECT_EQ(EdgesOf("$" + OneTable().back().back().substr(1)).second, 10740);
    const auto [left, right] = EdgesOf("Target Outcome");
    EXPECT_EQ((left + right) / 2, 4500);
}

TEST_F(Impacts, Rules_PartTheRowsAndTheColumns)
{
    OpenNew(Alternatives(1) + Items(2));
    Produce({8});
    std::vector<Double> across;
    std::vector<long> down;
    for (const auto& line : PageAt(1).ink.lines) {
        if (line.x1 == kLeft && line.x2 == kRight) across.push_back(line.y1);
        if (line.x1 == line.x2) down.push_back(std::lround(line.x1));
    }
    // Above each item and above the total; none above the heads.
    ASSERT_EQ(across.size(), 3u);
    const std::vector<long> columns{3600, 5400, 7200, 9000};
    ASSERT_EQ(down.size(), 16u);
    for (std::size_t i = 0; i < down.size(); ++i)
        EXPECT_EQ(down[i], columns[i % 4]);
    // The rule of the total stands 50 lower than the row above it ends.
    EXPECT_EQ(across[2] - across[1], across[1] - across[0] + 50.0);
}

TEST_F(Impacts, Heads_BeginFourHundredBelowTheBandAndAreBold)
{
    OpenNew(Alternatives(1) + Items(1));
    Produce({8});
    Double top = 15840.0;
    for (const auto& line : PageAt(1).ink.lines) {
        if (line.x1 == line.x2) top = std::min(top, line.y1);
    }
    EXPECT_EQ(top, 2440.0);
    EXPECT_TRUE(LookOf("Item").bold);
    EXPECT_FALSE(LookOf("Item 1").bold);
    EXPECT_FALSE(LookOf("Total (rounded)").bold);
}

TEST_F(Impacts, Banner_HoldsTheLabelBetweenItsRules)
{
    OpenNew(Alternatives(1));
    Produce({8});
    const Place place = PlaceOf("Alternative A1. Plan");
    EXPECT_GT(place.y, 2040.0);
    EXPECT_LT(place.y, 2290.0);
    EXPECT_EQ(LookOf("Alternative A1. Plan").halfPoints, 22);
    EXPECT_TRUE(LookOf("Alternative A1. Plan").bold);
}

TEST_F(Impacts, MarksInNamesAndLabels_AreCharacters)
{
    OpenNew(Alternatives(1) + Item(1, "Fence|gate; {\\b 4} %d") +
            "UPDATE Items SET Heading = '{\\b x}|y;' WHERE ItemKey = 1001;");
    Produce({8});
    PlaceOf("Alternative A1. {\\b x}|y;");
    EXPECT_EQ(OneTable().at(1).at(0), "Fence|gate; {\\b 4} %d");
}

TEST_F(Impacts, Resources_StandInTheirOrderAboveTheItems)
{
    OpenNew(Alternatives(1) + Items(2) + Resource(12, "-1") + Resource(1, "-2") + Resource(5, "-3"));
    Produce({8});
    Cells names;
    for (const Cells& row : OneTable())
        names.push_back(row.front());
    EXPECT_EQ(names,
              (Cells{"Item",
                     g34NVCResources::NVCResourceName(1),
                     g34NVCResources::NVCResourceName(5),
                     g34NVCResources::NVCResourceName(12),
                     "Item 1",
                     "Item 2",
                     "Total (rounded)"}));
}

// The cells

TEST_F(Impacts, SureTarget_CutsOffFallbackAndExtremeInEveryRow)
{
    OpenNew(Alternatives(1) + Items(2) + Resource(1, "-2") + Set(TargetKey(1), "Success = 100") +
            Set(FallbackKey(1), "Success = 30") + Loss(TargetKey(1), 2, "700"));
    Produce({8});
    const std::vector<Cells> rows = OneTable();
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_EQ(rows[0][2], "Fallback Outcome"); // the head stands all the same
    for (std::size_t row = 1; row < rows.size(); ++row) {
        EXPECT_EQ(rows[row][2], "n/a") << row;
        EXPECT_EQ(rows[row][3], "n/a") << row;
    }
    EXPECT_EQ(rows[3], (Cells{"Item 2", "700", "n/a", "n/a", ""}));
    EXPECT_EQ(rows[4], (Cells{"Total (rounded)", "$700", "n/a", "n/a", "$700"}));
}

TEST_F(Impacts, SureTargetWithoutFallback_IsCutOffUnderAnEmptyHead)
{
    OpenNew(Alternatives(1) + Items(1) + Set(TargetKey(1), "Success = 100"));
    Produce({8});
    EXPECT_EQ(OneTable().at(0).at(2), "");
    EXPECT_EQ(OneTable().at(1), (Cells{"Item 1", "0", "n/a", "n/a", ""}));
}

TEST_F(Impacts, NoFallback_ColumnIsBlankAndItsHeadToo)
{
    OpenNew(Alternatives(1) + Items(1) + Loss(TargetKey(1), 1, "100") + Loss(kExtreme, 1, "900"));
    Produce({8});
    EXPECT_EQ(OneTable(),
              (std::vector<Cells>{{"Item", "Target Outcome", "", "Extreme Case Outcome", "Expected Impact"},
                                  {"Item 1", "100", "", "900", ""},
                                  {"Total (rounded)", "$100", "", "$900", "$500"}}));
}

TEST_F(Impacts, SureFallback_CutsOffTheExtremeAlone)
{
    OpenNew(Alternatives(1) + Items(1) + Set(FallbackKey(1), "Success = 100") +
            Loss(FallbackKey(1), 1, "300") + Loss(kExtreme, 1, "900"));
    Produce({8});
    EXPECT_EQ(OneTable().at(1), (Cells{"Item 1", "0", "300", "n/a", ""}));
    EXPECT_EQ(OneTable().at(2).at(3), "n/a");
}

TEST_F(Impacts, HiddenFallbackThatWasSure_IsForgottenAndTheExtremeStands)
{
    OpenNew(Alternatives(1) + Items(1) + Set(FallbackKey(1), "Success = 100") + Loss(kExtreme, 1, "900"));
    g51Alternatives::AlternativeCollection().At(1)->Outcome(2)->SetbShow(false);
    Produce({8});
    EXPECT_EQ(OneTable().at(1), (Cells{"Item 1", "0", "", "900", ""}));
}

TEST_F(Impacts, SuccessOf99_CutsOffNothing)
{
    OpenNew(Alternatives(1) + Items(1) + Set(TargetKey(1), "Success = 99") +
            Set(FallbackKey(1), "Success = 99"));
    Produce({8});
    EXPECT_EQ(OneTable().at(1), (Cells{"Item 1", "0", "0", "0", ""}));
}

// The figures

TEST_F(Impacts, ItemLosses_AreRoundedToThreeDigitsWithTiesToEven)
{
    const std::vector<std::pair<std::string, std::string>> cases{{"12350", "12,400"},
                                                                 {"12250", "12,200"},
                                                                 {"12450.01", "12,500"},
                                                                 {"1000", "1,000"},
                                                                 {"1005", "1,000"},
                                                                 {"1015", "1,020"},
                                                                 {"999.5", "1,000"},
                                                                 {"998.5", "998"},
                                                                 {"0.4", "0"},
                                                                 {"0.5", "1"},
                                                                 {"123456789", "123,000,000"},
                                                                 {"100000", "100,000"},
                                                                 {"0", "0"}};
    const Long count = static_cast<Long>(cases.size());
    std::string sql = Alternatives(1) + Items(count);
    for (Long place = 1; place <= count; ++place)
        sql += Loss(TargetKey(1), place, cases[static_cast<std::size_t>(place) - 1].first);
    OpenNew(sql);
    Produce({8});
    const std::vector<Cells> rows = OneTable();
    ASSERT_EQ(static_cast<Long>(rows.size()), count + 2);
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(rows[i + 1][1], cases[i].second) << cases[i].first;
    ExpectTables();
}

TEST_F(Impacts, Totals_AreRoundedFromTheUnroundedSum)
{
    OpenNew(Alternatives(1) + Items(3) + Loss(TargetKey(1), 1, "1004") + Loss(TargetKey(1), 2, "1004") +
            Loss(TargetKey(1), 3, "1004"));
    Produce({8});
    EXPECT_EQ(OneTable().at(1).at(1), "1,000");
    EXPECT_EQ(OneTable().back().at(1), "$3,010"); // not three times what the rows show
}

TEST_F(Impacts, ResourceLosses_AreTheModelsWithoutFurtherRounding)
{
    OpenNew(Alternatives(1) + Resource(1, "-10") + Resource(2, "4") + Gains("Yes") +
            Set(TargetKey(1), "FireSize = 123.4") + firesql::BurnsAtLevel4(TargetKey(1)));
    Produce({8});
    const std::vector<Cells> rows = OneTable();
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[1][1], "1,230");
    EXPECT_EQ(rows[2][1], "-494"); // a gain
    ExpectTables();
}

TEST_F(Impacts, GainsInTotal_HaveTheirSignAheadOfTheDollar)
{
    OpenNew(Alternatives(1) + Resource(2, "4") + Gains("Yes") + Set(TargetKey(1), "FireSize = 1000") +
            firesql::BurnsAtLevel4(TargetKey(1)));
    Produce({8});
    EXPECT_EQ(OneTable().back().at(1), "-$4,000");
    EXPECT_EQ(OneTable().back().at(4), "-$2,000");
}

TEST_F(Impacts, AllSamples_PrintTheModelsFigures)
{
    for (const char* name : {"smith-creek", "granite-fork-complex", "juniper-gap"}) {
        SCOPED_TRACE(name);
        OpenSample(name);
        for (const bool a4 : {false, true}) {
            a4 ? UseA4() : Printer().SetPaper(12240.0, 15840.0);
            Produce({8});
            ExpectTables();
        }
    }
}

TEST_F(Impacts, GeneratedFires_PrintTheModelsFigures)
{
    unsigned state = 7;
    const auto next = [&](Long below) {
        state = state * 1103515245u + 12345u;
        return static_cast<Long>(state >> 16) % below;
    };
    for (const Long alternatives : {1, 3, 5, 8}) {
        const Long items = next(20) + 1;
        std::string sql = Alternatives(alternatives) + Items(items);
        for (Long resource = 1; resource <= 14; resource += next(4) + 1)
            sql += Resource(resource, std::to_string(next(2000) - 1500) + ".25");
        if (alternatives > 3) sql += Gains("Yes");
        std::vector<Long> outcomes{kExtreme};
        for (Long place = 1; place <= alternatives; ++place) {
            const Long success[] = {0, 35, 99, 100};
            sql += Set(TargetKey(place), "Success = " + std::to_string(success[next(4)]));
            sql +=
                Set(FallbackKey(place), "Success = " + std::to_string(next(2) == 0 ? -1 : success[next(4)]));
            outcomes.insert(outcomes.end(), {TargetKey(place), FallbackKey(place)});
        }
        for (const Long outcome : outcomes) {
            sql += Set(outcome, "FireSize = " + std::to_string(next(30000)) + ".5") +
                   firesql::BurnsAtLevel4(outcome);
            for (Long place = 1; place <= items; ++place)
                sql += Loss(outcome, place, std::to_string(next(30000) * next(500)) + ".75");
        }
        SCOPED_TRACE(alternatives);
        OpenNew(sql);
        Produce({8});
        ExpectTables();
    }
}

// Many and long

TEST_F(Impacts, TwentyItemsAndTwoAlternatives_ShareAPage)
{
    OpenNew(Alternatives(2) + Items(20));
    Produce({8});
    EXPECT_EQ(Tops(), (std::vector<std::string>{"1: 2040", "1: 8040"}));
    ExpectTables();
}

TEST_F(Impacts, SixtyItems_GoOnOnTheNextPageFromTheirBand)
{
    OpenNew(Alternatives(3) + Items(60));
    Produce({8});
    EXPECT_EQ(Tops(), (std::vector<std::string>{"1: 2040", "3: 2040", "5: 2040"}));
    EXPECT_EQ(PageCount(), 6);
    for (Long place = 1; place <= 60; ++place)
        EXPECT_EQ(PlacesOf("Item " + std::to_string(place)).size(), 3u) << place;
    EXPECT_EQ(PlacesOf("Total (rounded)").size(), 3u);
    for (Long page = 1; page <= PageCount(); ++page)
        EXPECT_EQ(LinesOfPage(page).front(), LinesOfPage(1).front()) << page;
    EXPECT_EQ(Overprints(), std::vector<std::string>());
}

TEST_F(Impacts, FortyAlternativesOfSixtyItems_LoseNothing)
{
    OpenNew(Alternatives(40) + Items(60));
    Produce({8});
    EXPECT_EQ(Tops().size(), 40u);
    EXPECT_EQ(PageCount(), 80);
    for (Long place = 1; place <= 60; ++place)
        EXPECT_EQ(PlacesOf("Item " + std::to_string(place)).size(), 40u) << place;
    EXPECT_EQ(PlacesOf("Total (rounded)").size(), 40u);
    for (Long place = 1; place <= 40; ++place)
        EXPECT_EQ(PlacesOf("Alternative A" + std::to_string(place) + ". Plan").size(), 1u) << place;
}

TEST_F(Impacts, NamesOfManyLines_AreNotPrintedOver)
{
    // Each counts as two rows only, so the tables leave their bands, and at last their pages.
    for (const int words : {4, 6, 8, 11, 15, 22, 40}) {
        SCOPED_TRACE(words);
        std::string sql = Alternatives(4);
        for (Long place = 1; place <= 8; ++place)
            sql += Item(place, Repeated("threatened bridge ", words) + "no" + std::to_string(place));
        OpenNew(sql);
        ASSERT_EQ(ImpactTable::ImpactLayout(), 29);
        Produce({8});
        EXPECT_EQ(Overprints(), std::vector<std::string>());
        EXPECT_EQ(Tops().size(), 4u);
        EXPECT_EQ(PlacesOf("Total (rounded)").size(), 4u);
        std::map<std::string, int> last;
        for (const std::string& line : Lines()) {
            for (Long place = 1; place <= 8; ++place) {
                const std::string word = "no" + std::to_string(place);
                if (line.find(word) != std::string::npos) ++last[word];
            }
        }
        for (Long place = 1; place <= 8; ++place)
            EXPECT_EQ(last["no" + std::to_string(place)], 4) << place;
    }
}

TEST_F(Impacts, LandscapePaper_LosesNoTable)
{
    OpenNew(Alternatives(7) + Items(8));
    for (const Double height : {12240.0, 8391.0}) {
        Printer().SetPaper(15840.0, height);
        Produce({8});
        for (Long place = 1; place <= 8; ++place)
            EXPECT_EQ(PlacesOf("Item " + std::to_string(place)).size(), 7u) << height << " " << place;
        EXPECT_EQ(PlacesOf("Total (rounded)").size(), 7u) << height;
        EXPECT_EQ(Overprints(), std::vector<std::string>()) << height;
        for (Long page = 1; page <= PageCount(); ++page) {
            for (const auto& text : PageAt(page).ink.texts)
                EXPECT_LT(text.y, height) << text.text;
        }
    }
}

// What stands behind it, and the export

TEST_F(Impacts, SectionBehindIt_FindsTheMarginsAsTheyWere)
{
    OpenNew(Alternatives(2) + Items(20));
    Produce({8, 9});
    EXPECT_EQ(Printer().MarginTop(), 900.0);
    EXPECT_EQ(Printer().SpaceBefore(), 0.0);
    const auto& bookmarks = Printer().Pages().bookmarks;
    ASSERT_EQ(bookmarks.size(), 2u);
    EXPECT_EQ(bookmarks[1].y, 950.0);
    EXPECT_EQ(bookmarks[1].page, 1);
}

TEST_F(Impacts, Export_HoldsEveryCellInItsOrder)
{
    OpenSample("smith-creek");
    Select({8});
    ReportRun::SaveSelectedSections(folder.File("out.rtf"));
    std::string text = platform::richtext::RtfToPlainText(support::ReadFile(folder.File("out.rtf")));
    std::size_t place = 0;
    for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
        place = text.find("Alternative " + alternative->Label(), place);
        ASSERT_NE(place, std::string::npos) << alternative->Label();
        for (const Cells& row : Expected(*alternative)) {
            for (const std::string& cell : row) {
                place = text.find(cell, place);
                ASSERT_NE(place, std::string::npos) << row.front() << ": " << cell;
                place += cell.size();
            }
        }
    }
}

TEST_F(Impacts, Log_TellsTheSection)
{
    OpenNew();
    Produce({8});
    EXPECT_EQ(CountLog("PrintImpacts"), 1);
}

} // namespace
