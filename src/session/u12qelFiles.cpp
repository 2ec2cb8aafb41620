#include "session/u12qelFiles.h"

#include "platform/base/Desktop.h"
#include "platform/base/Files.h"
#include "session/u13Folders.h"
#include "session/u14Properties.h"

namespace u12qelFiles {

namespace {

platform::FileRequest Request(platform::FileRequest::Kind kind, const char* title)
{
    platform::FileRequest request;
    request.kind = kind;
    request.title = title;
    request.extension = "qel";
    request.filter = "VEXA Plus files (*.qel)|*.qel|All Files (*.*)|*.*";
    return request;
}

std::string Ask(const platform::FileRequest& request)
{
    return platform::TheDesktop().AskFile(request).value_or("");
}

/// The path, or nothing where a file stands in its place and the user keeps that.
std::string UnlessKept(const std::string& path, const char* title)
{
    return path.empty() || !platform::FileExists(path) || ConfirmReplace(title) ? path : std::string();
}

} // namespace

bool ConfirmReplace(const char* title)
{
    platform::Message message;
    message.title = title;
    message.lines = {"The file already exists.  Do you want to overwrite it?"};
    message.buttons = platform::Buttons::YesNo;
    message.preset = platform::Answer::No;
    message.icon = platform::Icon::Stop;
    return platform::TheDesktop().Show(message) == platform::Answer::Yes;
}

std::string ChooseFileToOpen()
{
    platform::FileRequest request = Request(platform::FileRequest::Kind::Open, "Open VEXA Plus file");
    request.folder = u13Folders::GetDataFolder();
    return Ask(request);
}

std::string ChooseNewFile()
{
    platform::FileRequest request = Request(platform::FileRequest::Kind::Save, "Create new VEXA Plus file");
    request.folder = u13Folders::GetDataFolder();
    request.fileName = "Fire1.qel";
    return UnlessKept(Ask(request), kReplaceTitle);
}

std::string ChooseSaveAsFile()
{
    platform::FileRequest request = Request(platform::FileRequest::Kind::Save, "Save As New VEXA Plus file");
    request.fileName = "Fire1.qel";
    const std::string path = Ask(request);
    const std::string current = u14Properties::Property_Get("FullFileName");
    if (path.empty() || path == current || platform::IsSameFile(path, current)) {
        return {};
    }
    // Another title than for a new file: kept.
    return UnlessKept(path, "Delete");
}

} // namespace u12qelFiles
