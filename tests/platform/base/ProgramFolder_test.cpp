#include "platform/base/ProgramFolder.h"
#include "support/ChildProcess.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

namespace fs = std::filesystem;
using support::ReadFile;
using support::WriteFile;

namespace {

/// Runs a copy of this test program in a folder of its own, where it asks for its program folder.
class ProgramFolder : public ::testing::Test
{
protected:
    ProgramFolder()
    {
        fs::create_directories(folder.File("prefix/bin"));
        fs::copy_file("/proc/self/exe", program);
    }

    std::string Asked(const std::string& environment) const
    {
        const std::string answer = folder.File("answer");
        const std::string command = "unset VEXA_HOME XDG_DATA_HOME; " + environment + " VEXA_TEST_ANSWER='" +
                                    answer + "' '" + program +
                                    "' --gtest_also_run_disabled_tests "
                                    "--gtest_filter=ProgramFolderOfACopy.DISABLED_IsWrittenDown >/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0);
        return ReadFile(answer);
    }

    support::TempFolder folder;
    std::string program = folder.File("prefix/bin/asks");
};

} // namespace

TEST(ProgramFolderOfACopy, DISABLED_IsWrittenDown)
{
    WriteFile(std::getenv("VEXA_TEST_ANSWER"), platform::ProgramFolder());
}

TEST_F(ProgramFolder, VexaHome_GoesFirst)
{
    WriteFile(folder.File("prefix/bin/QEL.new"), "template");
    EXPECT_EQ(Asked("VEXA_HOME='" + folder.File("home") + "'"), folder.File("home"));
    EXPECT_EQ(Asked("VEXA_HOME='" + folder.File("home/") + "'"), folder.File("home"));
}

TEST_F(ProgramFolder, TheProgramsOwnFolder_WhereTheTemplateStandsInIt)
{
    WriteFile(folder.File("prefix/bin/QEL.new"), "template");
    EXPECT_EQ(Asked("VEXA_HOME= HOME='" + folder.Path() + "'"), folder.File("prefix/bin"));
    EXPECT_FALSE(fs::exists(folder.File(".local")));
}

TEST_F(ProgramFolder, ElseTheUsersOwn_FilledFromTheInstalledFolder)
{
    const std::string share = folder.File("prefix/share/vexa");
    fs::create_directories(share);
    WriteFile(share + "/QEL.new", "template");
    WriteFile(share + "/VEXAPlus.hlp", "help");
    WriteFile(share + "/Custom.dct", "helispot\n");
    const std::string user = folder.File("xdg/vexa");
    EXPECT_EQ(Asked("XDG_DATA_HOME='" + folder.File("xdg") + "'"), user);
    EXPECT_EQ(ReadFile(user + "/QEL.new"), "template");
    EXPECT_EQ(ReadFile(user + "/VEXAPlus.hlp"), "help");
    EXPECT_EQ(ReadFile(user + "/Custom.dct"), "helispot\n");
    EXPECT_TRUE(fs::is_directory(user + "/VEXAData"));
    EXPECT_TRUE(fs::is_directory(user + "/docs"));
}

TEST_F(ProgramFolder, TheUsersOwn_KeepsWhatTheUserChanged)
{
    const std::string share = folder.File("prefix/share/vexa");
    const std::string user = folder.File(".local/share/vexa");
    fs::create_directories(share);
    fs::create_directories(user);
    WriteFile(share + "/QEL.new", "template");
    WriteFile(share + "/Custom.dct", "helispot\n");
    WriteFile(user + "/Custom.dct", "my own words\n");
    EXPECT_EQ(Asked("HOME='" + folder.Path() + "'"), user);
    EXPECT_EQ(ReadFile(user + "/QEL.new"), "template");
    EXPECT_EQ(ReadFile(user + "/Custom.dct"), "my own words\n");
}

TEST_F(ProgramFolder, AfterAnUpdate_TheHelpIsTheNewOneAndTheRestTheUsers)
{
    const std::string share = folder.File("prefix/share/vexa");
    const std::string user = folder.File(".local/share/vexa");
    fs::create_directories(share);
    fs::create_directories(user);
    for (const char* name : {"/QEL.new", "/VEXAPlus.hlp", "/Custom.dct"}) {
        WriteFile(user + name, "of the user");
        WriteFile(share + name, "of the update");
        fs::last_write_time(user + name, fs::last_write_time(share + name) - std::chrono::hours(1));
    }
    Asked("HOME='" + folder.Path() + "'");
    EXPECT_EQ(ReadFile(user + "/VEXAPlus.hlp"), "of the update");
    EXPECT_EQ(ReadFile(user + "/QEL.new"), "of the user");
    EXPECT_EQ(ReadFile(user + "/Custom.dct"), "of the user");
}

TEST_F(ProgramFolder, WithNoUpdate_TheCopyOfTheHelpStays)
{
    const std::string share = folder.File("prefix/share/vexa");
    const std::string user = folder.File(".local/share/vexa");
    fs::create_directories(share);
    fs::create_directories(user);
    WriteFile(share + "/VEXAPlus.hlp", "installed");
    for (const char* name : {"/QEL.new", "/VEXAPlus.hlp"}) {
        WriteFile(user + name, "the copy");
    }
    fs::last_write_time(user + "/VEXAPlus.hlp",
                        fs::last_write_time(share + "/VEXAPlus.hlp") + std::chrono::hours(1));
    Asked("HOME='" + folder.Path() + "'");
    EXPECT_EQ(ReadFile(user + "/VEXAPlus.hlp"), "the copy");
}

TEST_F(ProgramFolder, WithNothingInstalled_IsStillTheUsersOwn)
{
    EXPECT_EQ(Asked("HOME='" + folder.Path() + "'"), folder.File(".local/share/vexa"));
    EXPECT_TRUE(fs::is_directory(folder.File(".local/share/vexa/VEXAData")));
}

TEST_F(ProgramFolder, OnceSettled_StaysForTheProcess)
{
    platform::SetProgramFolder("/somewhere");
    EXPECT_EQ(platform::ProgramFolder(), "/somewhere");
    EXPECT_EQ(platform::InProgramFolder("QEL.new"), "/somewhere/QEL.new");
    platform::SetProgramFolder("");
}
