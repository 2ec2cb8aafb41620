#include "worksheets/WorksheetTable.h"

#include "worksheets/frm11Intro.h"
#include "worksheets/frm22General.h"
#include "worksheets/frm23Situation.h"
#include "worksheets/frm32SafetyIssues.h"
#include "worksheets/frm33Objectives.h"
#include "worksheets/frm42Alternatives.h"
#include "worksheets/frm43Outcomes.h"
#include "worksheets/frm44Probabilities.h"
#include "worksheets/frm52SafetyRatings.h"
#include "worksheets/frm53Ratings.h"
#include "worksheets/frm54ItemImpacts.h"
#include "worksheets/frm56_CostSummary.h"
#include "worksheets/frm63DecisionTree.h"
#include "worksheets/frm65Decision.h"
#include "worksheets/frm82Topics.h"
#include "worksheets/frm83Reports.h"

#include <algorithm>

namespace {

template <class Form> Worksheet* Make(QWidget* parent) { return new Form(parent); }

constexpr auto kNothing = UpdateAction::Nothing;
constexpr auto kSituation = UpdateAction::SituationItems;
constexpr auto kForm = UpdateAction::FormSaveChanges;
constexpr auto kAlternatives = UpdateAction::Alternatives;
constexpr auto kSummary = UpdateAction::SummaryItems;
constexpr auto kKeep = AfterUnload::KeepModel;
// These three write ratings and impacts through objects of their own, which the loaded alternatives do not
// see.
constexpr auto kReset = AfterUnload::ResetAlternatives;

// clang-format off
const std::vector<WorksheetEntry> kWorksheets = {
    {0, 1, "tab11", "frm11Intro", "Introduction", "&1 Introduction", 4210, kNothing, kKeep, Make<frm11Intro>},
    {2, 2, "tab22", "frm22General", "General Information", "&2 General Information", 4220, kSituation, kKeep, Make<frm22General>},
    {2, 3, "tab23", "frm23Situation", "Conditions", "&3 Conditions", 4230, kSituation, kKeep, Make<frm23Situation>},
    {3, 2, "tab32", "frm32SafetyIssues", "Safety Issues", "&2 Safety Issues", 4320, kForm, kKeep, Make<frm32SafetyIssues>},
    {3, 3, "tab33", "frm33Objectives", "Describe Objectives", "&3 Describe Objectives", 4330, kForm, kKeep, Make<frm33Objectives>},
    {4, 2, "tab42", "frm42Alternatives", "Identify Alternatives", "&2 Identify Alternatives", 4420, kAlternatives, kKeep, Make<frm42Alternatives>},
    {4, 3, "tab43", "frm43Outcomes", "Outcomes", "&3 Outcomes", 4430, kForm, kKeep, Make<frm43Outcomes>},
    {4, 4, "tab44", "frm44Probabilities", "Probabilities", "&4 Probabilities", 4440, kForm, kKeep, Make<frm44Probabilities>},
    {5, 2, "tab52", "frm52SafetyRatings", "Safety Ratings", "&2 Safety Ratings", 4520, kForm, kReset, Make<frm52SafetyRatings>},
    {5, 3, "tab53", "frm53Ratings", "Objective Ratings", "&3 Objective Ratings", 4530, kForm, kReset, Make<frm53Ratings>},
    {5, 4, "tab54", "frm54ItemImpacts", "Loss Analysis", "&4 Loss Analysis", 4540, kForm, kReset, Make<frm54ItemImpacts>},
    {5, 5, "tab56", "frm56_CostSummary", "Cost Analysis", "&5 Cost Analysis", 4550, kForm, kKeep, Make<frm56_CostSummary>},
    {6, 2, "tab63", "frm63DecisionTree", "Decision Tree", "&2 Decision Tree", 4620, kNothing, kKeep, Make<frm63DecisionTree>},
    {6, 3, "tab65", "frm65Decision", "Decision", "&3 Decision", 4630, kSummary, kKeep, Make<frm65Decision>},
    {7, 2, "tab82", "frm82Topics", "Topics", "&2 Topics", 4820, kSummary, kKeep, Make<frm82Topics>},
    {7, 3, "tab83", "frm83Reports", "Preview and Print", "&3 Preview and Print", 4830, kNothing, kKeep, Make<frm83Reports>},
};

const std::vector<SectionEntry> kSections = {
    {1, "Setup", "Set&up", false},
    {2, "Situation", "&Situation", true},
    {3, "Objectives", "&Objectives", true},
    {4, "Alternatives", "&Alternatives", true},
    {5, "Analysis", "Anal&ysis", true},
    {6, "Comparison", "&Compare", true},
    {7, "Report", "Comple&xity Analysis", true},
    {8, "Complexity", "&Report", false},
};
// clang-format on

constexpr int kFirstSection = 2;
constexpr int kLastSection = 7;

template <class Fits> const WorksheetEntry* FirstThat(Fits fits)
{
    const auto found = std::find_if(kWorksheets.begin(), kWorksheets.end(), fits);
    return found == kWorksheets.end() ? nullptr : &*found;
}

bool IsAt(const WorksheetEntry& entry, int section, int tab)
{
    const bool anySection = entry.section == 0 && section >= kFirstSection && section <= kLastSection;
    return entry.tab == tab && (anySection || entry.section == section);
}

} // namespace

const std::vector<SectionEntry>& Sections() { return kSections; }
const std::vector<WorksheetEntry>& Worksheets() { return kWorksheets; }

const WorksheetEntry* FindWorksheet(int section, int tab)
{
    return FirstThat([=](const WorksheetEntry& entry) { return IsAt(entry, section, tab); });
}

const WorksheetEntry* FindWorksheet(std::string_view key)
{
    return FirstThat([=](const WorksheetEntry& entry) { return key == entry.key; });
}

int LastTab(int section)
{
    int last = 0;
    for (const WorksheetEntry& entry : kWorksheets) {
        if (IsAt(entry, section, entry.tab)) last = std::max(last, entry.tab);
    }
    return last;
}
