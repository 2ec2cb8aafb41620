#include "CliTest.h"

#include <filesystem>

namespace {

using CommandLine = support::CliTest;

TEST_F(CommandLine, Version_PrintsEditionAndNumber)
{
    const Result result = Run({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "VEXA Basic 06.6\n");
    EXPECT_EQ(result.err, "");
}

TEST_F(CommandLine, Help_NamesEveryCommandOnStandardOutput)
{
    const Result result = Run({"--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    for (const char* command : {"new", "evaluate", "report", "convert", "dump", "check", "table"}) {
        EXPECT_NE(result.out.find(std::string("  ") + command + " "), std::string::npos) << command;
    }
}

TEST_F(CommandLine, HelpOfACommand_IsAResult)
{
    for (const char* command : {"new", "evaluate", "report", "convert", "dump", "check", "table"}) {
        const Result result = Run({command, "--help"});
        EXPECT_EQ(result.status, 0) << command;
        EXPECT_NE(result.out.find("FILE"), std::string::npos) << command;
        EXPECT_EQ(result.err, "") << command;
    }
}

TEST_F(CommandLine, WrongUsage_IsStatus2WithoutResults)
{
    const std::vector<std::vector<std::string>> wrong = {{},
                                                         {"evaluate"},
                                                         {"new"},
                                                         {"new", "a.qel", "b.qel"},
                                                         {"convert", "a.qel", "b.qel"},
                                                         {"check"},
                                                         {"check", "a.qel", "b.qel"},
                                                         {"table"},
                                                         {"dump"},
                                                         {"dump", "--yes", "a.qel"},
                                                         {"check", "--yes", "a.qel"},
                                                         {"evaluate", "--no-such-option", "a.qel"},
                                                         {"nosuchcommand"},
                                                         {"report", "a.qel"},
                                                         {"report", "a.qel", "b.pdf", "--sections", "11"},
                                                         {"report", "a.qel", "b.pdf", "--sections", "0"},
                                                         {"report", "a.qel", "b.pdf", "--sections", "x"}};
    for (const std::vector<std::string>& arguments : wrong) {
        const Result result = Run(arguments);
        const std::string shown = ::testing::PrintToString(arguments);
        EXPECT_EQ(result.status, 2) << shown;
        EXPECT_EQ(result.out, "") << shown;
        EXPECT_NE(result.err, "") << shown;
    }
}

TEST_F(CommandLine, FileNamedLikeACommand_IsAFile)
{
    const std::string file = MakeFile({}, "check");
    std::filesystem::current_path(folder.Path());
    const Result result = Run({"dump", "check", "Properties"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(Run({"evaluate", "check", "check"}).status, 0);
    std::filesystem::current_path("/");
}

TEST_F(CommandLine, FileThatLooksLikeAnOption_GoesBehindTwoDashes)
{
    MakeFile({}, "--yes");
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(Run({"check", "--", "--yes"}).out, "ok\n");
    std::filesystem::current_path("/");
}

TEST_F(CommandLine, ResultsThatCannotBeWritten_AreAFailure)
{
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(vexa_cli::Run({"--version"}, out, err), 1);
    EXPECT_EQ(err.str(), "The results could not be written.\n");
}

TEST_F(CommandLine, Logs_AreAppendedTo)
{
    support::WriteFile(folder.File("VEXA.LOG"), "the desktop's run\n");
    EXPECT_EQ(Run({"evaluate", MakeFile()}).status, 0);
    const std::vector<std::string> lines = LogLines();
    ASSERT_GT(lines.size(), 1U);
    EXPECT_EQ(lines.front(), "the desktop's run");
}

} // namespace
