#include "program/Programs.h"
#include "support/TestSession.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <gmock/gmock.h>
#include <set>

using programs::Ended;
using programs::Ground;
using programs::Running;
using ::testing::HasSubstr;

namespace {

constexpr const char* kNotOurs = "The file does not appear to be a VEXA Plus file.\nIt cannot be opened.\n";

std::string Log(const Ground& ground, const char* name) { return support::ReadFile(ground.File(name)); }

/// The program itself, with a file open.
class OpenWindow
{
public:
    OpenWindow(const Ground& ground, const std::string& file) : m_program(ground.Start("vexa", {file}))
    {
        const auto isUp = [&] {
            return Log(ground, "VEXA.LOG").find("Finished Loading VEXA Basic") != std::string::npos;
        };
        EXPECT_TRUE(programs::Within([&] { return isUp() || !m_program.IsRunning(); }));
        EXPECT_TRUE(m_program.IsRunning());
    }

private:
    Running m_program;
};

/// A file that is open in the program's window while another program asks for it.
class TwoPrograms : public ::testing::Test
{
protected:
    /// The names beside the file; that of its journal comes and goes.
    std::set<std::string> Beside() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_first.File("VEXAData")))
            names.insert(entry.path().filename().string());
        names.erase("smith-creek.qel-journal");
        return names;
    }

    Ground m_first;
    Ground m_second; // another program folder, and so other logs
    std::string m_file = m_first.CopySample();
};

} // namespace

TEST_F(TwoPrograms, ASecondWindow_GetsTheMessageAndTheFirstKeepsItsFile)
{
    const OpenWindow first(m_first, m_file);
    const std::string before = support::ReadFile(m_file);
    Running second = m_second.Start("vexa-session", {m_file, m_second.File("notes"), "1"});
    EXPECT_EQ(second.Wait(), 3);
    EXPECT_EQ(support::ReadFile(m_second.File("notes")),
              "box The file does not appear to be a VEXA Plus file. It cannot be opened.\n");
    EXPECT_THAT(Log(m_second, "ERROR.LOG"), HasSubstr("database is locked"));
    EXPECT_TRUE(support::ReadFile(m_file) == before);
}

TEST_F(TwoPrograms, ASecondWindowOfTheProgramItself_StaysEmpty)
{
    const OpenWindow first(m_first, m_file);
    Running second = m_second.Start("vexa", {m_file});
    EXPECT_TRUE(programs::Within([&] { return !Log(m_second, "ERROR.LOG").empty(); }));
    EXPECT_THAT(Log(m_second, "ERROR.LOG"), HasSubstr("OpenDatafile " + m_file + ": Opening " + m_file));
    EXPECT_TRUE(second.IsRunning()) << "the message stands, and nothing else happens";
    EXPECT_EQ(Log(m_first, "ERROR.LOG"), "");
}

TEST_F(TwoPrograms, TheCompanion_IsRefusedWhileTheWindowHasTheFile)
{
    const OpenWindow first(m_first, m_file);
    const std::string before = support::ReadFile(m_file);
    const std::string report = m_second.File("report.rtf");
    for (const std::vector<std::string>& command : {std::vector<std::string>{"evaluate", m_file},
                                                    {"table", m_file},
                                                    {"convert", m_file, "--yes"},
                                                    {"report", m_file, report}}) {
        const Ended ended = m_second.RunCompanion(command);
        EXPECT_EQ(ended.status, 1) << command[0];
        EXPECT_EQ(ended.out, "") << command[0];
        EXPECT_EQ(ended.err, kNotOurs) << command[0];
    }
    for (const char* command : {"dump", "check"}) {
        const Ended ended = m_second.RunCompanion({command, m_file});
        EXPECT_EQ(ended.status, 1) << command;
        EXPECT_EQ(ended.out, "") << command;
        EXPECT_THAT(ended.err, HasSubstr("database is locked")) << command;
    }
    const Ended made = m_second.RunCompanion({"new", m_file, "--yes"});
    EXPECT_EQ(made.status, 1);
    EXPECT_EQ(made.err,
              "Replace file?\nThe file already exists.  Do you want to overwrite it?\n"
              "Unable to create new file.\n");
    EXPECT_TRUE(support::ReadFile(m_file) == before);
    EXPECT_FALSE(std::filesystem::exists(report));
    EXPECT_EQ(Beside(), std::set<std::string>{"smith-creek.qel"});
}

TEST_F(TwoPrograms, AFileThatTheWindowLetGo_OpensElsewhere)
{
    {
        const OpenWindow first(m_first, m_file);
        EXPECT_EQ(m_second.RunCompanion({"evaluate", m_file}).status, 1);
    }
    EXPECT_EQ(m_second.RunCompanion({"evaluate", m_file}).status, 0);
    EXPECT_EQ(m_second.RunCompanion({"check", m_file}).out, "ok\n");
}

TEST_F(TwoPrograms, OthersThatAskAgainAndAgain_DoNotDisturbTheSession)
{
    const std::string notes = m_first.File("notes");
    Running session = m_first.Start("vexa-session", {m_file, notes, "1"});
    const auto told = [&] { return support::ReadFile(notes); };
    ASSERT_TRUE(programs::Within([&] { return !told().empty(); }));
    for (int i = 0; i < 10; ++i) {
        const char* const commands[] = {"evaluate", "dump", "check", "table", "convert"};
        EXPECT_EQ(m_second.RunCompanion({commands[i % 5], m_file}).status, 1) << i;
    }
    EXPECT_TRUE(programs::Within([&] { return told().find("saved") != std::string::npos; }));
    EXPECT_TRUE(session.IsRunning()) << told();
    EXPECT_EQ(told().find("box"), std::string::npos) << told();
    session.Kill();
    session.Wait();
    EXPECT_EQ(m_second.RunCompanion({"evaluate", m_file}).status, 0);
    EXPECT_EQ(m_second.RunCompanion({"check", m_file}).out, "ok\n");
}
