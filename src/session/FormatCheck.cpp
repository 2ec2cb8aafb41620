#include "session/FormatCheck.h"

#include "platform/base/Desktop.h"
#include "session/SessionLinks.h"
#include "session/SessionState.h"
#include "session/u91Trace.h"

#include <functional>
#include <initializer_list>

namespace FormatCheck {

namespace {

using Step = std::function<void()>;

bool Relabel()
{
    gProperties->Edit();
    gProperties->Set("Value", std::string(kDataFormat));
    gProperties->Update();
    return true;
}

/// Asks once, then runs the steps.
bool Convert(const std::function<bool()>& ask, std::initializer_list<Step> steps)
{
    if (!ask || !ask()) {
        return false;
    }
    for (const Step& step : steps) {
        if (!step) {
            u91Trace::TraceError("This version has no conversion for the file's format");
            platform::ShowMessage({"This version cannot convert files of older formats yet.",
                                   "Nothing in the file was changed."});
            return false;
        }
    }
    for (const Step& step : steps) {
        step();
    }
    return true;
}

bool RefuseOldEdition()
{
    platform::Message message;
    message.title = "VEXA Plus '98 File";
    message.lines = {"This is a VEXA Plus '98 file.", "It cannot be opened using VEXA Plus 06."};
    message.icon = platform::Icon::Stop;
    platform::TheDesktop().Show(message);
    return false;
}

bool RefuseUnknown(const std::string& formatID)
{
    u91Trace::TraceError("Unknown format \"" + formatID + "\"");
    platform::ShowMessage(
        {"This file uses an incompatible format", "and cannot be opened using VEXA Plus 06."});
    return false;
}

} // namespace

bool BringToCurrent(const std::string& formatID)
{
    const SessionLinks& links = Links();
    if (formatID == kDataFormat) {
        return true;
    }
    if (formatID == "06.00.beta") {
        return Relabel();
    }
    if (formatID == "05.01.02") {
        return Convert(links.QueryConvertTo6, {links.Convert5to6});
    }
    if (formatID == "04.01.01") {
        return Convert(links.QueryConvertTo5, {links.Convert41to5, links.Convert5to6});
    }
    if (formatID == "4.00.00" || formatID == "3.93.00") {
        return Convert(links.QueryConvertTo5, {links.Convert4to41, links.Convert41to5, links.Convert5to6});
    }
    return formatID == "3.00.00" ? RefuseOldEdition() : RefuseUnknown(formatID);
}

} // namespace FormatCheck
