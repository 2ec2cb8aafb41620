#include "reports/ReportRun.h"

#include "platform/base/Desktop.h"
#include "platform/base/Errors.h"
#include "platform/print/PrintControl.h"
#include "reports/ReportSections.h"
#include "reports/ReportUtilities.h"
#include "session/g0Items.h"
#include "session/u91Trace.h"

#include <algorithm>
#include <utility>

namespace ReportRun {

namespace {

using ReportUtilities::VSPrinter1;
using Ticks = std::array<bool, sectionCount>;

struct Section
{
    const char* name;
    void (*produce)();
};

constexpr std::array<Section, sectionCount> sections{{
    {"Situation", &ReportSections::PrintSituation},
    {"Decision, Rationale", &ReportSections::PrintDecisionSummary},
    {"Signature Page", &ReportSections::PrintDailyReview},
    {"Suppression Objectives", &ReportSections::PrintObjectives},
    {"Safety Issues", &ReportSections::PrintSafetyIssues},
    {"Alternatives", &ReportSections::PrintAlternatives},
    {"Estimated Suppression Cost", &ReportSections::PrintCosts},
    {"Values Threatened", &ReportSections::PrintImpacts},
    {"Safety Assessment", &ReportSections::PrintSafetyAssessment},
    {"Decision Tree", &ReportSections::PrintDecisionTree},
}};

constexpr Double shortPage = 14400.0, shortPageMargin = 360.0;
constexpr Double headingMargin = 900.0;
constexpr Double movedMargin = 4300.0, usualMargin = 1440.0;

Integer g_selected = 0;
Ticks g_ticked{};
std::function<bool(const Progress&)> g_listener;
Progress g_progress;

bool IsSection(Integer number) { return number >= 1 && number <= sectionCount; }

std::size_t PlaceOf(Integer number)
{
    if (!IsSection(number)) throw platform::OutOfBounds("sections of the report", number);
    return static_cast<std::size_t>(number) - 1;
}

bool TellProgress() { return !g_listener || g_listener(g_progress); }

bool TellPage(Long page)
{
    g_progress.page = page;
    return TellProgress();
}

std::string Title()
{
    const std::string fireName = g0Items::GetItem(g0Items::FireName)->Body();
    return fireName.empty() ? "VEXA Report" : "VEXA Report - " + fireName;
}

void SetUpPage()
{
    platform::print::PrintControl& printer = VSPrinter1();
    // A section's heading stands above 1440, where the sections begin what is below it.
    printer.SetMarginTop(headingMargin);
    printer.SetCurrentY(headingMargin);
    if (printer.PageHeight() < shortPage) printer.SetMarginBottom(shortPageMargin);
}

void ProduceSections()
{
    const Integer count = nSelected();
    for (Integer number = 1; number <= sectionCount; ++number) {
        if (!bSelected(number)) continue;
        g_progress.section = number;
        ProduceSection(number);
        ++g_progress.done;
        platform::TheDesktop().LetEventsRun();
        if (!TellProgress()) throw platform::print::PrintCancelled();
        if (g_progress.done < count) VSPrinter1().NewPage();
    }
}

/// The state of an export, ended on every road.
class Export
{
public:
    explicit Export(const std::string& fileName)
    {
        ReportUtilities::SetbSavingRtf(true);
        VSPrinter1().SetExportFile(fileName);
        VSPrinter1().SetExportFormat(platform::print::exportRtf);
    }
    Export(const Export&) = delete;
    Export& operator=(const Export&) = delete;
    ~Export()
    {
        VSPrinter1().SetExportFile("");
        ReportUtilities::SetbSavingRtf(false);
    }
};

} // namespace

Integer nSelected() { return g_selected; }

bool bSelected(Integer section) { return g_ticked[PlaceOf(section)]; }

void SelectSections(const Ticks& ticked)
{
    g_ticked = ticked;
    g_selected = static_cast<Integer>(std::count(ticked.begin(), ticked.end(), true));
}

const char* SectionName(Integer section) { return sections[PlaceOf(section)].name; }

void OnProgress(std::function<bool(const Progress&)> listener) { g_listener = std::move(listener); }

void PreviewSelectedSections()
{
    u91Trace::Trace("PreviewSelectedSections");
    const platform::Hourglass hourglass;
    VSPrinter1().SetPreview(true);
    ProduceSelectedSections();
}

void PrintSelectedSections()
{
    u91Trace::Trace("PrintSelectedSections");
    const platform::Hourglass hourglass;
    VSPrinter1().SetPreview(false);
    ProduceSelectedSections();
}

void SaveSelectedSections(const std::string& fileName)
{
    u91Trace::Trace("SaveSelectedSections");
    if (fileName.empty()) return;
    const platform::Hourglass hourglass;
    platform::TheDesktop().LetEventsRun();
    const Export exporting(fileName);
    ProduceSelectedSections();
}

void ProduceSelectedSections()
{
    u91Trace::Trace("ProduceSelectedSections");
    platform::print::PrintControl& printer = VSPrinter1();
    g_progress = Progress();
    printer.OnProgress(&TellPage);
    try {
        printer.SetTitle(Title());
        printer.StartDoc();
        ReportUtilities::PrintSet_Init();
        SetUpPage();
        ProduceSections();
        printer.EndDoc();
    } catch (...) {
        if (printer.IsOpen()) printer.Abandon(); // else only its export failed: the pages can be shown
        throw;
    }
}

void ProduceSection(Integer section)
{
    u91Trace::Trace("ProduceSection " + std::to_string(section));
    if (IsSection(section)) sections[PlaceOf(section)].produce();
}

void vsPrinter1_NewPage()
{
    u91Trace::Trace("vsPrinter1_NewPage");
    platform::print::PrintControl& printer = VSPrinter1();
    if (printer.MarginTop() > movedMargin) {
        printer.SetMarginTop(usualMargin);
        printer.SetCurrentY(usualMargin);
        printer.SetPageBorder(platform::print::pageBorderRule);
    }
    ReportUtilities::SetPageHeader();
}

} // namespace ReportRun
