#include "worksheets/GetRtfFileName.h"

#include "platform/base/Desktop.h"
#include "platform/base/Files.h"
#include "platform/base/ProgramFolder.h"
#include "platform/print/PrintError.h"
#include "session/u11Datafile.h"
#include "session/u14Properties.h"
#include "session/u91Trace.h"

#include <exception>

namespace {

constexpr std::size_t kExtension = 4; // ".qel"

/// What the dialog comes up with. What cannot be told leaves the dialog's own.
void SetDefaults(platform::FileRequest& request)
{
    try {
        request.folder = platform::InProgramFolder("docs");
        const std::string dataFile = u11Datafile::DatafileName();
        if (dataFile.size() < kExtension) return;
        request.fileName = dataFile.substr(0, dataFile.size() - kExtension) + ".rtf";
    } catch (const std::exception& error) {
        u91Trace::TraceWarning(std::string("GetRtfFileName: ") + error.what());
    }
}

} // namespace

std::string GetRtfFileName()
{
    u91Trace::Trace("GetRtfFileName");
    platform::FileRequest request;
    request.kind = platform::FileRequest::Kind::Save;
    request.title = "Save as RTF File";
    request.extension = "rtf";
    request.filter = "RTF files (*.rtf)|*.rtf|All Files (*.*)|*.*";
    request.asksBeforeReplacing = true; // nothing else does, and the file there may have been worked on
    SetDefaults(request);
    const std::string path = platform::TheDesktop().AskFile(request).value_or(std::string());
    if (path.empty() || !platform::IsSameFile(path, OpenDataFile())) return path;
    platform::ShowMessage({platform::print::PrintError::OverOpenFile(path).what()});
    return {};
}

std::string OpenDataFile() { return u14Properties::Property_Get("FullFileName"); }
