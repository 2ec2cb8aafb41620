#include "session/EditionCheck.h"

#include "platform/base/Desktop.h"
#include "session/SessionState.h"
#include "session/u14Properties.h"

namespace EditionCheck {

namespace {

bool HasLandUnits() { return OpenDatabase().OpenTable("FMZList").RecordCount() > 0; }

bool Refuse(const std::string& fileEdition, const std::string& edition)
{
    platform::ShowMessage(
        {"This is a VEXA " + fileEdition + " file.", "It cannot be opened in " + edition + " mode."});
    return false;
}

bool RefuseAsStandard()
{
    u14Properties::Property_Set("ProgramID", "Standard");
    return Refuse("Standard", "Basic");
}

/// The question before a file leaves the editions named by `lost`.
bool ConfirmConversion(const std::string& from, const std::string& to, const std::string& lost)
{
    platform::Message message;
    message.title = "Convert to VEXA " + to + "?";
    message.lines = {"This file is a VEXA " + from + " file.",
                     "If you open it in " + to + " mode, you will no longer be able to open it in " + lost +
                         " mode.",
                     "Do you want to convert the file to a VEXA " + to + " file?"};
    message.buttons = platform::Buttons::YesNo;
    message.preset = platform::Answer::No;
    return platform::TheDesktop().Show(message) == platform::Answer::Yes;
}

bool MarkAndPass(const std::string& programID)
{
    u14Properties::Property_Set("ProgramID", programID);
    return true;
}

} // namespace

bool CheckMode(std::string_view edition, const std::string& programID)
{
    if (edition == "Basic") {
        return CheckBasicMode(programID);
    }
    if (edition == "Standard") {
        return CheckStandardMode(programID);
    }
    return edition != "Advanced" || CheckAdvancedMode(programID);
}

bool CheckBasicMode(const std::string& programID)
{
    if (programID == "Basic") {
        return true;
    }
    if (programID == "Standard") {
        return Refuse("Standard", "Basic");
    }
    if (HasLandUnits()) {
        return RefuseAsStandard();
    }
    return programID == "Advanced" ? Refuse("Advanced", "Basic") : MarkAndPass("Basic");
}

bool CheckStandardMode(const std::string& programID)
{
    if (programID == "Standard") {
        return true;
    }
    if (programID == "Advanced") {
        return Refuse("Advanced", "Standard");
    }
    if (programID == "Basic") {
        // The mark stays "Basic" after a Yes: kept.
        return ConfirmConversion("Basic", "Standard", "Basic") && MarkAndPass("Basic");
    }
    return MarkAndPass("Standard");
}

bool CheckAdvancedMode(const std::string& programID)
{
    if (programID == "Advanced") {
        return true;
    }
    if (programID == "Basic") {
        return ConfirmConversion("Basic", "Advanced", "Basic or Standard") && MarkAndPass("Advanced");
    }
    return (gCreatingNewFile || ConfirmConversion("Standard", "Advanced", "Standard")) &&
           MarkAndPass("Advanced");
}

} // namespace EditionCheck
