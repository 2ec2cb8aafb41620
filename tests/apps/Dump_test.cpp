#include "CliTest.h"

#include <filesystem>

namespace {

using Dump = support::CliTest;
using support::Json;

TEST_F(Dump, FilesOfEveryFormat_AreTheirDumpsAndStayAsTheyAre)
{
    int compared = 0;
    for (const auto& entry : std::filesystem::directory_iterator(support::DataFile("legacy"))) {
        const std::string name = entry.path().filename().string();
        constexpr std::string_view kEnding = ".dump.json";
        if (!name.ends_with(kEnding)) {
            continue;
        }
        const std::string file = CopyLegacy(name.substr(0, name.size() - kEnding.size()) + ".sqlite.qel");
        const std::string before = support::ReadFile(file);
        const Result result = Run({"dump", file});
        EXPECT_EQ(result.status, 0) << name << result.err;
        // Ordered on both sides: tables by name, columns as in the file.
        EXPECT_TRUE(Json::parse(result.out) == Json::parse(support::ReadFile(entry.path().string()))) << name;
        EXPECT_TRUE(support::ReadFile(file) == before) << name;
        ++compared;
    }
    EXPECT_EQ(compared, 18);
}

TEST_F(Dump, NamedTables_AreWrittenInNameOrderUnderTheirOwnNames)
{
    const Result result = Run({"dump", MakeFile(), "Properties", "items", "FMZList"});
    EXPECT_EQ(result.status, 0);
    const Json dump = Json::parse(result.out);
    std::vector<std::string> names;
    for (const auto& member : dump.items()) {
        names.push_back(member.key());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"FMZList", "Items", "Properties"}));
    EXPECT_EQ(dump["FMZList"], Json::array());
}

TEST_F(Dump, TableThatIsNotThere_IsAFailureWithoutResults)
{
    const std::string file = MakeFile();
    const Result result = Run({"dump", file, "Items", "Nothing"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, file + ": there is no table Nothing in it\n");
}

TEST_F(Dump, Cells_AreNullNumbersOrTexts)
{
    const std::string file =
        MakeFile("DELETE FROM SRTypes; DELETE FROM SRUses;"
                 "INSERT INTO SRTypes VALUES (2, NULL, 1, 'a \"b\"', '', 'time', NULL, 12.5),"
                 "(1, -7, 9007199254740993, 'x', 'y', 'z', 'Ä', 100)");
    const std::string out = Run({"dump", file, "SRTypes"}).out;
    EXPECT_NE(out.find("9007199254740993"), std::string::npos);
    const Json rows = Json::parse(out)["SRTypes"];
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0]["ItemKey"], 1);
    EXPECT_EQ(rows[1]["ParentKey"], nullptr);
    EXPECT_EQ(rows[1]["LongName"], "a \"b\"");
    EXPECT_EQ(rows[1]["ShortName"], "");
    EXPECT_EQ(rows[1]["UnitCost"], 12.5);
}

TEST_F(Dump, SingleColumn_HasTheValueOfItsBits)
{
    const std::string file = MakeFile("UPDATE Outcomes SET FireSize = 0.10000000149011612 WHERE ItemKey = 1");
    EXPECT_NE(Run({"dump", file, "Outcomes"}).out.find("\"FireSize\": 0.10000000149011612,"),
              std::string::npos);
}

TEST_F(Dump, ViewsTriggersAndIndexes_AreNoTables)
{
    const std::string file =
        MakeFile("CREATE VIEW Secret AS SELECT 1; CREATE TRIGGER t AFTER UPDATE ON Items BEGIN "
                 "DELETE FROM Items; END");
    const Json dump = Json::parse(Run({"dump", file}).out);
    EXPECT_FALSE(dump.contains("Secret"));
    EXPECT_FALSE(dump.contains("sqlite_sequence"));
    EXPECT_EQ(Run({"dump", file, "Secret"}).status, 1);
}

} // namespace
