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
};

ReportState& State();

} // namespace ReportUtilities
