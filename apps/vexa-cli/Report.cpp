#include "platform/base/Files.h"
#include "platform/base/LongWork.h"
#include "platform/print/PrintControl.h"
#include "platform/print/Toolkit.h"
#include "reports/ReportRun.h"
#include "reports/ReportUtilities.h"
#include "vexa-cli/Commands.h"
#include "vexa-cli/OpenFile.h"
#include "vexa-cli/Progress.h"
#include "vexa-cli/ReportTarget.h"

#include <array>
#include <ostream>

namespace vexa_cli {

namespace {

/// What laying out pages needs, made for this command alone.
class Reports
{
public:
    Reports() = default;
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;
    ~Reports() { ReportUtilities::EndReports(); } // before the toolkit goes, whose fonts it holds

private:
    platform::print::Toolkit m_toolkit;
};

/// The sections asked for; all of them when none is named.
void Select(const std::vector<int>& sections)
{
    std::array<bool, ReportRun::sectionCount> ticked{};
    ticked.fill(sections.empty());
    for (const int section : sections) {
        ticked.at(static_cast<std::size_t>(section) - 1) = true;
    }
    ReportRun::SelectSections(ticked);
}

void TellLayout()
{
    ReportRun::OnProgress([](const ReportRun::Progress& progress) {
        const double part = static_cast<double>(progress.done) / ReportRun::nSelected();
        platform::TellProgress(ReportRun::SectionName(progress.section), part);
        return true;
    });
}

/// How far the drawing of pages has come.
platform::print::PageProgress DrawingOf(std::size_t pages)
{
    return [pages](Long page) {
        platform::TellProgress("Drawing", static_cast<double>(page) / static_cast<double>(pages));
        return true;
    };
}

void Write(ReportKind kind, const std::string& target)
{
    if (kind == ReportKind::Rtf) {
        ReportRun::SaveSelectedSections(target);
        return;
    }
    ReportRun::PreviewSelectedSections();
    const platform::print::Document& pages = ReportUtilities::VSPrinter1().Pages();
    const platform::print::PageProgress progress = DrawingOf(pages.pages.size());
    if (kind == ReportKind::Pdf) {
        WritePdf(pages, target, progress);
    } else {
        WritePictures(pages, target, progress);
    }
}

ExitStatus WriteReport(const Request& request, ReportKind kind, Console& console)
{
    const OpenFile file(request.files.front(), console);
    if (file.Status() != ExitStatus::Done) {
        return file.Status();
    }
    const Reports reports;
    const FileProgress progress(console.err);
    Select(request.reportSections);
    TellLayout();
    Write(kind, request.reportTarget);
    return ExitStatus::Done;
}

} // namespace

ExitStatus Report(const Request& request, Console& console)
{
    const std::optional<ReportKind> kind = ReportKindOf(request.reportTarget);
    if (!kind) {
        console.err << "OUT must end in .pdf or .rtf, or be a folder: " << request.reportTarget << '\n';
        return ExitStatus::Usage;
    }
    if (platform::IsSameFile(request.files.front(), request.reportTarget)) {
        console.err << "OUT is the data file itself: " << request.reportTarget << '\n';
        return ExitStatus::Usage;
    }
    try {
        return WriteReport(request, *kind, console);
    } catch (const platform::print::PrintError& error) { // its words name the file that was to be written
        console.err << error.what() << '\n';
        return ExitStatus::Failed;
    }
}

} // namespace vexa_cli
