#include "reports/ImpactTable.h"

#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "reports/ReportUtilities.h"
#include "session/u92Utilities.h"
#include "values/g33FMUs.h"
#include "values/g34NVCResources.h"
#include "values/g36ThreatenedItems.h"

#include <array>
#include <functional>
#include <memory>
#include <string>

namespace {

using namespace ReportUtilities;
using namespace platform::print;

constexpr Long resourceCount = 14;
constexpr Long sure = 100; // percent
constexpr Long digits = 3; // of what is rounded here
constexpr const char* heads = "2880!|^1800!|^1800!|^1800!|^1800;";
constexpr const char* row = "2880!|>1800!|>1800!|>1800!|>1800;";
constexpr const char* totalRow = ">2880!|>1800!|>1800!|>1800!|>1800;";

/// The outcomes that an alternative's table compares.
struct Outcomes
{
    std::shared_ptr<c53Outcome> target, fallback, extreme;
};
/// The text of one figure of an outcome.
using Value = std::function<std::string(c53Outcome&)>;

/// A name that long takes two lines.
bool IsLong(const std::string& name)
{
    constexpr std::size_t oneLine = 35; // characters
    return platform::Left(name, oneLine).size() < name.size();
}

Long CountRows()
{
    Long rows = 0;
    for (const auto& item : g36ThreatenedItems::ThreatenedItemCollection())
        rows += IsLong(item->ItemName()) ? 2 : 1;
    for (Long resource = 1; resource <= resourceCount; ++resource)
        rows += g33FMUs::bResourceValueAnywhere(resource) ? 1 : 0;
    return rows;
}

std::string FallbackCell(const Outcomes& outcomes, const Value& value)
{
    if (outcomes.target->Success() == sure) return "n/a";
    return outcomes.fallback->bShow() ? value(*outcomes.fallback) : std::string();
}

/// Of a Fallback the success alone is asked, not whether it is shown.
std::string ExtremeCell(const Outcomes& outcomes, const Value& value)
{
    const bool isCutOff = outcomes.target->Success() == sure || outcomes.fallback->Success() == sure;
    return isCutOff ? "n/a" : value(*outcomes.extreme);
}

/// One row is a table of its own. What is behind the Extreme outcome only the total has.
void WriteRow(const char* format,
              const std::string& name,
              const Outcomes& outcomes,
              const Value& value,
              const std::string& expected = {})
{
    VSPrinter1().Table(format,
                       {{Plain(name),
                         Plain(value(*outcomes.target)),
                         Plain(FallbackCell(outcomes, value)),
                         Plain(ExtremeCell(outcomes, value)),
                         Plain(expected)}});
}

void WriteHeads(const c53Outcome& fallback)
{
    VSPrinter1().Table(heads,
                       {{"Item",
                         "Target Outcome",
                         fallback.bShow() ? "Fallback Outcome" : "",
                         "Extreme Case Outcome",
                         "Expected Impact"}});
}

void WriteResources(const Outcomes& outcomes)
{
    for (Long resource = 1; resource <= resourceCount; ++resource) {
        if (!g33FMUs::bResourceValueAnywhere(resource)) continue;
        WriteRow(row, g34NVCResources::NVCResourceName(resource), outcomes, [=](c53Outcome& outcome) {
            return platform::Format(outcome.NVCResourceLoss(resource), "#,0");
        });
    }
}

std::string RoundedText(Single dollars, const char* format)
{
    return platform::Format(u92Utilities::RoundSignificant(Double(dollars), digits), format);
}

void WriteItems(const Outcomes& outcomes)
{
    for (const auto& item : g36ThreatenedItems::ThreatenedItemCollection()) {
        const Long key = item->ItemKey();
        WriteRow(row, item->ItemName(), outcomes, [=](c53Outcome& outcome) {
            return RoundedText(outcome.SingleItemImpact(key), "#,0");
        });
    }
}

void WriteTotal(c51Alternative& alternative, const Outcomes& outcomes)
{
    WriteRow(
        totalRow,
        "Total (rounded)",
        outcomes,
        [](c53Outcome& outcome) { return RoundedText(outcome.EstimatedLoss(), "$#,0"); },
        platform::Format(alternative.ExpectedLoss(), "$#,0"));
}

} // namespace

namespace ImpactTable {

Long ImpactLayout()
{
    struct Step
    {
        Long rows; // at least
        Long code;
    };
    constexpr std::array<Step, 7> steps{{{28, 19}, {25, 28}, {16, 29}, {14, 38}, {11, 39}, {9, 48}, {0, 49}}};
    const Long rows = CountRows();
    const Step* step = steps.begin();
    while (rows < step->rows)
        ++step;
    return step->code;
}

void PrintImpactTable(c51Alternative& alternative, Long fontSize)
{
    constexpr Double belowBanner = 400.0, aboveTotal = 50.0;
    const Outcomes outcomes{alternative.Outcome(1), alternative.Outcome(2), g53Outcomes::ExtremeOutcome()};
    PrintControl& printer = VSPrinter1();
    printer.Paragraph("");
    PrintBanner("Alternative " + alternative.Label());
    printer.SetCurrentY(printer.MarginTop() + belowBanner);
    printer.SetTableBorder(tableBorderNone);
    printer.SetFontSize(fontSize + 1);
    WriteHeads(*outcomes.fallback);
    printer.SetFontSize(fontSize);
    printer.SetTableBorder(tableBorderAbove);
    printer.SetFontBold(false);
    WriteResources(outcomes);
    WriteItems(outcomes);
    printer.SetSpaceBefore(aboveTotal);
    printer.SetFontSize(fontSize + 1);
    WriteTotal(alternative, outcomes);
    printer.SetSpaceBefore(0.0);
}

} // namespace ImpactTable
