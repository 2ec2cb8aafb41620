// The figures of the sample fires, worked out apart from this program.

#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "support/TestSession.h"

namespace {

struct AlternativeFigures
{
    const char* fire;
    const char* letter;
    Long percents[3];
    Single score, safety, cost, loss;
};

const AlternativeFigures kAlternatives[] = {
    {"smith-creek", "A", {55, 0, 45}, 4.8F, 4.0F, 18000000.0F, 9500000.0F},
    {"smith-creek", "B", {75, 15, 10}, 6.3F, 6.2F, 11000000.0F, 3300000.0F},
    {"smith-creek", "C", {60, 0, 40}, 3.2F, 5.3F, 16000000.0F, 11000000.0F},
    {"juniper-gap", "A", {70, 0, 30}, 2.7F, 4.2F, 98000.0F, 0.0F},
    {"juniper-gap", "B", {80, 0, 20}, 0.0F, 0.0F, 0.0F, 0.0F},
    {"granite-fork-complex", "A", {35, 0, 65}, 3.2F, 3.3F, 130000000.0F, 210000000.0F},
    {"granite-fork-complex", "B", {60, 22, 18}, 5.9F, 5.0F, 91000000.0F, 79000000.0F},
    {"granite-fork-complex", "C", {70, 0, 30}, 4.2F, 4.7F, 85000000.0F, 140000000.0F},
    {"granite-fork-complex", "D", {55, 18, 27}, 4.1F, 5.3F, 69000000.0F, 140000000.0F},
    {"granite-fork-complex", "E", {58, 0, 42}, 4.1F, 4.3F, 100000000.0F, 150000000.0F},
    {"granite-fork-complex", "F", {60, 0, 40}, 2.8F, 5.3F, 78000000.0F, 220000000.0F},
};

struct OutcomeFigures
{
    const char* fire;
    const char* letter; // of the alternative; empty for the Extreme outcome
    Long index;
    Single score, safety, bySize, byList, daily, estimated, loss;
};

const OutcomeFigures kOutcomes[] = {
    {"smith-creek", "A", 1, 7.8F, 5.0F, 5520000.0F, 6780000.0F, 0.0F, 6780000.0F, 255000.0F},
    {"smith-creek", "B", 1, 7.2F, 6.8F, 6510000.0F, 7690000.0F, 0.0F, 7690000.0F, 1015000.0F},
    {"smith-creek", "B", 2, 5.0F, 5.2F, 10300000.0F, 0.0F, 12200000.0F, 12200000.0F, 3320000.0F},
    {"smith-creek", "C", 1, 4.5F, 7.0F, 6210000.0F, 0.0F, 0.0F, 6210000.0F, 5215000.0F},
    {"smith-creek", "", 1, 1.2F, 2.8F, 13000000.0F, 0.0F, 0.0F, 31000000.0F, 20720000.0F},
    {"juniper-gap", "A", 1, 3.8F, 6.0F, 0.0F, 0.0F, 0.0F, 140000.0F, 0.0F},
    {"juniper-gap", "B", 1, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F},
    {"juniper-gap", "", 1, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 0.0F},
    {"granite-fork-complex", "A", 1, 6.8F, 4.5F, 77500000.0F, 89600000.0F, 0.0F, 89600000.0F, 7960000.0F},
    {"granite-fork-complex", "B", 1, 7.5F, 5.8F, 54600000.0F, 74300000.0F, 0.0F, 74300000.0F, 16750000.0F},
    {"granite-fork-complex", "B", 2, 5.5F, 4.8F, 69400000.0F, 0.0F, 90400000.0F, 90400000.0F, 47060000.0F},
    {"granite-fork-complex", "C", 1, 5.5F, 5.6F, 76900000.0F, 57700000.0F, 0.0F, 57700000.0F, 61410000.0F},
    {"granite-fork-complex", "D", 1, 5.5F, 6.6F, 38000000.0F, 0.0F, 0.0F, 38000000.0F, 61990000.0F},
    {"granite-fork-complex", "D", 2, 4.2F, 5.5F, 43700000.0F, 0.0F, 0.0F, 43700000.0F, 98990000.0F},
    {"granite-fork-complex", "E", 1, 6.2F, 5.6F, 59500000.0F, 0.0F, 0.0F, 70000000.0F, 32850000.0F},
    {"granite-fork-complex", "F", 1, 3.8F, 7.1F, 30800000.0F, 0.0F, 0.0F, 30800000.0F, 150180000.0F},
    {"granite-fork-complex", "", 1, 1.2F, 2.6F, 39000000.0F, 0.0F, 0.0F, 150000000.0F, 323369984.0F},
};

class SampleFiresTest : public support::TestSession
{
protected:
    /// Opens a sample unless it is the one that stands open.
    void Show(const std::string& fire)
    {
        if (fire != m_shown) {
            Close();
            OpenSample(fire);
            m_shown = fire;
        }
    }
    static std::shared_ptr<c51Alternative> Alternative(const std::string& letter)
    {
        for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
            if (alternative->ItemName() == letter) {
                return alternative;
            }
        }
        return nullptr;
    }
    static std::shared_ptr<c53Outcome> Outcome(const std::string& letter, Long index)
    {
        return letter.empty() ? g53Outcomes::ExtremeOutcome() : Alternative(letter)->Outcome(index);
    }

private:
    std::string m_shown;
};

} // namespace

