#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "reports/DecisionTreeTexts.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"

#include <algorithm>

// Drawn by coordinates, in twips. A tree's top is y, and the rest is told from there.

namespace {

using namespace ReportUtilities;
using platform::print::Plain;
using platform::print::PrintText;

enum OutcomeIndex : Long { Target = 1, Fallback = 2 };

constexpr Long pageTop = 1440, pageEnd = 14400;
constexpr Double labelSize = 10.0, textSize = 9.0;
constexpr Double boxWidth = 3600.0;
constexpr std::size_t labelLength = 35;

/// A box for a rationale, relative to the tree.
struct RationaleBox
{
    Long x, y;
    const char* caption;
};

constexpr Double rationaleWidth = 3100.0;
constexpr RationaleBox besideTree{8100, 0, "Basis for probabilities for strategy"};
constexpr RationaleBox belowTarget{1500, 2350, "Basis for probabilities for strategy"};
constexpr RationaleBox belowFallback{4900, 2350, "Basis for probabilities for fallback"};

std::string Percent(Long percent) { return platform::TextOf(percent) + "%"; }

void TreeBox(Long x, Long y, const std::string& text, Double size, Integer align, Double width)
{
    platform::print::PrintControl& printer = VSPrinter1();
    printer.SetFontSize(size);
    printer.SetTextAlign(align);
    printer.TextBox(Plain(text), x, y, width);
}

/// The height of a text in a box of the trees, in the font in force.
Double TextHeight(const PrintText& text, Double width)
{
    constexpr bool wrap = true, calcOnly = true;
    VSPrinter1().TextBox(text, 0.0, 0.0, width, 0.0, wrap, calcOnly);
    return VSPrinter1().TextHei();
}

/// Stands on the line below it: one that is too wide for a line of the box grows upward.
void TreeLabel(Long x, Long y, const std::string& text)
{
    VSPrinter1().SetFontSize(labelSize);
    const Double more = TextHeight(Plain(text), boxWidth) - TextHeight(Plain(""), boxWidth);
    TreeBox(x, y - platform::ToLong(more), text, labelSize, platform::print::alignLeftBottom, boxWidth);
}

void TreeText(Long x, Long y, const std::string& text)
{
    TreeBox(x, y, text, textSize, platform::print::alignLeftBottom, boxWidth);
}

void TreePercent(Long x, Long y, const std::string& text)
{
    TreeBox(x - 300, y, text, textSize, platform::print::alignRightBottom, 600.0);
}

/// An outcome at the end of its line.
void TreeOutcome(c53Outcome& outcome, const char* label, Long x, Long y)
{
    TreeLabel(x + 25, y - 250, label);
    DrawReportLine(x, y, x + 3100, y);
    VSPrinter1().SetFontSize(textSize);
    TreeText(x + 75, y, DecisionTreeTexts::OutcomeValues(outcome));
}

/// The two lines of a fork, with the percentage of the upper one and what is left of 100.
struct Fork
{
    Long x, y;           // where it begins
    Long upper, lower;   // where its lines end
    Long upperY, lowerY; // of the percentages
};

void DrawFork(const Fork& fork, Long percent)
{
    constexpr Long width = 500;
    DrawReportLine(fork.x, fork.y, fork.x + width, fork.upper);
    TreePercent(fork.x - 100, fork.upperY, Percent(percent));
    DrawReportLine(fork.x, fork.y, fork.x + width, fork.lower);
    TreePercent(fork.x - 100, fork.lowerY, Percent(100 - percent));
}

/// The line of an alternative, with its expected values.
void DrawAlternative(c51Alternative& alternative, Long y)
{
    TreeLabel(745, y + 800, platform::Left(alternative.Label(), labelLength));
    DrawReportLine(720, y + 1050, 4020, y + 1050);
    TreeText(795, y + 1050, DecisionTreeTexts::ExpectedValues(alternative));
}

void DrawFallback(c53Outcome& fallback, Long y)
{
    TreeLabel(4545, y + 1600, "Fallback Plan");
    DrawReportLine(4520, y + 1850, 7620, y + 1850);
    DrawFork({7620, y + 1850, y + 900, y + 2500, y + 1150, y + 2100}, fallback.Success());
    TreeOutcome(fallback, "Fallback Outcome", 8120, y + 900);
    TreeOutcome(*g53Outcomes::ExtremeOutcome(), "Extreme Outcome", 8120, y + 2500);
}

PrintText WithCaption(const std::string& caption, const std::string& rationale)
{
    return Plain(caption + DecisionTreeTexts::lineEnd).Plain(rationale);
}

void WriteRationale(const RationaleBox& box, const std::string& rationale, Long y)
{
    VSPrinter1().TextBox(WithCaption(box.caption, rationale), box.x, y + box.y, rationaleWidth);
}

/// In the font of the last text. With a Fallback both boxes are written, or none.
void WriteRationales(c53Outcome& target, c53Outcome& fallback, Long y)
{
    const std::string& strategy = target.SuccessRationale();
    if (!fallback.bShow()) {
        if (!strategy.empty()) WriteRationale(besideTree, strategy, y);
        return;
    }
    if (strategy.empty() && fallback.SuccessRationale().empty()) return;
    WriteRationale(belowTarget, strategy, y);
    WriteRationale(belowFallback, fallback.SuccessRationale(), y);
}

void PrintOneTree(c51Alternative& alternative, Long y)
{
    VSPrinter1().SetFontSize(labelSize);
    VSPrinter1().SetFontBold(false);
    const auto target = alternative.Outcome(Target);
    const auto fallback = alternative.Outcome(Fallback);
    DrawAlternative(alternative, y);
    DrawFork({4020, y + 1050, y + 250, y + 1850, y + 500, y + 1350}, target->Success());
    TreeOutcome(*target, "Target Outcome", 4520, y + 250);
    if (fallback->bShow()) {
        DrawFallback(*fallback, y);
    } else {
        TreeOutcome(*g53Outcomes::ExtremeOutcome(), "Extreme Outcome", 4520, y + 1850);
    }
    WriteRationales(*target, *fallback, y);
}

/// The height of a rationale under a line, which stands for its caption.
Long RationaleHeight(c53Outcome& outcome)
{
    return platform::ToLong(TextHeight(WithCaption("", outcome.SuccessRationale()), rationaleWidth));
}

// The rules differ on purpose: a rationale beside a tree needs no room of its own.

Long HeightWithoutFallback(c53Outcome& target)
{
    constexpr Long least = 3500;
    return MaxLong(RationaleHeight(target), least);
}

Long HeightWithFallback(c53Outcome& target, c53Outcome& fallback)
{
    constexpr Long tree = 3000, blank = 1000, least = 4000;
    const Long height = MaxLong(RationaleHeight(target), RationaleHeight(fallback));
    return height > blank ? platform::Add(height, tree) : least;
}

Long TreeHeight(c51Alternative& alternative)
{
    const auto target = alternative.Outcome(Target);
    const auto fallback = alternative.Outcome(Fallback);
    return fallback->bShow() ? HeightWithFallback(*target, *fallback) : HeightWithoutFallback(*target);
}

/// A tree is never parted over pages. The first one is not asked whether it fits.
void PrintTrees()
{
    const auto& alternatives = g51Alternatives::AlternativeCollection();
    Long y = pageTop;
    for (Long place = 1; place <= alternatives.Count(); ++place) {
        c51Alternative& alternative = *alternatives.At(place);
        PrintOneTree(alternative, y);
        y = platform::Add(y, TreeHeight(alternative));
        if (place == alternatives.Count()) return;
        if (platform::Add(y, TreeHeight(*alternatives.At(place + 1))) > pageEnd) {
            VSPrinter1().NewPage();
            y = pageTop;
        }
    }
}

} // namespace

namespace ReportSections {

void PrintDecisionTree()
{
    u91Trace::Trace("PrintDecisionTree");
    SaveFormat();
    SetPageHeader();
    PrintHeading("Decision Tree");
    PrintTrees();
    RestoreFormat();
}

} // namespace ReportSections
