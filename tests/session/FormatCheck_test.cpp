#include "session/FormatCheck.h"
#include "session/SessionLinks.h"
#include "session/SessionState.h"
#include "session/u11Datafile.h"
#include "session/u14Properties.h"
#include "support/TestSession.h"

#include <nlohmann/json.hpp>

namespace {

class FormatCheckTest : public support::TestSession
{
protected:
    std::string FileOf(const std::string& format)
    {
        path = MakeFile("UPDATE Properties SET Value = '" + format + "' WHERE Property = 'DataFormatID'");
        return path;
    }
    /// Steps that write down that they ran; the last leaves the format they reach.
    void NoteSteps(bool answer)
    {
        SessionLinks& links = Links();
        links.QueryConvertTo5 = [this, answer] { return Note("ask 5", answer); };
        links.QueryConvertTo6 = [this, answer] { return Note("ask 6", answer); };
        links.Convert4to41 = [this] { Note("4 to 41", true); };
        links.Convert41to5 = [this] { Note("41 to 5", true); };
        links.Convert5to6 = [this] { Note("5 to 6", true); };
    }
    bool Note(const char* what, bool result)
    {
        steps.emplace_back(what);
        return result;
    }
    std::vector<std::string> steps;
};

using Texts = std::vector<std::string>;

platform::Message QuestionOf(const nlohmann::json& question)
{
    platform::Message message;
    message.title = question.at("title");
    message.lines = question.at("lines").get<Texts>();
    message.buttons = platform::Buttons::OkCancel;
    message.preset = platform::Answer::Cancel;
    message.icon = platform::Icon::Question;
    return message;
}

platform::Message MessageOf(const nlohmann::json& told)
{
    platform::Message message;
    message.title = told.at("title").is_null() ? "" : told.at("title").get<std::string>();
    message.lines = told.at("lines").get<Texts>();
    message.icon = message.title.empty() ? platform::Icon::None : platform::Icon::Stop;
    return message;
}

} // namespace

TEST_F(FormatCheckTest, ABetaFile_IsRelabelledWithoutAWord)
{
    EXPECT_TRUE(u11Datafile::OpenDatafile(FileOf("06.00.beta")));
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'DataFormatID'"),
              (support::Rows{{"06.01.01"}}));
}

TEST_F(FormatCheckTest, AnOlderFormat_IsAskedForOnceAndTakesItsSteps)
{
    const struct
    {
        const char* format;
        Texts steps;
    } cases[] = {{"05.01.02", {"ask 6", "5 to 6"}},
                 {"04.01.01", {"ask 5", "41 to 5", "5 to 6"}},
                 {"4.00.00", {"ask 5", "4 to 41", "41 to 5", "5 to 6"}},
                 {"3.93.00", {"ask 5", "4 to 41", "41 to 5", "5 to 6"}}};
    for (const auto& c : cases) {
        steps.clear();
        NoteSteps(true);
        EXPECT_TRUE(u11Datafile::OpenDatafile(FileOf(c.format))) << c.format;
        EXPECT_EQ(steps, c.steps) << c.format;
        Close();
    }
}

TEST_F(FormatCheckTest, ADeclinedQuestion_ClosesTheFileWithNothingChanged)
{
    for (const char* format : {"05.01.02", "04.01.01", "4.00.00", "3.93.00"}) {
        steps.clear();
        NoteSteps(false);
        const std::string before = support::ReadFile(FileOf(format));
        EXPECT_FALSE(u11Datafile::OpenDatafile(path));
        EXPECT_EQ(steps.size(), 1U) << format;
        EXPECT_EQ(gDatabase, nullptr);
        EXPECT_FALSE(gDatabaseOpen);
        EXPECT_TRUE(support::ReadFile(path) == before);
    }
}