TEST_F(SampleFiresTest, Alternatives_HaveTheFiguresWorkedOutApart)
{
    for (const AlternativeFigures& each : kAlternatives) {
        SCOPED_TRACE(std::string(each.fire) + " " + each.letter);
        Show(each.fire);
        const auto alternative = Alternative(each.letter);
        ASSERT_NE(alternative, nullptr);
        for (Long index = 1; index <= 3; ++index) {
            EXPECT_EQ(alternative->OutcomePercent(index), each.percents[index - 1]);
        }
        EXPECT_EQ(alternative->ExpectedScore(), each.score);
        EXPECT_EQ(alternative->ExpectedSafetyScore(), each.safety);
        EXPECT_EQ(alternative->ExpectedCost(), each.cost);
        EXPECT_EQ(alternative->ExpectedLoss(), each.loss);
    }
}

TEST_F(SampleFiresTest, Outcomes_HaveTheFiguresWorkedOutApart)
{
    for (const OutcomeFigures& each : kOutcomes) {
        SCOPED_TRACE(std::string(each.fire) + " " + each.letter + " " + std::to_string(each.index));
        Show(each.fire);
        c53Outcome& outcome = *Outcome(each.letter, each.index);
        EXPECT_EQ(outcome.TotalScore(), each.score);
        EXPECT_EQ(outcome.SafetyScore(), each.safety);
        EXPECT_EQ(outcome.CostBySize(), each.bySize);
        EXPECT_EQ(outcome.SRUseCost(), each.byList);
        EXPECT_EQ(outcome.DailyCost(), each.daily);
        EXPECT_EQ(outcome.EstimatedCost(), each.estimated);
        EXPECT_EQ(outcome.EstimatedLoss(), each.loss);
    }
}

TEST_F(SampleFiresTest, MostCostEffective_AsWorkedOutApart)
{
    const std::pair<const char*, const char*> cases[] = {
        {"smith-creek", "B"}, {"juniper-gap", "B"}, {"granite-fork-complex", "D"}};
    for (const auto& [fire, letter] : cases) {
        Show(fire);
        EXPECT_EQ(g51Alternatives::MostCostEffectiveAlternative()->ItemName(), letter) << fire;
    }
}

TEST_F(SampleFiresTest, Selected_IsTheBestOfSmithCreekNoneOfJuniperGapAndAnotherOfGraniteFork)
{
    Show("smith-creek");
    EXPECT_EQ(g51Alternatives::SelectedAlternative()->ItemName(), "B");
    Show("juniper-gap");
    EXPECT_EQ(g51Alternatives::SelectedAlternative(), nullptr);
    Show("granite-fork-complex");
    EXPECT_NE(g51Alternatives::SelectedAlternative(), nullptr);
    EXPECT_NE(g51Alternatives::SelectedAlternative()->ItemName(), "D");
}
