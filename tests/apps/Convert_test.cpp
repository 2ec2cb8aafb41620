#include "CliTest.h"

#include <filesystem>

namespace {

using Convert = support::CliTest;
using support::Json;

std::string Joined(const Json& box)
{
    std::string text = box["title"].is_null() ? "" : box["title"].get<std::string>() + "\n";
    for (const Json& line : box["lines"]) {
        text += line.get<std::string>() + "\n";
    }
    return text;
}

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

/// The cases whose file is kept here in a form that can be read yet, with that file's name.
std::vector<std::pair<Json, std::string>> ReadableCases()
{
    std::vector<std::pair<Json, std::string>> readable;
    const Json cases = Json::parse(support::ReadFile(support::DataFile("legacy/cases.json")));
    for (const Json& one : cases["cases"]) {
        for (const Json& file : one["files"]) {
            const std::string name = file;
            const bool isJet = name.ends_with(".jet3.qel");
            if (!isJet && std::filesystem::exists(support::DataFile("legacy/" + name))) {
                readable.emplace_back(one, name);
            }
        }
    }
    return readable;
}

TEST_F(Convert, QuestionWithoutYes_IsAskedInItsWordsAndCancelled)
{
    int asked = 0;
    for (const auto& [one, name] : ReadableCases()) {
        if (one["question"].is_null()) {
            continue;
        }
        const std::string file = CopyLegacy(name);
        const std::string before = support::ReadFile(file);
        const Result result = Run({"convert", file});
        EXPECT_EQ(result.status, 3) << name;
        EXPECT_EQ(result.out, "") << name;
        EXPECT_EQ(result.err, Joined(one["question"])) << name;
        EXPECT_TRUE(support::ReadFile(file) == before) << name;
        ++asked;
    }
    EXPECT_EQ(asked, 10);
}

TEST_F(Convert, RefusedFormatsAndEditions_SayWhyAndAreStatus1)
{
    int refused = 0;
    for (const auto& [one, name] : ReadableCases()) {
        if (!one["question"].is_null() || one["result"] != "refused") {
            continue;
        }
        const std::string file = CopyLegacy(name);
        const std::string before = support::ReadFile(file);
        const Result result = Run({"convert", file, "--yes"});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_EQ(result.out, "") << name;
        EXPECT_EQ(result.err, Joined(one["message"])) << name;
        if (one["afterwards"] == "untouched") {
            EXPECT_TRUE(support::ReadFile(file) == before) << name;
        }
        ++refused;
    }
    EXPECT_EQ(refused, 9);
}

} // namespace