TEST_F(FormatCheckTest, AStepThatFails_GivesTheTwoLines)
{
    NoteSteps(true);
    Links().Convert5to6 = [] { OpenDatabase().OpenTable("NoSuchTable"); };
    desktop.ExpectText({"The file does not appear to be a VEXA Plus file.", "It cannot be opened."});
    EXPECT_FALSE(u11Datafile::OpenDatafile(FileOf("05.01.02")));
    EXPECT_EQ(gDatabase, nullptr);
    EXPECT_NE(ErrorLog().find("NoSuchTable"), std::string::npos);
}

TEST_F(FormatCheckTest, AStepThatIsNotThere_EndsAsARefusalWithNothingChanged)
{
    NoteSteps(true);
    Links().Convert5to6 = nullptr;
    const std::string before = support::ReadFile(FileOf("04.01.01"));
    desktop.ExpectText(
        {"This version cannot convert files of older formats yet.", "Nothing in the file was changed."});
    EXPECT_FALSE(u11Datafile::OpenDatafile(path));
    EXPECT_EQ(steps, Texts{"ask 5"}) << "no step runs unless all are there";
    EXPECT_TRUE(support::ReadFile(path) == before);
    EXPECT_NE(ErrorLog().find("no conversion"), std::string::npos);
}

TEST_F(FormatCheckTest, The98Edition_IsRefusedUnderItsTitle)
{
    platform::Message message;
    message.title = "VEXA Plus '98 File";
    message.lines = {"This is a VEXA Plus '98 file.", "It cannot be opened using VEXA Plus 06."};
    message.icon = platform::Icon::Stop;
    desktop.Expect(message);
    EXPECT_FALSE(u11Datafile::OpenDatafile(FileOf("3.00.00")));
    EXPECT_EQ(gDatabase, nullptr);
}

TEST_F(FormatCheckTest, AnythingElse_IsRefusedAsIncompatible)
{
    for (const char* format : {"07.00.00", "", "6.01.01", "06.01.01 ", "05.01.01"}) {
        const std::string before = support::ReadFile(FileOf(format));
        desktop.ExpectText(
            {"This file uses an incompatible format", "and cannot be opened using VEXA Plus 06."});
        EXPECT_FALSE(u11Datafile::OpenDatafile(path)) << format;
        EXPECT_TRUE(support::ReadFile(path) == before);
    }
}

TEST_F(FormatCheckTest, TheFilesOfOlderFormats_AreToldAndTreatedAsTheirCasesSay)
{
    const nlohmann::json cases =
        nlohmann::json::parse(support::ReadFile(support::DataFile("legacy/cases.json")));
    int looked = 0;
    for (const auto& c : cases.at("cases")) {
        for (const std::string name : c.at("files")) {
            // The other containers are read by another program.
            if (!name.ends_with(".sqlite.qel") && name != "text.qel" && name != "zero-length.qel") {
                continue;
            }
            SCOPED_TRACE(name);
            ++looked;
            path = folder.File(name);
            support::CopyFile(support::DataFile("legacy/" + name), path);
            const std::string before = support::ReadFile(path);
            if (!c.at("question").is_null()) { // answered Cancel
                desktop.Expect(QuestionOf(c.at("question")), platform::Answer::Cancel);
                EXPECT_FALSE(u11Datafile::OpenDatafile(path));
                EXPECT_TRUE(support::ReadFile(path) == before);
                desktop.CheckDone();
                continue;
            }
            if (!c.at("message").is_null()) {
                desktop.Expect(MessageOf(c.at("message")));
            }
            EXPECT_EQ(u11Datafile::OpenDatafile(path), c.at("result") == "open");
            desktop.CheckDone();
            Close();
            if (c.at("afterwards") == "untouched") {
                EXPECT_TRUE(support::ReadFile(path) == before);
            } else {
                for (const auto& [property, value] : c.at("final").items()) {
                    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = '" + property +
                                    "' COLLATE NOCASE"),
                              (support::Rows{{value.get<std::string>()}}));
                }
            }
        }
    }
    EXPECT_GE(looked, 20);
}
