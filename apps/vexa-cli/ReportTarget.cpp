#include "vexa-cli/ReportTarget.h"

#include "platform/print/PngPages.h"
#include "platform/print/PrintError.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace vexa_cli {

namespace {

namespace fs = std::filesystem;

constexpr Double kDotsPerInch = 144.0; // an A4 page is 1190 x 1684: easily read on any screen

std::string LowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

/// A folder of its own within another, that goes with the object.
class WorkFolder
{
public:
    explicit WorkFolder(const fs::path& parent)
        : m_path(parent / (".pages-" + std::to_string(static_cast<long>(::getpid()))))
    {
        fs::create_directories(m_path);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    const fs::path& Path() const { return m_path; }

private:
    fs::path m_path;
};

/// "page-7.png"
bool IsPage(const std::string& name)
{
    constexpr std::string_view start = "page-";
    constexpr std::string_view end = ".png";
    if (name.size() <= start.size() + end.size() || !name.starts_with(start) || !name.ends_with(end)) {
        return false;
    }
    return std::all_of(
        name.begin() + start.size(), name.end() - end.size(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Pages that another number of pages gave other names must not stand among those of this report.
void RemovePages(const fs::path& folder)
{
    std::vector<fs::path> pages;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file() && IsPage(entry.path().filename().string())) {
            pages.push_back(entry.path());
        }
    }
    for (const fs::path& page : pages) {
        fs::remove(page);
    }
}

} // namespace

std::optional<ReportKind> ReportKindOf(const std::string& target)
{
    const std::string extension = LowerCase(fs::path(target).extension().string());
    if (extension == ".pdf") {
        return ReportKind::Pdf;
    }
    if (extension == ".rtf") {
        return ReportKind::Rtf;
    }
    std::error_code ignored;
    const bool isFolder = fs::is_directory(target, ignored) || extension.empty();
    return isFolder && !target.empty() ? std::optional(ReportKind::Pictures) : std::nullopt;
}

void WritePictures(const platform::print::Document& document,
                   const std::string& folder,
                   const platform::print::PageProgress& progress)
{
    try {
        const WorkFolder work(folder);
        const auto pages = platform::print::WritePng(document, work.Path().string(), kDotsPerInch, progress);
        RemovePages(folder);
        for (const fs::path page : pages) {
            fs::rename(page, fs::path(folder) / page.filename());
        }
    } catch (const fs::filesystem_error& error) {
        throw platform::print::PrintError(folder, error.code().message());
    }
}

} // namespace vexa_cli
