#include "platform/spelling/Speller.h"
#include "support/TempFolder.h"

#include <filesystem>
#include <gmock/gmock.h>

using platform::AddResult;
using platform::WordPlace;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

class Speller : public ::testing::Test
{
protected:
    Speller() { speller.SetUserDictionary(userFile); }

    std::vector<std::string> Wrong(const std::string& text)
    {
        std::vector<std::string> words;
        for (const WordPlace& place : speller.WrongWords(text))
            words.push_back(text.substr(place.start, place.length));
        return words;
    }
    /// What a speller of a later session says.
    bool IsRightLater(const std::string& word) const
    {
        platform::Speller later;
        later.SetUserDictionary(userFile);
        return later.IsRight(word);
    }

    support::TempFolder folder;
    std::string userFile = folder.File("Custom.dct");
    platform::Speller speller;
};

TEST_F(Speller, EnglishWords_RightOrWrong)
{
    ASSERT_TRUE(speller.IsReady());
    EXPECT_THAT(Wrong("The fier burned tword the ridge."), ElementsAre("fier", "tword"));
    EXPECT_TRUE(speller.IsRight("ridge"));
    EXPECT_FALSE(speller.IsRight("rigde"));
}

TEST_F(Speller, Apostrophes_StraightAndCurly)
{
    EXPECT_THAT(Wrong("It can't, it can\u2019t, the crew's, the crew\u2019s, crews' own"), IsEmpty());
    EXPECT_THAT(Wrong("ca'nt ca\u2019nt"), ElementsAre("ca'nt", "ca\u2019nt"));
}

TEST_F(Speller, Abbreviations_NeverWrong)
{
    EXPECT_THAT(Wrong("The U.S. said so at 7 a.m. or p.m., e.g. here, i.e. there."), IsEmpty());
}

TEST_F(Speller, DigitsAndAddresses_Skipped)
{
    EXPECT_THAT(Wrong("Div4x at 0700hrz, https://exampel.org/fyre, kru@exampel.org"), IsEmpty());
}

TEST_F(Speller, Hyphens_OnlyTheWrongPart) { EXPECT_THAT(Wrong("well-known hand-cruw"), ElementsAre("cruw")); }

TEST_F(Speller, CapitalLetters_RightWhereTheWordIs)
{
    EXPECT_THAT(Wrong("RIDGE Ridge RIGDE"), ElementsAre("RIGDE"));
}

TEST_F(Speller, VeryLongWords_WrongAtOnce)
{
    const std::string word(5000, 'a');
    EXPECT_FALSE(speller.IsRight(word));
    EXPECT_THAT(speller.Suggestions(word), IsEmpty());
    std::string hyphens = "a";
    for (int i = 0; i < 2000; ++i)
        hyphens += "-qz";
    EXPECT_EQ(Wrong(hyphens).size(), 2000U);
}

TEST_F(Speller, Suggestions_TheLikeliestFirst)
{
    EXPECT_EQ(speller.Suggestions("rigde").front(), "ridge");
    EXPECT_THAT(speller.Suggestions("ca\u2019nt"), Contains("can't"));
}

TEST_F(Speller, UserDictionary_ItsWordsAreRight)
{
    support::WriteFile(userFile, "helispott\r\nqz-up\nQel\n");
    EXPECT_THAT(Wrong("helispott Helispott HELISPOTT qz-up Qel"), IsEmpty());
    EXPECT_THAT(Wrong("qel helispotts"), ElementsAre("qel", "helispotts"));
}

TEST_F(Speller, UserDictionary_OfferedAmongTheSuggestions)
{
    support::WriteFile(userFile, "helispott\n");
    EXPECT_THAT(speller.Suggestions("helispotz"), Contains("helispott"));
}

TEST_F(Speller, AnotherUserDictionary_OnlyItsWords)
{
    support::WriteFile(userFile, "qzfirst\n");
    const std::string other = folder.File("Other.dct");
    support::WriteFile(other, "qzsecond\n");
    EXPECT_TRUE(speller.IsRight("qzfirst"));
    speller.SetUserDictionary(other);
    EXPECT_FALSE(speller.IsRight("qzfirst"));
    EXPECT_TRUE(speller.IsRight("qzsecond"));
}

TEST_F(Speller, Add_RightFromNowOnAndInLaterSessions)
{
    support::WriteFile(userFile, "snag\r\n");
    EXPECT_FALSE(speller.IsRight("qzspot"));
    EXPECT_EQ(speller.Add("qzspot"), AddResult::Kept);
    EXPECT_TRUE(speller.IsRight("qzspot"));
    EXPECT_TRUE(IsRightLater("qzspot"));
}

TEST_F(Speller, Add_CurlyApostrophe_WrittenStraight)
{
    speller.Add("qz\u2019spot");
    EXPECT_TRUE(speller.IsRight("qz'spot"));
    EXPECT_EQ(support::ReadFile(userFile), "qz'spot\n");
}

TEST_F(Speller, Add_ReadOnlyFile_TheWordCountsForTheSession)
{
    support::WriteFile(userFile, "snag\n");
    std::filesystem::permissions(userFile, std::filesystem::perms::owner_read);
    EXPECT_EQ(speller.Add("qzspot"), AddResult::NotWritten);
    EXPECT_TRUE(speller.IsRight("qzspot"));
    speller.SetUserDictionary(folder.File("Other.dct"));
    EXPECT_TRUE(speller.IsRight("qzspot"));
    EXPECT_FALSE(IsRightLater("qzspot"));
}

TEST_F(Speller, IgnoreAll_RightUntilHeededAgain)
{
    speller.IgnoreAll("qzspot");
    EXPECT_THAT(Wrong("qzspot Qzspot"), ElementsAre("Qzspot"));
    EXPECT_FALSE(IsRightLater("qzspot"));
    speller.HeedAgain("qzspot");
    EXPECT_FALSE(speller.IsRight("qzspot"));
    EXPECT_EQ(support::ReadFile(userFile), "");
}

TEST_F(Speller, NoDictionary_NothingIsWrongAndItSaysWhatIsMissing)
{
    platform::Speller none({folder.Path()});
    EXPECT_FALSE(none.IsReady());
    EXPECT_TRUE(none.IsRight("rigde"));
    EXPECT_THAT(none.WrongWords("The fier burned"), IsEmpty());
    EXPECT_THAT(none.Suggestions("rigde"), IsEmpty());
    EXPECT_EQ(platform::Speller::MissingDictionary().size(), 2U);
}

TEST_F(Speller, EmptyDictionaryFiles_AsIfNoneStood)
{
    support::WriteFile(folder.File("en_US.aff"), "");
    support::WriteFile(folder.File("en_US.dic"), "");
    platform::Speller none({folder.Path()});
    EXPECT_FALSE(none.IsReady());
}

TEST_F(Speller, NoDictionary_AddedWordsAreKeptAllTheSame)
{
    platform::Speller none({folder.Path()});
    none.SetUserDictionary(userFile);
    EXPECT_EQ(none.Add("qzspot"), AddResult::KeptInNewFile);
    EXPECT_TRUE(IsRightLater("qzspot"));
}

TEST_F(Speller, SecondFolder_TakenWhereTheFirstHasNone)
{
    std::vector<std::string> folders = platform::Speller::SystemFolders();
    folders.insert(folders.begin(), folder.Path());
    EXPECT_TRUE(platform::Speller(folders).IsReady());
}

} // namespace
