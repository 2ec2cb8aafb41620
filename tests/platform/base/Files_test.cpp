#include "platform/base/Files.h"
#include "support/ChildProcess.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <string>

namespace fs = std::filesystem;
using support::ReadFile;
using support::WriteFile;

namespace {

class Files : public ::testing::Test
{
protected:
    long Count() const
    {
        return std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator());
    }
    support::TempFolder folder;
    std::string source = folder.File("source");
    std::string target = folder.File("target");
};

} // namespace

TEST_F(Files, CopyWhole_MakesAnEqualFileAndLeavesNothingElse)
{
    const std::string bytes = std::string(300000, 'x') + '\0' + "end";
    WriteFile(source, bytes);
    EXPECT_EQ(platform::CopyWhole(source, target), "");
    EXPECT_EQ(ReadFile(target), bytes);
    EXPECT_EQ(Count(), 2);
}

TEST_F(Files, CopyWhole_PutsTheCopyInPlaceOfALongerFile)
{
    WriteFile(source, "new");
    WriteFile(target, std::string(5000, 'o'));
    EXPECT_EQ(platform::CopyWhole(source, target), "");
    EXPECT_EQ(ReadFile(target), "new");
}

TEST_F(Files, CopyWhole_OfAReadOnlyFile_CanBeWritten)
{
    WriteFile(source, "template");
    fs::permissions(source, fs::perms::owner_read | fs::perms::group_read);
    EXPECT_EQ(platform::CopyWhole(source, target), "");
    EXPECT_EQ(fs::status(target).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(Files, CopyWhole_OfWhatIsNotThere_NamesTheCauseAndLeavesTheTarget)
{
    WriteFile(target, "old");
    EXPECT_EQ(platform::CopyWhole(source, target), "No such file or directory");
    EXPECT_EQ(ReadFile(target), "old");
    EXPECT_EQ(Count(), 1);
}

TEST_F(Files, CopyWhole_OfAFolder_Fails)
{
    EXPECT_EQ(platform::CopyWhole(folder.Path(), target), "Is a directory");
    EXPECT_EQ(Count(), 0);
}

TEST_F(Files, CopyWhole_OntoAFolder_FailsAndLeavesNothing)
{
    WriteFile(source, "new");
    fs::create_directory(target);
    EXPECT_EQ(platform::CopyWhole(source, target), "Is a directory");
    EXPECT_TRUE(fs::is_directory(target));
    EXPECT_EQ(Count(), 2);
}

TEST_F(Files, CopyWhole_IntoAFolderThatIsNotThere_Fails)
{
    WriteFile(source, "new");
    EXPECT_EQ(platform::CopyWhole(source, folder.File("none/target")), "No such file or directory");
}

TEST_F(Files, CopyWhole_ThatRunsOutOfRoom_LeavesTheTargetWholeAndNothingBeside)
{
    WriteFile(source, std::string(200000, 'n'));
    WriteFile(target, "old");
    {
        const support::FileSizeLimit full(100000);
        EXPECT_EQ(platform::CopyWhole(source, target), "File too large");
    }
    EXPECT_EQ(ReadFile(target), "old");
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(platform::CopyWhole(source, target), "");
    EXPECT_EQ(ReadFile(target), std::string(200000, 'n'));
}

TEST_F(Files, CopyWhole_OnAFullDisk_LeavesTheTargetWholeAndNothingBeside)
{
    if (!support::CanMount()) {
        GTEST_SKIP() << "no disk of its own can be mounted here";
    }
    EXPECT_EQ(support::InChild([this] {
                  ASSERT_TRUE(support::MountSmallDisk(folder.Path(), "128k"));
                  WriteFile(source, std::string(90000, 'n'));
                  WriteFile(target, "old");
                  EXPECT_EQ(platform::CopyWhole(source, target), "No space left on device");
                  EXPECT_EQ(ReadFile(target), "old");
                  EXPECT_EQ(Count(), 2);
              }),
              0);
}

TEST_F(Files, CopyWhole_WhereTheFolderIsReadOnly_Fails)
{
    WriteFile(source, "new");
    WriteFile(target, "old");
    fs::permissions(source, fs::perms::all);
    fs::permissions(folder.Path(),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                        fs::perms::others_exec);
    EXPECT_EQ(support::InChild([this] {
                  ASSERT_TRUE(support::BecomeOrdinaryUser());
                  EXPECT_EQ(platform::CopyWhole(source, target), "Permission denied");
              }),
              0);
    fs::permissions(folder.Path(), fs::perms::owner_all);
    EXPECT_EQ(ReadFile(target), "old");
}

TEST_F(Files, IsSameFile_SeesThroughLinksAndSpellings)
{
    WriteFile(source, "x");
    WriteFile(target, "x");
    fs::create_directory(folder.File("sub"));
    fs::create_symlink(source, folder.File("soft"));
    fs::create_hard_link(source, folder.File("hard"));
    for (const char* name : {"source", "soft", "hard", "./source", "sub/../source", "sub//..//source"}) {
        EXPECT_TRUE(platform::IsSameFile(source, folder.File(name))) << name;
    }
    EXPECT_FALSE(platform::IsSameFile(source, target));
    EXPECT_FALSE(platform::IsSameFile(source, folder.File("none")));
    EXPECT_FALSE(platform::IsSameFile(folder.File("none"), folder.File("none")));
}

TEST_F(Files, FolderCanBeListed_TellsTheSystemsErrorNumber)
{
    int error = -1;
    EXPECT_TRUE(platform::FolderCanBeListed(folder.Path(), error));
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(platform::FolderCanBeListed(folder.File("none"), error));
    EXPECT_EQ(error, ENOENT);
    WriteFile(source, "x");
    EXPECT_FALSE(platform::FolderCanBeListed(source, error));
    EXPECT_EQ(error, ENOTDIR);
}

TEST_F(Files, FileExists_AlsoForFoldersButNotForALooseLink)
{
    EXPECT_TRUE(platform::FileExists(folder.Path()));
    EXPECT_FALSE(platform::FileExists(source));
    fs::create_symlink(source, target);
    EXPECT_FALSE(platform::FileExists(target));
    EXPECT_FALSE(platform::FileExists(""));
}

TEST_F(Files, AppendText_AddsAtTheEndAndMakesTheFile)
{
    EXPECT_TRUE(platform::AppendText(target, "one\n"));
    EXPECT_TRUE(platform::AppendText(target, "two\n"));
    EXPECT_EQ(ReadFile(target), "one\ntwo\n");
    EXPECT_TRUE(platform::WriteText(target, "anew"));
    EXPECT_EQ(ReadFile(target), "anew");
}

TEST_F(Files, WhatCannotBeWritten_IsToldByFalse)
{
    EXPECT_FALSE(platform::AppendText(folder.Path(), "x"));
    EXPECT_FALSE(platform::WriteText(folder.File("none/x"), "x"));
    EXPECT_FALSE(platform::AppendText("/dev/full", "x"));
}

TEST_F(Files, FullPath_StartsAtTheRoot)
{
    const std::string here = fs::current_path().string();
    EXPECT_EQ(platform::FullPath("Fire 1.qel"), here + "/Fire 1.qel");
    EXPECT_EQ(platform::FullPath("/a/b.qel"), "/a/b.qel");
}
