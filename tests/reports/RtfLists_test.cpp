#include "ReportTest.h"

#include <nlohmann/json.hpp>

namespace {

using ReportUtilities::FixRtfList;
using ReportUtilities::nRtfLists;

class RtfLists : public support::ReportTest
{
protected:
    /// As many texts with a list have gone before.
    static void CountTo(Long count)
    {
        ReportUtilities::EndReports();
        for (Long i = 0; i < count; ++i)
            FixRtfList("listtemplateid1");
    }
};

const char* const kList =
    "{\\rtf1{\\*\\listtable{\\list\\listtemplateid1{\\listname ;}\\listid1}}"
    "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\pard {\\listtext \\tab}\\ls1\\ilvl0 a\\par }";

std::string Numbered(const std::string& number)
{
    return "{\\rtf1{\\*\\listtable{\\list\\listtemplateid" + number + "{\\listname ;}\\listid" + number +
           "}}{\\*\\listoverridetable{\\listoverride\\listid" + number + "\\ls" + number +
           "}}\\pard {\\listtext \\tab}\\pard\\fi-360\\li360\\tx360\\ls" + number + "\\ilvl0 a\\par }";
}

TEST_F(RtfLists, FixRtfList_TextsOfEveryCounter_AreAsWrittenDown)
{
    const auto cases = nlohmann::json::parse(support::ReadFile(support::DataFile("rtf/fixrtflist.json")));
    ASSERT_FALSE(cases.at("cases").empty());
    for (const auto& one : cases.at("cases")) {
        SCOPED_TRACE(one.at("about").get<std::string>());
        CountTo(one.at("counter_before").get<Long>());
        EXPECT_EQ(FixRtfList(one.at("in").get<std::string>()), one.at("out").get<std::string>());
        EXPECT_EQ(nRtfLists(), one.at("counter_after").get<Long>());
    }
}

TEST_F(RtfLists, FixRtfList_FirstAndSecondList_KeepOneAndGetTwo)
{
    EXPECT_EQ(FixRtfList(kList), Numbered("1"));
    EXPECT_EQ(FixRtfList(kList), Numbered("2"));
}

TEST_F(RtfLists, FixRtfList_TenthListAndBeyond_TableOverrideAndUseAllGetTheNumber)
{
    CountTo(9);
    for (const char* number : {"10", "11", "12"})
        EXPECT_EQ(FixRtfList(kList), Numbered(number));
    CountTo(99);
    EXPECT_EQ(FixRtfList(kList), Numbered("100"));
}

TEST_F(RtfLists, FixRtfList_TwoItemsWithoutATemplate_AreBothIndentedAndNotCounted)
{
    const std::string item = "\\tab}\\ls1\\ilvl0";
    const std::string indented = "\\tab}\\pard\\fi-360\\li360\\tx360\\ls1\\ilvl0";
    EXPECT_EQ(FixRtfList(item + " a" + item + " b"), indented + " a" + indented + " b");
    EXPECT_EQ(nRtfLists(), 0);
}

TEST_F(RtfLists, FixRtfList_LastUseWithoutABackslashBehindIt_Stays)
{
    CountTo(1);
    // The first use is found with anything behind it, the others only with a backslash.
    EXPECT_EQ(FixRtfList("listtemplateid1 \\ls1 \\ls1\\x \\ls1"), "listtemplateid2 \\ls2 \\ls2\\x \\ls1");
}

TEST_F(RtfLists, FixRtfList_WordsThatOnlyBeginAlike_AreTakenForTheirs)
{
    CountTo(1);
    // Prefixes match, so nobody may give a second list of a body a number that begins with 1.
    EXPECT_EQ(FixRtfList("listtemplateid17 listid18 \\ls19\\x"), "listtemplateid27 listid28 \\ls29\\x");
}

TEST_F(RtfLists, SaveSelectedSections_TwoExportsOfObjectivesWithLists_CarryOnCounting)
{
    OpenNew("UPDATE Objectives SET Explanation = '" + std::string(kList) + "' WHERE \"Key\" IN (3, 4);");
    Select({4});
    ReportRun::SaveSelectedSections(folder.File("a.rtf"));
    EXPECT_EQ(nRtfLists(), 2);
    ReportRun::SaveSelectedSections(folder.File("b.rtf"));
    EXPECT_EQ(nRtfLists(), 4);
}

} // namespace
