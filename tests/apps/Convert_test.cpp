#include "LegacyCases.h"

#include <algorithm>
#include <filesystem>

namespace {

using support::Json;
using support::LegacyCase;

class Convert : public support::CliTest
{
protected:
    /// What stands beside the file, with it, in name order.
    std::vector<std::string> Files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.File("work"))) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    /// A copy of the case's file alone in a folder.
    std::string CopyCase(const LegacyCase& one)
    {
        std::filesystem::remove_all(folder.File("work"));
        std::filesystem::create_directory(folder.File("work"));
        const std::string copy = folder.File("work/" + one.name);
        support::CopyFile(one.path, copy);
        return copy;
    }
    static void DropPath(Json& dump)
    {
        Json kept = Json::array();
        for (const Json& row : dump["Properties"]) {
            if (support::Lower(row["Property"]) != "fullfilename") {
                kept.push_back(row);
            }
        }
        dump["Properties"] = kept;
    }
    /// Every table, row, column and cell, in their order; but not the path of the last opening.
    void ExpectDump(const std::string& file, const LegacyCase& one)
    {
        Json expected =
            Json::parse(support::ReadFile(one.folder + "/" + one.json["expected"].get<std::string>()));
        Json found = Json::parse(Run({"dump", file}).out);
        DropPath(expected);
        DropPath(found);
        EXPECT_EQ(expected.dump() == found.dump(), true) << Json::diff(expected, found).dump().substr(0, 500);
    }
    void ExpectUntouched(const LegacyCase& one)
    {
        EXPECT_EQ(Files(), std::vector<std::string>{one.name});
        EXPECT_TRUE(support::ReadFile(folder.File("work/" + one.name)) == support::ReadFile(one.path));
    }
    void ExpectConverted(const LegacyCase& one)
    {
        const std::string file = folder.File("work/" + one.name);
        ExpectDump(file, one);
        if (one.IsJet()) {
            EXPECT_EQ(Files(), (std::vector<std::string>{one.name, one.name + ".jet"}));
            EXPECT_TRUE(support::ReadFile(file + ".jet") == support::ReadFile(one.path));
        } else {
            EXPECT_EQ(Files(), std::vector<std::string>{one.name});
        }
    }
    void RunWithoutYes(const LegacyCase& one)
    {
        const Result result = Run({"convert", CopyCase(one)});
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, one.Question());
        EXPECT_EQ(result.status, 3);
        ExpectUntouched(one);
    }
    void RunWithYes(const LegacyCase& one)
    {
        const Result result = Run({"convert", CopyCase(one), "--yes"});
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, one.Question() + one.Message());
        EXPECT_EQ(result.status, one.json["result"] == "open" ? 0 : 1);
        if (one.json["afterwards"] == "untouched") {
            ExpectUntouched(one);
        } else if (one.json["afterwards"] == "as expected") {
            ExpectConverted(one);
        }
    }
    void RunAll(const std::vector<LegacyCase>& cases)
    {
        for (const LegacyCase& one : cases) {
            SCOPED_TRACE(one.name);
            if (!one.json["question"].is_null()) {
                RunWithoutYes(one);
            }
            RunWithYes(one);
        }
    }
};

TEST_F(Convert, FileOfToday_OpensAndTakesItsPath)
{
    const std::string file = CopyLegacy("06.01.01-goncalo-basic.sqlite.qel");
    const Result result = Run({"convert", file});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(support::QuerySql(file, "SELECT Value FROM Properties WHERE Property = 'FullFileName'"),
              support::Rows{{file}});
}

TEST_F(Convert, BetaLabel_IsRewrittenWithoutAQuestion)
{
    const std::string file = CopyLegacy("06.00.beta-saltfork.sqlite.qel");
    EXPECT_EQ(Run({"convert", file}).status, 0);
    EXPECT_EQ(support::QuerySql(file, "SELECT Value FROM Properties WHERE Property = 'DataFormatID'"),
              support::Rows{{"06.01.01"}});
}

TEST_F(Convert, EveryFileOfAnOlderFormat_EndsAsItsCaseSays)
{
    const std::vector<LegacyCase> cases = support::LegacyCases(support::DataFile("legacy"));
    EXPECT_EQ(cases.size(), 29U);
    RunAll(cases);
}

TEST_F(Convert, EveryFileOfTheCorpus_EndsAsItsCaseSays)
{
    if (support::CorpusFolder("legacy").empty()) {
        GTEST_SKIP() << "VEXA_CORPUS names no folder with such files";
    }
    RunAll(support::LegacyCases(support::CorpusFolder("legacy")));
}

TEST_F(Convert, ConvertedFile_OpensAgainWithoutAQuestion)
{
    const std::string file = CopyLegacy("05.01.02-twin-level1.jet3.qel");
    EXPECT_EQ(Run({"convert", file, "--yes"}).status, 0);
    const Result again = Run({"convert", file});
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.err, "");
    EXPECT_FALSE(std::filesystem::exists(file + ".jet2"));
    EXPECT_EQ(Evaluated(file)["dataFormatID"], "06.01.01");
}

TEST_F(Convert, Evaluate_AsksToo)
{
    const std::string file = CopyLegacy("05.01.02-twin-level1.jet3.qel");
    EXPECT_EQ(Run({"evaluate", file}).status, 3);
    EXPECT_EQ(Run({"evaluate", file, "--yes"}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(file + ".jet"));
}

} // namespace
