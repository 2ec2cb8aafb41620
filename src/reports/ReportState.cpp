#include "reports/ReportState.h"

#include "reports/ReportRun.h"

namespace ReportUtilities {

ReportState& State()
{
    static ReportState state;
    return state;
}

platform::print::PrintControl& VSPrinter1()
{
    auto& printer = State().printer;
    if (printer == nullptr) {
        printer = std::make_unique<platform::print::PrintControl>();
        printer->OnNewPage(&ReportRun::vsPrinter1_NewPage);
    }
    return *printer;
}

void EndReports()
{
    State() = ReportState();
    ReportRun::SelectSections({});
    ReportRun::OnProgress({});
}

bool bSavingRtf() { return State().savingRtf; }

void SetbSavingRtf(bool saving) { State().savingRtf = saving; }

Integer nRtfLists() { return State().rtfLists; }

const std::string& sPrintFont() { return State().printFont; }

} // namespace ReportUtilities
