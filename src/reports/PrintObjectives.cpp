#include "model/c41Objective.h"
#include "model/g41Objectives.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "reports/ObjectiveRows.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/u91Trace.h"
#include "values/Edition.h"

namespace {

using namespace ReportUtilities;
using platform::print::Plain;

// The figures are printed in every edition, also under the empty heads of this one.
constexpr const char* heads = kEdition == Edition::Basic
                                  ? "7800|>2100|^800;Objective||;"
                                  : "7800|>2100!|^800;Objective|Priority (high=10)|Weight;";

void ObjectiveHeader(const std::string& format)
{
    platform::print::PrintControl& printer = VSPrinter1();
    printer.SetFontSize(8.0);
    printer.SetFontBold(true);
    printer.SetTableBorder(platform::print::tableBorderNone);
    printer.SetSpaceAfter(60.0);
    printer.Table(format);
    printer.SetSpaceAfter(0.0);
    printer.SetFontSize(10.0);
}

void WriteRow(const c41Objective& objective)
{
    if (objective.bCategory()) {
        ObjectiveRows::WriteCategory(objective.ItemName());
        return;
    }
    ObjectiveRows::WriteItem({Plain("   " + objective.ItemName()),
                              Plain(platform::TextOf(objective.Priority())),
                              Plain(platform::Format(objective.Weight(), "0.00"))});
}

/// The description is written also where it is empty.
void WriteObjective(const c41Objective& objective)
{
    const double need = objective.bCategory() ? 1000.0 : 720.0;
    if (ObjectiveRows::RunsOver(objective.Description(), need)) {
        VSPrinter1().NewPage();
        VSPrinter1().SetCurrentY(ObjectiveRows::firstRow);
        ObjectiveHeader(heads);
    }
    WriteRow(objective);
    ObjectiveRows::WriteDescription(FixRtfList(objective.Description()));
}

} // namespace

namespace ReportSections {

void PrintObjectives()
{
    u91Trace::Trace("PrintObjectives");
    SaveFormat();
    SetPageHeader();
    PrintHeading("Objectives");
    VSPrinter1().SetCurrentY(ObjectiveRows::firstRow);
    VSPrinter1().SetMarginRight(2160.0);
    ObjectiveHeader(heads);
    for (const auto& objective : g41Objectives::ObjectiveCollection())
        WriteObjective(*objective);
    VSPrinter1().SetSpaceBefore(0.0);
    RestoreFormat();
}

} // namespace ReportSections
