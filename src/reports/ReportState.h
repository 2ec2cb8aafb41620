#pragma once

#include "platform/print/PrintControl.h"
#include "reports/ReportUtilities.h"

#include <memory>
#include <string>
#include <vector>

namespace ReportUtilities {

/// What lasts as long as the session, shared by the files of the module.
struct ReportState
{
    std::unique_ptr<platform::print::PrintControl> printer;
    bool savingRtf = false;
    Integer rtfLists = 0; // nothing resets it: the numbers go on rising over the exports of a session
    std::string printFont;
    std::vector<PrintFormat> formatStack{1};
    // Of the cost report. Once true they stay so, over every file opened.
    bool bCostByFMU = false;     // a file had more than one land unit
    bool bResourcesUsed = false; // an outcome had a resource use; kept, read by nothing
};

ReportState& State();

} // namespace ReportUtilities
