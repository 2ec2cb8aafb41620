#include "datafile_builder/NewRows.h"
#include "tools/BuildFolder.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

using datafile_builder::DatafileWriter;
using testing::ElementsAre;
using tools_test::BuildFolder;
using tools_test::Cell;
using tools_test::Rows;

namespace {

class NewRows : public testing::Test
{
protected:
    BuildFolder m_folder;
    std::filesystem::path m_file = m_folder.BuildTemplate();
    DatafileWriter m_writer{m_file};
};

} // namespace

TEST_F(NewRows, FirstItemAdded_GetsKey297AndItsPlaceByCount)
{
    EXPECT_EQ(datafile_builder::AddItem(m_writer, "A", 26), 297);
    EXPECT_EQ(datafile_builder::AddItem(m_writer, "Smoke", 22), 298);
    EXPECT_EQ(datafile_builder::AddItem(m_writer, "B", 26), 299);
    m_writer.Finish();
    EXPECT_THAT(Rows(m_file,
                     "SELECT ItemKey, ItemName, Heading, ItemText, ParentKey, ChildIndex FROM Items "
                     "WHERE ItemKey > 296 ORDER BY ItemKey"),
                ElementsAre("297|A|null|null|26|1", "298|Smoke|null|null|22|9", "299|B|null|null|26|2"));
}

TEST_F(NewRows, Outcome_StartsAsTargetAt100OrFallbackNotShown)
{
    EXPECT_EQ(datafile_builder::AddOutcome(m_writer, 297, 1, std::nullopt), 2);
    EXPECT_EQ(datafile_builder::AddOutcome(m_writer, 297, 2, std::nullopt), 3);
    m_writer.Finish();
    EXPECT_THAT(Rows(m_file,
                     "SELECT ItemKey, ParentKey, ChildIndex, Success, CostSource, FireSize FROM Outcomes "
                     "WHERE ItemKey > 1 ORDER BY ItemKey"),
                ElementsAre("2|297|1|100.0|1|null", "3|297|2|-1.0|1|null"));
    EXPECT_EQ(Cell(m_file, "SELECT COUNT(DISTINCT Description) FROM Outcomes"), "1");
}

TEST_F(NewRows, BurnArea_TakesTheMixOfItsSourceButNotThePortion)
{
    m_writer.Change(
        "OutcomeFMZs",
        {{"OutcomeKey", std::int64_t{1}}},
        {{"Portion", std::int64_t{80}}, {"FIL1Portion", std::int64_t{7}}, {"FIL4Portion", std::int64_t{2}}});
    datafile_builder::AddBurnArea(m_writer, 2, std::nullopt);
    datafile_builder::AddBurnArea(m_writer, 3, 1);
    datafile_builder::AddBurnArea(m_writer, 4, 99); // a source without a row copies nothing
    m_writer.Finish();
    EXPECT_THAT(
        Rows(m_file, "SELECT * FROM OutcomeFMZs ORDER BY OutcomeKey"),
        ElementsAre("1|0|80|7|0|0|2|0|0", "2|0|50|0|0|0|5|0|0", "3|0|50|7|0|0|2|0|0", "4|0|50|0|0|0|0|0|0"));
}

TEST_F(NewRows, SafetyIssues_AreChainedBehindEachOther)
{
    EXPECT_EQ(datafile_builder::AddSafetyIssue(m_writer, "One", "", 10), 7);
    EXPECT_EQ(datafile_builder::AddSafetyIssue(m_writer, "Two", "", 10), 8);
    EXPECT_EQ(datafile_builder::AddSafetyIssue(m_writer, "Three", "", 10), 9);
    m_writer.Finish();
    EXPECT_THAT(Rows(m_file,
                     "SELECT \"Key\", ParentKey, ChildKey, SiblingKey FROM Objectives "
                     "WHERE \"Key\" = 2 OR \"Key\" > 6 ORDER BY \"Key\""),
                ElementsAre("2|0|7|0", "7|2|null|8", "8|2|null|9", "9|2|null|0"));
}

TEST_F(NewRows, Property_IsReplacedWhateverTheCaseOfItsName)
{
    datafile_builder::SetProperty(m_writer, "programid", "Standard");
    datafile_builder::SetProperty(m_writer, "UseNVCGains", "No");
    m_writer.Finish();
    EXPECT_THAT(Rows(m_file, "SELECT * FROM Properties ORDER BY Property"),
                ElementsAre("DataFormatID|06.01.01", "ProgramID|Standard", "UseNVCGains|No"));
}

TEST(Cells, Single_IsTheNearestFloatWidened)
{
    EXPECT_EQ(std::get<Double>(datafile_builder::SingleCell(0.1)), 0.100000001490116119384765625);
    EXPECT_EQ(std::get<Double>(datafile_builder::SingleCell(123456789)), 123456792.0);
    EXPECT_ANY_THROW(datafile_builder::SingleCell(1e39));
}
