#include "Fires.h"
#include "PageCells.h"
#include "ReportTest.h"
#include "model/c41Objective.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/c62Rating.h"
#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "session/c0Item.h"
#include "session/g2Situation.h"
#include "session/u92Utilities.h"
#include "values/c67SRUseList.h"
#include "values/g33FMUs.h"
#include "values/g34NVCResources.h"
#include "values/g36ThreatenedItems.h"

#include <algorithm>

// Every figure of the report is the model's. Each is looked up at its place on the page, by the caption of
// its row and by its column, in the samples and in fires made for the purpose.

namespace {

using platform::Format;
using platform::TextOf;
using support::CellRow;
using support::Mark;
using Cells = std::vector<std::string>;

std::string Trimmed(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

/// Without blanks at the ends and with single ones within.
std::string Squeezed(const std::string& text)
{
    std::string squeezed = Trimmed(text);
    for (std::size_t place; (place = squeezed.find("  ")) != std::string::npos;)
        squeezed.erase(place, 1);
    return squeezed;
}

std::string Dollars(Single value) { return Format(value, "$#,0"); }

class Figures : public support::ReportTest, public ::testing::WithParamInterface<support::Fire>
{
protected:
    void SetUp() override
    {
        const support::Fire& fire = GetParam();
        fire.sample.empty() ? Open(MakeFire(fire)) : OpenSample(fire.sample);
    }
    std::string MakeFire(const support::Fire& fire)
    {
        const std::string made = MakeFile();
        support::Generate(fire, made);
        return made;
    }
    static std::vector<std::shared_ptr<c51Alternative>> Alternatives()
    {
        const auto& alternatives = g51Alternatives::AlternativeCollection();
        return {alternatives.begin(), alternatives.end()};
    }
    /// Target, Fallback (nothing where it is not shown), Extreme.
    static std::vector<std::shared_ptr<c53Outcome>> OutcomesOf(c51Alternative& alternative)
    {
        const auto fallback = alternative.Outcome(2);
        return {
            alternative.Outcome(1), fallback->bShow() ? fallback : nullptr, g53Outcomes::ExtremeOutcome()};
    }
    static std::vector<CellRow> RowsFrom(Mark from, Mark to, const std::vector<Double>& edges)
    {
        return support::RowsBetween(Printer().Pages(), from, to, edges);
    }
    /// The first text of these words at or behind a place.
    static Mark MarkOf(const std::string& text, Mark from = support::firstMark)
    {
        for (const Place& place : PlacesOf(text)) {
            if (Mark{place.page, place.y} >= from) return {place.page, place.y};
        }
        ADD_FAILURE() << "\"" << text << "\" is not there";
        return support::lastMark;
    }
    /// Where the titles of the alternatives stand, and the end.
    static std::vector<Mark> TitleMarks()
    {
        std::vector<Mark> marks;
        for (const auto& alternative : Alternatives())
            marks.push_back(MarkOf("Alternative " + alternative->Label(),
                                   marks.empty() ? support::firstMark : marks.back()));
        marks.push_back(support::lastMark);
        return marks;
    }
};

INSTANTIATE_TEST_SUITE_P(Fires, Figures, ::testing::ValuesIn(support::Fires()), [](const auto& fire) {
    return fire.param.name;
});

// Section 1

TEST_P(Figures, Situation_ItemsStandBehindTheirCaptions)
{
    Produce({1});
    const auto item = [](Long key) { return g2Situation::GetItem(key)->Body(); };
    const Mark top = MarkOf("VEXA Information"), bottom = MarkOf("Fire Situation");
    const auto table = RowsFrom({top.page, top.y + 1.0}, bottom, {720, 6120, 11520});
    EXPECT_EQ(Squeezed(support::ColumnText(table, 0)),
              Squeezed("VEXA Number: " + item(221) + " Fire Name: " + item(11) + " Incident Number: " +
                       item(52) + " Date/Time Prepared: " + item(222) + " " + item(223)));
    EXPECT_EQ(Squeezed(support::ColumnText(table, 1)),
              Squeezed("Jurisdiction(s): " + item(53) + " Geographic Area: " + item(55) +
                       " Unit: " + item(54) + " Accounting or Management Code: " + item(217)));
    const auto facts = RowsFrom({bottom.page, bottom.y + 1.0}, support::lastMark, {720, 6120});
    EXPECT_EQ(Squeezed(facts.at(0).cells[0]), Squeezed("Start Date/Time: " + item(61) + " " + item(62)));
    EXPECT_EQ(Squeezed(facts.at(1).cells[0]), Squeezed("Current Fire Size: " + item(57) + " acres"));
}

// Section 2

TEST_P(Figures, DecisionSummary_NamesTheSelectedAndTheMostCostEffective)
{
    Produce({2});
    const auto rows = RowsFrom(MarkOf("Selected Alternative"), support::lastMark, {1080, 2880, 11520});
    const auto selected = g51Alternatives::SelectedAlternative();
    EXPECT_EQ(rows.at(0).cells[0], "Selected Alternative");
    if (selected) {
        EXPECT_EQ(rows.at(1).cells, (Cells{"", selected->Label()}));
    }
    EXPECT_EQ(Squeezed(rows.at(selected ? 2 : 1).cells[0]),
              "Most Cost Effective Alternative: " + g51Alternatives::MostCostEffectiveAlternative()->Label());
}

// Section 3

TEST_P(Figures, DailyReview_TellsTheSelectedTargetsCostAndSize)
{
    Produce({3});
    const auto selected = g51Alternatives::SelectedAlternative();
    if (!selected) {
        EXPECT_TRUE(PlacesOf("Estimated target suppression cost and size").empty());
        return;
    }
    const auto rows = RowsFrom(support::firstMark, support::lastMark, {720, 2580, 3780, 10140});
    EXPECT_EQ(rows.at(1).cells,
              (Cells{Dollars(selected->EstimatedCost()),
                     Format(selected->EstimatedSize(), "#,0"),
                     "Estimated target suppression cost and size"}));
}

// Section 4

TEST_P(Figures, Objectives_PriorityAndWeightStandBesideEachName)
{
    Produce({4});
    const auto rows = RowsFrom(support::firstMark, support::lastMark, {720, 8520, 10620, 11520});
    auto row = rows.begin();
    for (const auto& objective : g41Objectives::ObjectiveCollection()) {
        const bool hasFigures = !objective->bCategory();
        row = std::find_if(row, rows.end(), [&](const CellRow& candidate) {
            return Trimmed(candidate.cells[0]) == Trimmed(objective->ItemName()) &&
                   candidate.cells[2].empty() != hasFigures;
        });
        ASSERT_NE(row, rows.end()) << objective->ItemName();
        if (hasFigures) {
            EXPECT_EQ(row->cells[1], TextOf(objective->Priority())) << objective->ItemName();
            EXPECT_EQ(row->cells[2], Format(objective->Weight(), "0.00")) << objective->ItemName();
        }
        ++row;
    }
}

// Section 5

TEST_P(Figures, SafetyIssues_StandInTheirOrderWithoutAFigure)
{
    Produce({5});
    const auto rows = RowsFrom(support::firstMark, support::lastMark, {720, 8520, 11520});
    auto row = rows.begin();
    for (const auto& issue : g42SafetyIssues::SafetyIssueCollection()) {
        row = std::find_if(row, rows.end(), [&](const CellRow& candidate) {
            return Trimmed(candidate.cells[0]) == Trimmed(issue->ItemName());
        });
        ASSERT_NE(row, rows.end()) << issue->ItemName();
        EXPECT_EQ(row->cells[1], "") << issue->ItemName();
        ++row;
    }
}

// Section 6

/// The four rows of an alternative's figures, each with its caption.
std::vector<Cells> OutcomeRows(c51Alternative& alternative,
                               const std::vector<std::shared_ptr<c53Outcome>>& outcomes)
{
    std::vector<Cells> rows(4, Cells(6));
    for (std::size_t i = 0; i < 3; ++i) {
        if (outcomes[i] == nullptr) continue;
        const Cells captions{"Probability:", "Final Fire Size:", "Time to Contain:", "Time to Control:"};
        const Cells values{Format(alternative.OutcomePercent(static_cast<Long>(i) + 1), "0") + "%",
                           outcomes[i]->FireSize() + " acres",
                           TextOf(outcomes[i]->ContainTime()) + " days",
                           TextOf(outcomes[i]->ControlTime()) + " days"};
        for (std::size_t row = 0; row < 4; ++row) {
            rows[row][2 * i] = captions[row];
            rows[row][2 * i + 1] = values[row];
        }
    }
    return rows;
}

TEST_P(Figures, Alternatives_ProbabilitySizeAndTimesStandUnderEachOutcome)
{
    Produce({6});
    const auto marks = TitleMarks();
    for (std::size_t place = 0; place + 1 < marks.size(); ++place) {
        SCOPED_TRACE(place + 1);
        c51Alternative& alternative = *Alternatives()[place];
        const auto wanted = OutcomeRows(alternative, OutcomesOf(alternative));
        const auto rows = RowsFrom(MarkOf("Probability:", marks[place]),
                                   marks[place + 1],
                                   {720, 2520, 4320, 6120, 7920, 9720, 11520});
        for (std::size_t row = 0; row < wanted.size(); ++row)
            EXPECT_EQ(rows.at(row).cells, wanted[row]);
    }
}

// Section 7

void PutCells(Cells& row, std::size_t first, const Cells& cells)
{
    std::copy(cells.begin(), cells.end(), row.begin() + static_cast<std::ptrdiff_t>(first));
}

/// The share of the land unit at a place, its cost per acre and its cost.
Cells UnitFigures(c53Outcome& outcome, Long place)
{
    const Long key = g33FMUs::FMUCollection().At(place).ItemKey();
    const Double acres = platform::NumberOf(outcome.FireSize());
    const Single rate = g33FMUs::GetAACTable(key).CostForSize(platform::ToSingle(acres));
    const Long percent = outcome.FMUPercent(place);
    return {TextOf(percent), TextOf(rate), Format(Double(rate) * Double(percent) * acres / 100.0, "0")};
}

/// The rows of an alternative's table of land units, from the heads of its columns on.
std::vector<Cells> UnitRows(const std::vector<std::shared_ptr<c53Outcome>>& outcomes)
{
    std::vector<Cells> rows{Cells{"FMU"}};
    for (const c33FMU& unit : g33FMUs::FMUCollection())
        rows.push_back({unit.ItemName()});
    for (Cells& row : rows)
        row.resize(10);
    for (std::size_t i = 0; i < 3; ++i) {
        if (outcomes[i] == nullptr) continue;
        PutCells(rows[0], 3 * i + 1, {"%", "$/acre", "Cost"});
        for (std::size_t place = 1; place < rows.size(); ++place)
            PutCells(rows[place], 3 * i + 1, UnitFigures(*outcomes[i], static_cast<Long>(place)));
    }
    return rows;
}

/// The rows of resource uses.
std::vector<Cells> ResourceRows(c51Alternative& alternative,
                                const std::vector<std::shared_ptr<c53Outcome>>& outcomes)
{
    Long count = alternative.Outcome(2)->SRUseList().SRUseCount();
    for (const auto& outcome : outcomes) {
        if (outcome != nullptr) count = std::max(count, outcome->SRUseList().SRUseCount());
    }
    std::vector<Cells> rows(static_cast<std::size_t>(count), Cells(12));
    for (std::size_t i = 0; i < 3; ++i) {
        if (outcomes[i] == nullptr) continue;
        std::size_t line = 0;
        for (const auto& use : outcomes[i]->SRUseList().SRUseCollection()) {
            PutCells(rows[line++],
                     4 * i,
                     {TextOf(use->Quantity()),
                      use->SRType()->ShortName(),
                      TextOf(use->TimePeriods()),
                      use->SRType()->UnitName()});
        }
    }
    // Rows without a text do not show.
    std::erase_if(rows, [](const Cells& row) { return row == Cells(12); });
    return rows;
}

bool HasName(const CellRow& row) { return !row.cells[0].empty(); }

/// The cells of a row that takes several lines, parted within their figures.
Cells JoinedCells(std::vector<CellRow>::const_iterator line,
                  std::vector<CellRow>::const_iterator end,
                  std::size_t count)
{
    Cells joined(count);
    for (; line != end; ++line) {
        for (std::size_t i = 0; i < count; ++i)
            joined[i] += line->cells[i];
    }
    return joined;
}

std::string BasisOf(const c53Outcome& outcome)
{
    const std::string caption = "Basis for cost estimate: ";
    switch (outcome.CostSource()) {
    case 1: return caption + "Historic average cost per acre";
    case 2: return caption + "Estimated suppression resources needed";
    case 4: return caption + "Daily expense rate";
    case 8: return Squeezed(caption + outcome.CostRationale());
    default: return "";
    }
}

/// What stands below the resources.
std::string CostOf(c53Outcome& outcome)
{
    return Trimmed("Estimated suppression cost: " + Dollars(outcome.EstimatedCost()) + " " +
                   BasisOf(outcome));
}

TEST_P(Figures, Costs_EveryCellOfTheTablesOfLandUnits)
{
    Produce({7});
    if (g33FMUs::FMUCount() < 2) {
        EXPECT_TRUE(PlacesOf("FMU").empty());
        return;
    }
    const auto marks = TitleMarks();
    for (std::size_t place = 0; place + 1 < marks.size(); ++place) {
        SCOPED_TRACE(place + 1);
        const auto rows = RowsFrom(MarkOf("FMU", marks[place]),
                                   marks[place + 1],
                                   {720, 3420, 3960, 4860, 6120, 6660, 7560, 8820, 9360, 10260, 11520});
        const auto wanted = UnitRows(OutcomesOf(*Alternatives()[place]));
        auto row = rows.begin();
        for (const Cells& cells : wanted) {
            ASSERT_NE(row, rows.end());
            EXPECT_EQ(row->cells[0], cells[0]);
            // A rate of many digits goes over two lines.
            const auto next = std::find_if(row + 1, rows.end(), HasName);
            EXPECT_EQ(JoinedCells(row, next, cells.size()), cells);
            row = next;
        }
    }
}

TEST_P(Figures, Costs_EveryCellOfTheTablesOfResources)
{
    Produce({7});
    const auto marks = TitleMarks();
    for (std::size_t place = 0; place + 1 < marks.size(); ++place) {
        SCOPED_TRACE(place + 1);
        c51Alternative& alternative = *Alternatives()[place];
        const auto outcomes = OutcomesOf(alternative);
        // The captions stand twice where there is a table of land units.
        Mark caption = MarkOf("Target Outcome", marks[place]);
        if (g33FMUs::FMUCount() > 1) caption = MarkOf("Target Outcome", {caption.page, caption.y + 1.0});
        const Mark first{caption.page, caption.y + 1.0};
        const auto rows =
            RowsFrom(first,
                     marks[place + 1],
                     {720, 1320, 2760, 3300, 4320, 4920, 6360, 6900, 7920, 8520, 9960, 10500, 11520});
        const auto wanted = ResourceRows(alternative, outcomes);
        for (std::size_t row = 0; row < wanted.size(); ++row)
            EXPECT_EQ(rows.at(row).cells, wanted[row]);
        const std::vector<CellRow> costs(rows.begin() + static_cast<std::ptrdiff_t>(wanted.size()),
                                         rows.end());
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(Squeezed(support::ColumnText(costs, 4 * i)), outcomes[i] ? CostOf(*outcomes[i]) : "");
    }
}

// Section 8

std::string RoundedText(Single dollars, const char* format)
{
    constexpr Long digits = 3;
    return Format(u92Utilities::RoundSignificant(Double(dollars), digits), format);
}

/// A row by the value of an outcome: what a sure success cuts off is not available.
template <class Value>
Cells ImpactRow(const std::string& name,
                c51Alternative& alternative,
                const Value& value,
                const std::string& expected)
{
    const auto target = alternative.Outcome(1), fallback = alternative.Outcome(2);
    const bool isSure = target->Success() == 100, isSureThen = fallback->Success() == 100;
    const std::string shown = fallback->bShow() ? value(*fallback) : "";
    return {name,
            value(*target),
            isSure ? "n/a" : shown,
            isSure || isSureThen ? "n/a" : value(*g53Outcomes::ExtremeOutcome()),
            expected};
}

/// Resources, threatened items and the total.
std::vector<Cells> ImpactRows(c51Alternative& alternative)
{
    std::vector<Cells> rows;
    for (Long resource = 1; resource <= 14; ++resource) {
        if (!g33FMUs::bResourceValueAnywhere(resource)) continue;
        const auto loss = [&](c53Outcome& outcome) {
            return Format(outcome.NVCResourceLoss(resource), "#,0");
        };
        rows.push_back(ImpactRow(g34NVCResources::NVCResourceName(resource), alternative, loss, ""));
    }
    for (const auto& item : g36ThreatenedItems::ThreatenedItemCollection()) {
        const auto loss = [&](c53Outcome& outcome) {
            return RoundedText(outcome.SingleItemImpact(item->ItemKey()), "#,0");
        };
        rows.push_back(ImpactRow(item->ItemName(), alternative, loss, ""));
    }
    const auto total = [](c53Outcome& outcome) { return RoundedText(outcome.EstimatedLoss(), "$#,0"); };
    rows.push_back(ImpactRow("Total (rounded)", alternative, total, Dollars(alternative.ExpectedLoss())));
    return rows;
}

TEST_P(Figures, Impacts_EveryCellOfTheTables)
{
    Produce({8});
    const auto marks = TitleMarks();
    for (std::size_t place = 0; place + 1 < marks.size(); ++place) {
        SCOPED_TRACE(place + 1);
        auto wanted = ImpactRows(*Alternatives()[place]);
        const Mark heads = MarkOf("Item", marks[place]);
        auto rows =
            RowsFrom({heads.page, heads.y + 1.0}, marks[place + 1], {720, 3600, 5400, 7200, 9000, 10800});
        // The second line of a head has no name, that of a long name no figure.
        std::erase_if(rows, [](const CellRow& row) { return row.cells[0].empty() || row.cells[1].empty(); });
        ASSERT_EQ(rows.size(), wanted.size());
        for (std::size_t row = 0; row < wanted.size(); ++row) {
            EXPECT_TRUE(wanted[row][0].starts_with(rows[row].cells[0])) << rows[row].cells[0];
            wanted[row][0] = rows[row].cells[0];
            EXPECT_EQ(rows[row].cells, wanted[row]);
        }
    }
}

// Section 9

TEST_P(Figures, SafetyAssessment_RatingsStandUnderTheirIssueAndOutcome)
{
    Produce({9});
    const auto marks = TitleMarks();
    const auto& issues = g42SafetyIssues::SafetyIssueCollection();
    for (std::size_t place = 0; place + 1 < marks.size(); ++place) {
        for (Long issue = 2; issue <= issues.Count(); ++issue) {
            Cells wanted;
            for (const auto& outcome : OutcomesOf(*Alternatives()[place])) {
                wanted.emplace_back();
                if (outcome == nullptr) continue;
                c62Rating rating;
                rating.Initialize(outcome->ItemKey(), issues.At(issue)->ItemKey(), true, false);
                wanted.back() = "Rating: " + TextOf(rating.RawScore()) + " / 10";
            }
            const Mark name = MarkOf("Issue: " + issues.At(issue)->ItemName(), marks[place]);
            ASSERT_LT(name, marks[place + 1]);
            const auto rows = RowsFrom({name.page, name.y + 1.0}, marks[place + 1], {720, 4320, 7920, 11520});
            EXPECT_EQ(rows.at(0).cells, wanted) << place + 1 << ", " << issues.At(issue)->ItemName();
        }
    }
}

// Section 10

/// A tree of the report by its top, which is told by the line that its alternative stands on.
class Tree
{
public:
    static std::vector<Tree> TreesOf(const platform::print::Document& document)
    {
        std::vector<Tree> trees;
        for (const auto& page : document.pages) {
            for (const auto& line : page.ink.lines) {
                if (line.x1 == 720.0 && line.x2 == 4020.0)
                    trees.push_back(Tree(document, {page.number, line.y1 - 1050.0}));
            }
        }
        return trees;
    }
    /// The lines of text that begin between two places from the left, and are so far below the top.
    Cells Lines(Double left, Double right, Double from, Double to) const
    {
        Cells lines;
        const Mark first{m_top.page, m_top.y + from}, last{m_top.page, m_top.y + to};
        for (const CellRow& row : support::RowsBetween(*m_document, first, last, {left, right}))
            lines.push_back(Squeezed(row.cells[0]));
        return lines;
    }

private:
    Tree(const platform::print::Document& document, Mark top) : m_document(&document), m_top(top) {}

    const platform::print::Document* m_document;
    Mark m_top;
};

Cells ExpectedOf(c51Alternative& alternative)
{
    return {"Expected Objectives Score: " + Format(alternative.ExpectedScore(), "0.0"),
            "Expected Safety Score: " + Format(alternative.ExpectedSafetyScore(), "0.0"),
            "Expected Cost: " + Dollars(alternative.ExpectedCost()),
            "Expected Loss: " + Dollars(alternative.ExpectedLoss())};
}

Cells ValuesOf(c53Outcome& outcome)
{
    return {"Size: " + outcome.FireSize() + " acres. Control: " + TextOf(outcome.ControlTime()) + " days",
            "Objectives Score: " + Format(outcome.TotalScore(), "0.0"),
            "Safety Score: " + Format(outcome.SafetyScore(), "0.0"),
            "Estimated Cost: " + Dollars(outcome.EstimatedCost()),
            "Estimated Loss: " + Dollars(outcome.EstimatedLoss())};
}

Cells PercentOf(Long percent) { return {TextOf(percent) + "%"}; }

TEST_P(Figures, DecisionTree_ExpectedValuesAndTargetStandAtTheirLines)
{
    const auto trees = Tree::TreesOf(Produce({10}));
    ASSERT_EQ(trees.size(), Alternatives().size());
    for (std::size_t place = 0; place < trees.size(); ++place) {
        SCOPED_TRACE(place + 1);
        const auto target = Alternatives()[place]->Outcome(1);
        EXPECT_EQ(trees[place].Lines(720, 3620, 1050, 2300), ExpectedOf(*Alternatives()[place]));
        EXPECT_EQ(trees[place].Lines(3620, 4520, 500, 800), PercentOf(target->Success()));
        EXPECT_EQ(trees[place].Lines(3620, 4520, 1350, 1650), PercentOf(100 - target->Success()));
        EXPECT_EQ(trees[place].Lines(4520, 7220, 250, 1550), ValuesOf(*target));
    }
}

TEST_P(Figures, DecisionTree_FallbackAndExtremeStandAtTheirLines)
{
    const auto trees = Tree::TreesOf(Produce({10}));
    ASSERT_EQ(trees.size(), Alternatives().size());
    c53Outcome& extreme = *g53Outcomes::ExtremeOutcome();
    for (std::size_t place = 0; place < trees.size(); ++place) {
        SCOPED_TRACE(place + 1);
        const auto fallback = Alternatives()[place]->Outcome(2);
        if (!fallback->bShow()) {
            EXPECT_EQ(trees[place].Lines(4520, 7220, 1850, 3200), ValuesOf(extreme));
            continue;
        }
        EXPECT_EQ(trees[place].Lines(7220, 8120, 1150, 1450), PercentOf(fallback->Success()));
        EXPECT_EQ(trees[place].Lines(7220, 8120, 2100, 2350), PercentOf(100 - fallback->Success()));
        EXPECT_EQ(trees[place].Lines(8120, 11520, 900, 2200), ValuesOf(*fallback));
        EXPECT_EQ(trees[place].Lines(8120, 11520, 2500, 3800), ValuesOf(extreme));
    }
}

} // namespace
