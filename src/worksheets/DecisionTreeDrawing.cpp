#include "worksheets/DecisionTreeDrawing.h"

#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"

namespace {

constexpr std::size_t kLabelCharacters = 35;
constexpr Long kRowPitch = 180;      // between the rows of an outcome
constexpr Long kTitleHeight = 200;   // of a title above its line
constexpr Long kLeafWidth = 2650;    // of the line under a leaf's title
constexpr Long kLeafTextIndent = 60; // of title and rows from the start of that line

std::string Dollars(Single amount) { return platform::Format(amount, "$#,0"); }
std::string Score(Single score) { return platform::Format(score, "0.0"); }
std::string Percent(Long percent) { return platform::TextOf(percent) + "%"; }

/// Draws the parts of one tree; the places are those of the forks and leaves.
class Pencil
{
public:
    void Write(Long x, Long y, const std::string& text) { m_drawing.texts.push_back({x, y, text}); }
    void Rule(Long x1, Long y1, Long x2, Long y2) { m_drawing.lines.push_back({x1, y1, x2, y2}); }

    void Head(c51Alternative& alternative);
    /// The line to the upper branch with its percent, then the line to the lower branch with the rest of 100.
    struct Fork
    {
        Long x, y;                     // where both lines begin
        Long end, upper, lower;        // x of both ends, y of each
        Long percentX, upperY, lowerY; // where the percents are written
    };
    void Branches(const Fork& fork, Long success);
    /// A title above the line of a branch that begins at (x, y).
    void Leaf(Long x, Long y, const std::string& title);
    void Leaf(Long x, Long y, const std::string& title, c53Outcome& outcome);

    DecisionTreeDrawing Take() { return std::move(m_drawing); }

private:
    DecisionTreeDrawing m_drawing;
};

void Pencil::Head(c51Alternative& alternative)
{
    Write(120, 730, platform::Left(alternative.Label(), kLabelCharacters));
    Rule(60, 930, 3060, 930);
    Write(120, 930, "Expected Objectives Score:  " + Score(alternative.ExpectedScore()));
    Write(120, 1130, "Expected Safety Score:  " + Score(alternative.ExpectedSafetyScore()));
    Write(120, 1330, "Expected Cost:  " + Dollars(alternative.ExpectedCost()));
    Write(120, 1530, "Expected Loss:  " + Dollars(alternative.ExpectedLoss()));
}

void Pencil::Branches(const Fork& fork, Long success)
{
    Rule(fork.x, fork.y, fork.end, fork.upper);
    Write(fork.percentX, fork.upperY, Percent(success));
    Rule(fork.x, fork.y, fork.end, fork.lower);
    Write(fork.percentX, fork.lowerY, Percent(platform::Subtract(100, success)));
}

void Pencil::Leaf(Long x, Long y, const std::string& title)
{
    Write(x + kLeafTextIndent, y - kTitleHeight, title);
    Rule(x, y, x + kLeafWidth, y);
}

void Pencil::Leaf(Long x, Long y, const std::string& title, c53Outcome& outcome)
{
    Leaf(x, y, title);
    const std::string rows[] = {
        "Size:  " + outcome.FireSize() + " acres. Control: " + platform::TextOf(outcome.ControlTime()) +
            " days",
        "Objectives Score:  " + Score(outcome.TotalScore()),
        "Safety Score:  " + Score(outcome.SafetyScore()),
        "Estimated Cost:  " + Dollars(outcome.EstimatedCost()),
        "Estimated Loss:  " + Dollars(outcome.EstimatedLoss()),
    };
    for (const std::string& row : rows) {
        Write(x + kLeafTextIndent, y, row);
        y += kRowPitch;
    }
}

// The forks show each Success as it stands, given that the branch is reached: not the percents that weigh the
// expected values.
constexpr Pencil::Fork kFirstFork = {3060, 930, 3560, 240, 1620, 2960, 420, 1150};
constexpr Pencil::Fork kSecondFork = {6210, 1620, 6710, 770, 2150, 6110, 950, 1870};

void DrawFallback(Pencil& pencil, c53Outcome& fallback)
{
    pencil.Leaf(3560, 1620, "Fallback Plan");
    pencil.Branches(kSecondFork, fallback.Success());
    pencil.Leaf(6710, 770, "Fallback Outcome", fallback);
    pencil.Leaf(6710, 2150, "Extreme Outcome", *g53Outcomes::ExtremeOutcome());
}

} // namespace

std::string DecisionTreeDrawing::Words() const
{
    std::vector<std::string> words;
    for (const Text& entry : texts) {
        words.push_back(entry.text);
    }
    return platform::JoinLines(words);
}

DecisionTreeDrawing DrawDecisionTree(c51Alternative& alternative)
{
    Pencil pencil;
    pencil.Head(alternative);
    const auto target = alternative.Outcome(1);
    pencil.Branches(kFirstFork, target->Success());
    pencil.Leaf(3560, 240, "Target Outcome", *target);
    // A Fallback of 0 percent is shown too; only -1 means that there is none.
    if (const auto fallback = alternative.Outcome(2); fallback->bShow()) {
        DrawFallback(pencil, *fallback);
    } else {
        pencil.Leaf(3560, 1620, "Extreme Outcome", *g53Outcomes::ExtremeOutcome());
    }
    return pencil.Take();
}
