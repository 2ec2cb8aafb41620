#include "worksheets/IntroductionTexts.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

struct Introduction
{
    const char* title;
    const char* firstLine;
    int helpContextID;
    std::vector<const char*> entries; // a line a worksheet, from the second on
};

constexpr int kFirstSection = 2;
constexpr int kLastSection = 7;

// Sections 2 to 7. The blanks at the end of an entry are the text's own.
const std::array<Introduction, 6> kIntroductions = {{
    {"Situation Section",
     "In the Situation Section you provide information about the fire.",
     4210,
     {"Worksheet 2: General Information.  Standard information about the fire such as name and dates.",
      "Worksheet 3: Conditions.  Provide information about fuel conditions, weather, fire behavior, and "
      "availability of suppression resources."}},
    {"Objectives Section",
     "In the Objectives Section you identify and prioritize the suppression objectives for this fire.",
     4310,
     {"Worksheet 2: Safety Issues.  Describe the specific safety concerns for this fire.",
      "Worksheet 3: Describe Objectives.  Describe the suppression objectives for this fire."}},
    {"Alternatives Section",
     "In the Alternatives Section you identify and describe each of the alternatives to be considered.",
     4410,
     {"Worksheet 2: Identify Alternatives.  List the alternative strategies to be considered.",
      "Worksheet 3: Outcomes.  Describe a single extreme outcome and a target outcome for each alternative. "
      " ",
      "Worksheet 4: Probabilities.  Indicate the probability of achieving the target outcome for each "
      "alternative."}},
    {"Analysis Section",
     "The Analysis Section is where you determine the costs and impacts of each outcome.",
     4510,
     {"Worksheet 2: Safety Ratings.  Rate each outcome against the safety issues identified in the "
      "Objectives Section.",
      "Worksheet 3: Objective Ratings.  Rate each outcome against the criteria identified in the Objectives "
      "Section.",
      "Worksheet 4: Loss Analysis.  Estimate the potential impact on resources and infrastructure threatened "
      "by the fire.",
      "Worksheet 5: Cost Analysis.  Estimate the cost of suppressing the fire."}},
    {"Comparison Section",
     "The Comparison Section shows how the alternatives compare, and allows you to select an alternative.",
     4610,
     {"Worksheet 2: Decision Tree.  Compare two alternatives at a time by viewing the decision tree for each "
      "one.",
      "Worksheet 3: Decision.  On this worksheet you select an alternative and provide a rationale."}},
    {"Report Section",
     "In the Report Section you add any final text and select what to preview and print.",
     4810,
     {"Worksheet 2: Topics.  Add instructions and information not covered elsewhere in the process.",
      "Worksheet 3: Preview and Print.  Select the pages to print, preview the report, and print it."}},
}};

std::string Description(const Introduction& introduction)
{
    std::string text = introduction.firstLine;
    text += "|CR||BEFORE:180|Worksheet 1: Introduction.  This page.";
    const char* lead = "|CR||BEFORE:90|";
    for (const char* entry : introduction.entries) {
        text += lead;
        text += entry;
        lead = "|CR|";
    }
    return text;
}

} // namespace

IntroductionText IntroductionOf(int section)
{
    const int place = std::clamp(section, kFirstSection, kLastSection) - kFirstSection;
    const Introduction& introduction = kIntroductions.at(static_cast<std::size_t>(place));
    return {introduction.title, Description(introduction), introduction.helpContextID};
}
