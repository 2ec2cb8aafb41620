#include "CliTest.h"

#include <algorithm>

namespace {

using Table = support::CliTest;

std::size_t Characters(const std::string& line)
{
    std::size_t count = 0;
    for (const char c : line) {
        count += (static_cast<unsigned char>(c) & 0xC0U) == 0x80U ? 0U : 1U;
    }
    return count;
}

std::string LineWith(const std::vector<std::string>& lines, const std::string& text)
{
    for (const std::string& line : lines) {
        if (line.find(text) != std::string::npos) {
            return line;
        }
    }
    return "";
}

TEST_F(Table, Samples_KeepWithinAHundredColumns)
{
    for (const char* sample : {"smith-creek", "juniper-gap", "granite-fork-complex"}) {
        const Result result = Run({"table", CopySample(sample)});
        EXPECT_EQ(result.status, 0) << result.err;
        for (const std::string& line : Lines(result.out)) {
            EXPECT_LE(Characters(line), 100U) << line;
        }
    }
}

TEST_F(Table, Alternatives_ShowTheirFiguresAndMarks)
{
    const std::vector<std::string> lines = Lines(Run({"table", CopySample("smith-creek")}).out);
    const support::Json document = Evaluated(folder.File("smith-creek.qel"));
    EXPECT_EQ(lines.front(), "Smith Creek");
    const std::string best = LineWith(lines, "B. Confine");
    EXPECT_EQ(document["mostCostEffectiveAlternativeKey"], document["selectedAlternativeKey"]);
    EXPECT_TRUE(best.starts_with("*> B. Confine")) << best;
    EXPECT_NE(best.find("75%"), std::string::npos) << best;
    EXPECT_NE(best.find("6.3"), std::string::npos) << best;
    EXPECT_NE(best.find("$11,000,000"), std::string::npos) << best;
    EXPECT_TRUE(LineWith(lines, "A. Full").starts_with("   A. Full"));
}

TEST_F(Table, Outcomes_StandBelowTheirAlternativeAndHiddenOnesDoNot)
{
    const std::vector<std::string> lines = Lines(Run({"table", CopySample("smith-creek")}).out);
    std::vector<std::string> firsts;
    for (std::size_t i = 12; i < lines.size(); ++i) {
        firsts.push_back(lines[i].substr(0, 12));
    }
    EXPECT_EQ(firsts,
              (std::vector<std::string>{"",
                                        "   Outcome  ",
                                        "   A. Full p",
                                        "      Target",
                                        "   B. Confin",
                                        "      Target",
                                        "      Fallba",
                                        "   C. Monito",
                                        "      Target",
                                        "   Extreme O"}));
    EXPECT_NE(LineWith(lines, "      Fallback").find("9,800       24       55         5.0     5.2"),
              std::string::npos);
}

TEST_F(Table, NoAlternatives_SaysSo)
{
    const Result result = Run({"table", MakeFile()});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("There are no alternatives yet."), std::string::npos);
    EXPECT_EQ(Lines(result.out).front(), "Fire without a name");
}

TEST_F(Table, FiguresThatFail_AreADash)
{
    const std::string sql = "INSERT INTO Items (ItemKey, ItemName, Heading, ParentKey, ChildIndex) VALUES"
                            " (297, 'A', 'Hold', 26, 1)";
    const Result result = Run({"table", MakeFile(sql)});
    EXPECT_EQ(result.status, 0);
    const std::string line = LineWith(Lines(result.out), "A. Hold");
    EXPECT_EQ(std::count(line.begin(), line.end(), '-'), 7) << line;
}

TEST_F(Table, NamesWithControlCharactersAndManyBytes_StayOnTheirLine)
{
    const std::string file = CopySample(
        "juniper-gap",
        "UPDATE Items SET Heading = 'Ängsjö' || char(10, 27, 155) || '火火火火火火火火火火火火火火火火火火火"
        "火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火火' WHERE "
        "ParentKey = 26");
    const Result result = Run({"table", file});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.find('\x1b'), std::string::npos);
    EXPECT_EQ(result.out.find("\xC2\x9B"), std::string::npos);
    for (const std::string& line : Lines(result.out)) {
        EXPECT_LE(Characters(line), 100U) << line;
    }
}

TEST_F(Table, QuestionAndRefusal_EndAsElsewhere)
{
    EXPECT_EQ(Run({"table", CopyLegacy("05.01.02-twin-level1.sqlite.qel")}).status, 3);
    EXPECT_EQ(Run({"table", CopyLegacy("text.qel")}).status, 1);
}

} // namespace
