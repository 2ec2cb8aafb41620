#include "session/EditionCheck.h"
#include "session/SessionState.h"
#include "session/u11Datafile.h"
#include "session/u14Properties.h"
#include "support/TestSession.h"

using u14Properties::Property_Get;
using Texts = std::vector<std::string>;

namespace {

constexpr const char* kWithUnits = "DELETE FROM FMZList; INSERT INTO FMZList VALUES (1, 'A', 'Unit A');";
constexpr const char* kWithoutUnits = "DELETE FROM FMZList;";

Texts Refusal(const std::string& file, const std::string& mode)
{
    return {"This is a VEXA " + file + " file.", "It cannot be opened in " + mode + " mode."};
}

class EditionCheckTest : public support::TestSession
{
protected:
    void OpenWith(const std::string& programID, const char* units = kWithoutUnits)
    {
        OpenNew(kWithoutUnits);
        Close();
        support::ExecuteSql(path, std::string(units));
        Open(path);
        u14Properties::Property_Set("ProgramID", programID);
        EXPECT_EQ(Property_Get("ProgramID"), programID);
    }
    void ExpectQuestion(const std::string& from,
                        const std::string& to,
                        const std::string& lost,
                        platform::Answer answer)
    {
        platform::Message message;
        message.title = "Convert to VEXA " + to + "?";
        message.lines = {"This file is a VEXA " + from + " file.",
                         "If you open it in " + to + " mode, you will no longer be able to open it in " +
                             lost + " mode.",
                         "Do you want to convert the file to a VEXA " + to + " file?"};
        message.buttons = platform::Buttons::YesNo;
        message.preset = platform::Answer::No;
        desktop.Expect(message, answer);
    }
};

} // namespace

TEST_F(EditionCheckTest, OpeningInThisEdition_GoesByMarkAndLandUnits)
{
    const struct
    {
        const char* mark;
        bool units;
        const char* refusedAs; // empty: opens
        const char* markAfter;
    } cases[] = {{"Basic", false, "", "Basic"},
                 {"Basic", true, "", "Basic"},
                 {"Standard", false, "Standard", "Standard"},
                 {"Standard", true, "Standard", "Standard"},
                 {"Advanced", false, "Advanced", "Advanced"},
                 {"Advanced", true, "Standard", "Standard"}, // rewritten before it is refused: kept
                 {"", false, "", "Basic"},
                 {"", true, "Standard", "Standard"},
                 {"Deluxe", false, "", "Basic"},
                 {"Deluxe", true, "Standard", "Standard"},
                 {"basic", false, "", "Basic"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.mark) + (c.units ? " with" : " without") + " land units");
        Close();
        path = MakeFile(std::string(c.units ? kWithUnits : kWithoutUnits) +
                        "UPDATE Properties SET Value = '" + c.mark + "' WHERE Property = 'ProgramID'");
        const bool opens = std::string(c.refusedAs).empty();
        if (!opens) {
            desktop.ExpectText(Refusal(c.refusedAs, "Basic"));
        }
        EXPECT_EQ(u11Datafile::OpenDatafile(path), opens);
        EXPECT_EQ(gDatabaseOpen, opens);
        EXPECT_EQ(gDatabase != nullptr, opens);
        EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'ProgramID'"),
                  (support::Rows{{c.markAfter}}));
        desktop.CheckDone();
    }
}

TEST_F(EditionCheckTest, AFileWithoutTheRow_GetsOne)
{
    path = MakeFile(std::string(kWithoutUnits) + "DELETE FROM Properties WHERE Property = 'ProgramID'");
    EXPECT_TRUE(u11Datafile::OpenDatafile(path));
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'ProgramID'"), (support::Rows{{"Basic"}}));
}

TEST_F(EditionCheckTest, TheStandardEdition_TakesItsOwnRefusesAdvancedAndMarksTheRest)
{
    OpenWith("Basic");
    EXPECT_TRUE(EditionCheck::CheckMode("Standard", "Standard"));
    desktop.ExpectText(Refusal("Advanced", "Standard"));
    EXPECT_FALSE(EditionCheck::CheckMode("Standard", "Advanced"));
    EXPECT_EQ(Property_Get("ProgramID"), "Basic") << "nothing written so far";
    EXPECT_TRUE(EditionCheck::CheckMode("Standard", ""));
    EXPECT_EQ(Property_Get("ProgramID"), "Standard");
}

TEST_F(EditionCheckTest, TheStandardEditionsYes_WritesBasic)
{
    OpenWith("x"); // anything but Basic, so that the write shows
    ExpectQuestion("Basic", "Standard", "Basic", platform::Answer::No);
    EXPECT_FALSE(EditionCheck::CheckStandardMode("Basic"));
    EXPECT_EQ(Property_Get("ProgramID"), "x");
    ExpectQuestion("Basic", "Standard", "Basic", platform::Answer::Yes);
    EXPECT_TRUE(EditionCheck::CheckStandardMode("Basic"));
    EXPECT_EQ(Property_Get("ProgramID"), "Basic") << "not Standard: kept";
}

TEST_F(EditionCheckTest, TheAdvancedEdition_AsksForFilesOfTheOthers)
{
    OpenWith("Basic");
    EXPECT_TRUE(EditionCheck::CheckMode("Advanced", "Advanced"));
    ExpectQuestion("Basic", "Advanced", "Basic or Standard", platform::Answer::No);
    EXPECT_FALSE(EditionCheck::CheckAdvancedMode("Basic"));
    EXPECT_EQ(Property_Get("ProgramID"), "Basic");
    ExpectQuestion("Basic", "Advanced", "Basic or Standard", platform::Answer::Yes);
    EXPECT_TRUE(EditionCheck::CheckAdvancedMode("Basic"));
    EXPECT_EQ(Property_Get("ProgramID"), "Advanced");
}

TEST_F(EditionCheckTest, TheAdvancedEdition_TakesAnyOtherFileForAStandardOneUnlessItIsNew)
{
    OpenWith("Standard");
    for (const char* mark : {"Standard", ""}) {
        ExpectQuestion("Standard", "Advanced", "Standard", platform::Answer::No);
        EXPECT_FALSE(EditionCheck::CheckAdvancedMode(mark));
    }
    gCreatingNewFile = true;
    EXPECT_TRUE(EditionCheck::CheckAdvancedMode(""));
    gCreatingNewFile = false;
}

TEST_F(EditionCheckTest, AnyOtherEdition_Passes)
{
    EXPECT_TRUE(EditionCheck::CheckMode("Deluxe", "Advanced"));
    EXPECT_TRUE(EditionCheck::CheckMode("", ""));
}
