#include "convert/ConversionQuestion.h"

#include "platform/base/Desktop.h"
#include "session/u14Properties.h"

#include <utility>

namespace ConversionQuestion {

bool Ask(std::vector<std::string> losses, const std::string& saved)
{
    platform::Message message;
    message.title = "Convert to VEXA Plus 06 File?";
    message.lines = std::move(losses);
    message.lines.insert(message.lines.begin(), "This file must be modified to work with VEXA Plus 06.");
    if (u14Properties::Property_Get("AnalysisLevel") == "3") {
        message.lines.emplace_back("All VEXA Worst Case data will be lost.");
    }
    message.lines.push_back(saved);
    message.lines.emplace_back(
        "Once converted, the file cannot be opened with a previous version of VEXAPlus.");
    message.lines.emplace_back();
    message.lines.emplace_back("Do you want to convert this file to a VEXA Plus 06 file?");
    message.buttons = platform::Buttons::OkCancel;
    message.preset = platform::Answer::Cancel;
    message.icon = platform::Icon::Question;
    return platform::TheDesktop().Show(message) == platform::Answer::Ok;
}

} // namespace ConversionQuestion
