#include "platform/spelling/UserWords.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace fs = std::filesystem;

using platform::AddResult;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class UserWords : public ::testing::Test
{
protected:
    void Write(const std::string& bytes) { support::WriteFile(words.Path(), bytes); }
    std::string Bytes() const { return support::ReadFile(words.Path()); }
    /// The names in the folder, so that nothing is left lying about.
    std::vector<std::string> Files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.Path()))
            names.push_back(entry.path().filename().string());
        return names;
    }

    support::TempFolder folder;
    platform::UserWords words{folder.File("Custom.dct")};
};

TEST_F(UserWords, Lines_WithEitherLineEnd)
{
    Write("helispot\r\nmop-up\nsnag");
    EXPECT_THAT(words.Read(), ElementsAre("helispot", "mop-up", "snag"));
}

TEST_F(UserWords, EmptyLinesBlanksAndMark_PassedOver)
{
    Write("\xEF\xBB\xBFhelispot\n\n  snag \t\r\n   \r\n");
    EXPECT_THAT(words.Read(), ElementsAre("helispot", "snag"));
}

TEST_F(UserWords, LineThatIsNoUtf8_PassedOver)
{
    Write("A\xF1"
          "asco\nsnag\nAñasco\n");
    EXPECT_THAT(words.Read(), ElementsAre("snag", "Añasco"));
}

TEST_F(UserWords, NoFile_NoWords)
{
    EXPECT_THAT(words.Read(), IsEmpty());
    EXPECT_THAT(platform::UserWords(folder.Path()).Read(), IsEmpty()); // a folder
    EXPECT_THAT(platform::UserWords("").Read(), IsEmpty());
}

TEST_F(UserWords, Add_NewLastLine)
{
    Write("snag\n");
    EXPECT_EQ(words.Add("helispot"), AddResult::Kept);
    EXPECT_EQ(Bytes(), "snag\nhelispot\n");
    EXPECT_THAT(Files(), ElementsAre("Custom.dct"));
}

TEST_F(UserWords, Add_KeepsTheFilesLineEnds)
{
    Write("snag\r\nmop-up");
    EXPECT_EQ(words.Add("helispot"), AddResult::Kept);
    EXPECT_EQ(Bytes(), "snag\r\nmop-up\r\nhelispot\r\n");
}

TEST_F(UserWords, Add_KeepsWhatAnotherProgramWroteMeanwhile)
{
    Write("snag\n");
    words.Read();
    Write("snag\nlodgepole\n");
    words.Add("helispot");
    EXPECT_EQ(Bytes(), "snag\nlodgepole\nhelispot\n");
}

TEST_F(UserWords, Add_WordThatStandsThere_NotTwice)
{
    Write("snag\n");
    EXPECT_EQ(words.Add("snag"), AddResult::Kept);
    EXPECT_EQ(Bytes(), "snag\n");
}

TEST_F(UserWords, Add_KeepsBytesItCannotRead)
{
    Write("A\xF1"
          "asco\n");
    words.Add("snag");
    EXPECT_EQ(Bytes(),
              "A\xF1"
              "asco\nsnag\n");
}

TEST_F(UserWords, Add_NoFile_MakesOneAndSaysSo)
{
    EXPECT_EQ(words.Add("helispot"), AddResult::KeptInNewFile);
    EXPECT_EQ(Bytes(), "helispot\n");
    EXPECT_THAT(Files(), ElementsAre("Custom.dct"));
}

TEST_F(UserWords, Add_NoFolder_NotWritten)
{
    EXPECT_EQ(platform::UserWords(folder.File("none/Custom.dct")).Add("snag"), AddResult::NotWritten);
    EXPECT_EQ(platform::UserWords("").Add("snag"), AddResult::NotWritten);
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(UserWords, Add_ReadOnlyFile_NotWrittenAndAsItWas)
{
    Write("snag\n");
    fs::permissions(words.Path(), fs::perms::owner_read);
    EXPECT_EQ(words.Add("helispot"), AddResult::NotWritten);
    EXPECT_EQ(Bytes(), "snag\n");
    EXPECT_EQ(fs::status(words.Path()).permissions(), fs::perms::owner_read);
    EXPECT_THAT(Files(), ElementsAre("Custom.dct"));
}

TEST_F(UserWords, Add_FolderInTheFilesPlace_NotWritten)
{
    fs::create_directory(words.Path());
    EXPECT_EQ(words.Add("helispot"), AddResult::NotWritten);
    EXPECT_THAT(Files(), ElementsAre("Custom.dct"));
}

} // namespace
