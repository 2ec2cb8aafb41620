#include "session/u13Folders.h"
#include "support/TestSession.h"

#include <cerrno>
#include <filesystem>

namespace fs = std::filesystem;

namespace {
class u13FoldersTest : public support::TestSession
{};
} // namespace

TEST_F(u13FoldersTest, TheDataFolder_IsVEXADataWhereItStands)
{
    fs::create_directory(folder.File("DATA99"));
    EXPECT_EQ(u13Folders::GetDataFolder(), folder.File("VEXAData"));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(u13FoldersTest, TheDataFolder_IsDATA99WhereTheFirstIsMissing)
{
    fs::remove(folder.File("VEXAData"));
    fs::create_directory(folder.File("DATA99"));
    EXPECT_EQ(u13Folders::GetDataFolder(), folder.File("DATA99"));
    EXPECT_TRUE(LogLines().empty());
}

TEST_F(u13FoldersTest, TheDataFolder_IsElseTheProgramFolderWithAWarning)
{
    fs::remove(folder.File("VEXAData"));
    EXPECT_EQ(u13Folders::GetDataFolder(), folder.Path());
    EXPECT_EQ(LogLines(),
              (std::vector<std::string>{"",
                                        "  Warning! " + folder.Path() + "  Err = " + std::to_string(ENOENT) +
                                            ", DataPath = " + folder.Path(),
                                        ""}));
}

TEST_F(u13FoldersTest, AFileInTheFoldersPlace_IsNoFolder)
{
    fs::remove(folder.File("VEXAData"));
    support::WriteFile(folder.File("VEXAData"), "x");
    fs::create_directory(folder.File("DATA99"));
    EXPECT_EQ(u13Folders::GetDataFolder(), folder.File("DATA99"));
}

TEST(FileNameOf, IsWhatStandsBehindTheLastSeparator)
{
    const struct
    {
        const char* path;
        const char* name;
    } cases[] = {{"", ""},
                 {"Fire.qel", "Fire.qel"},
                 {"C:\\VEXA\\VEXAData\\Fire.qel", "Fire.qel"},
                 {"/home/a b/Fire.qel", "Fire.qel"},
                 {"/mixed\\Fire.qel", "Fire.qel"},
                 {"\\mixed/Fire.qel", "Fire.qel"},
                 {"/folder/", ""}};
    for (const auto& c : cases) {
        EXPECT_EQ(u13Folders::FileNameOf(c.path), c.name) << c.path;
    }
}
