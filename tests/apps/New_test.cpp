#include "CliTest.h"

#include <filesystem>

namespace {

using New = support::CliTest;

std::string Property(const std::string& file, const std::string& name)
{
    const support::Rows rows =
        support::QuerySql(file, "SELECT Value FROM Properties WHERE Property = '" + name + "'");
    return rows.size() == 1 ? rows.front().front() : "none";
}

TEST_F(New, NewFile_IsTheTemplateWithItsPathAndEdition)
{
    const std::string file = folder.File("New.qel");
    const Result result = Run({"new", file});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(Property(file, "FullFileName"), file);
    EXPECT_EQ(Property(file, "ProgramID"), "Basic");
    EXPECT_EQ(Property(file, "DataFormatID"), "06.01.01");
    EXPECT_EQ(Run({"check", file}).out, "ok\n");
}

TEST_F(New, RelativePath_IsStoredInFull)
{
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(Run({"new", "New.qel"}).status, 0);
    std::filesystem::current_path("/");
    const std::string stored = Property(folder.File("New.qel"), "FullFileName");
    EXPECT_TRUE(std::filesystem::equivalent(stored, folder.File("New.qel"))) << stored;
    EXPECT_TRUE(std::filesystem::path(stored).is_absolute()) << stored;
}

TEST_F(New, ExistingFile_IsAQuestionAnsweredNo)
{
    const std::string file = MakeFile("INSERT INTO FMZList VALUES (1, 'a', 'b')");
    const std::string before = support::ReadFile(file);
    const Result result = Run({"new", file});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.err, "Replace file?\nThe file already exists.  Do you want to overwrite it?\n");
    EXPECT_TRUE(support::ReadFile(file) == before);
}

TEST_F(New, ExistingFileUnderYes_IsReplaced)
{
    const std::string file = MakeFile("INSERT INTO FMZList VALUES (1, 'a', 'b')");
    const Result result = Run({"new", file, "--yes"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(support::QuerySql(file, "SELECT count(*) FROM FMZList").front().front(), "0");
}

TEST_F(New, MissingTemplate_IsToldInTwoLines)
{
    std::filesystem::remove(folder.File("QEL.new"));
    const Result result = Run({"new", folder.File("New.qel")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "Source file QEL.new is missing.\nUnable to create new file.\n");
    EXPECT_FALSE(std::filesystem::exists(folder.File("New.qel")));
}

TEST_F(New, FolderThatIsNotThere_IsAFailure)
{
    const Result result = Run({"new", folder.File("nowhere/New.qel")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "Unable to create new file.\n");
    EXPECT_EQ(result.out, "");
}

TEST_F(New, FolderInTheFilesPlace_IsKept)
{
    EXPECT_EQ(Run({"new", folder.File("VEXAData"), "--yes"}).status, 1);
    EXPECT_TRUE(std::filesystem::is_directory(folder.File("VEXAData")));
}

} // namespace
