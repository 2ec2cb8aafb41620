#include "platform/widgets/FormattedLabel.h"
#include "worksheets/IntroductionTexts.h"
#include "worksheets/WindowTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/a3VEXAforms.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

namespace {

struct Expected
{
    int section;
    const char* title;
    const char* text; // as the label shows it
    int helpContextID;
};

const Expected kSections[] = {
    {2,
     "Situation Section",
     "In the Situation Section you provide information about the fire.\n"
     "Worksheet 1: Introduction.  This page.\n"
     "Worksheet 2: General Information.  Standard information about the fire such as name and dates.\n"
     "Worksheet 3: Conditions.  Provide information about fuel conditions, weather, fire behavior, and "
     "availability of suppression resources.",
     4210},
    {3,
     "Objectives Section",
     "In the Objectives Section you identify and prioritize the suppression objectives for this fire.\n"
     "Worksheet 1: Introduction.  This page.\n"
     "Worksheet 2: Safety Issues.  Describe the specific safety concerns for this fire.\n"
     "Worksheet 3: Describe Objectives.  Describe the suppression objectives for this fire.",
     4310},
    {4,
     "Alternatives Section",
     "In the Alternatives Section you identify and describe each of the alternatives to be considered.\n"
     "Worksheet 1: Introduction.  This page.\n"
     "Worksheet 2: Identify Alternatives.  List the alternative strategies to be considered.\n"
     "Worksheet 3: Outcomes.  Describe a single extreme outcome and a target outcome for each alternative.  "
     "\n"
     "Worksheet 4: Probabilities.  Indicate the probability of achieving the target outcome for each "
     "alternative.",
     4410},
    {5,
     "Analysis Section",
     "The Analysis Section is where you determine the costs and impacts of each outcome.\n"
     "Worksheet 1: Introduction.  This page.\n"
     "Worksheet 2: Safety Ratings.  Rate each outcome against the safety issues identified in the Objectives "
     "Section.\n"
     "Worksheet 3: Objective Ratings.  Rate each outcome against the criteria identified in the Objectives "
     "Section.\n"
     "Worksheet 4: Loss Analysis.  Estimate the potential impact on resources and infrastructure threatened "
     "by "
     "the fire.\n"
     "Worksheet 5: Cost Analysis.  Estimate the cost of suppressing the fire.",
     4510},
    {6,
     "Comparison Section",
     "The Comparison Section shows how the alternatives compare, and allows you to select an alternative.\n"
     "Worksheet 1: Introduction.  This page.\n"
     "Worksheet 2: Decision Tree.  Compare two alternatives at a time by viewing the decision tree for each "
     "one.\n"
     "Worksheet 3: Decision.  On this worksheet you select an alternative and provide a rationale.",
     4610},
    {7,
     "Report Section",
     "In the Report Section you add any final text and select what to preview and print.\n"
     "Worksheet 1: Introduction.  This page.\n"
     "Worksheet 2: Topics.  Add instructions and information not covered elsewhere in the process.\n"
     "Worksheet 3: Preview and Print.  Select the pages to print, preview the report, and print it.",
     4810},
};

using Introduction = WindowTest;

TEST_F(Introduction, EverySection_ItsTitleTextAndHelp)
{
    StartWithSample();
    for (const Expected& expected : kSections) {
        SCOPED_TRACE(expected.section);
        Pick("mnuSection", expected.section);
        EXPECT_EQ(Title(), expected.title);
        EXPECT_EQ(LabelText("flbDescription"), expected.text);
        EXPECT_EQ(Shown().HelpContextID(), expected.helpContextID);
    }
}

TEST(IntroductionTexts, SectionsBelowThree_TheSituationSections)
{
    for (const int section : {0, 1, 2})
        EXPECT_STREQ(IntroductionOf(section).title, "Situation Section") << section;
}

TEST(IntroductionTexts, Description_BearsTheMarkup)
{
    EXPECT_EQ(
        IntroductionOf(3).description,
        "In the Objectives Section you identify and prioritize the suppression objectives for this fire."
        "|CR||BEFORE:180|Worksheet 1: Introduction.  This page."
        "|CR||BEFORE:90|Worksheet 2: Safety Issues.  Describe the specific safety concerns for this fire."
        "|CR|Worksheet 3: Describe Objectives.  Describe the suppression objectives for this fire.");
}

TEST_F(Introduction, LongestText_IsWholeAt800By600)
{
    StartWithSample();
    window->resize(800, 600);
    for (const Expected& expected : kSections) {
        Pick("mnuSection", expected.section);
        QCoreApplication::processEvents();
        const auto* label = Shown().findChild<platform::FormattedLabel*>();
        EXPECT_GE(label->height(), label->heightForWidth(label->width())) << expected.section;
        EXPECT_TRUE(Shown().rect().contains(label->geometry())) << expected.section;
    }
}

} // namespace
