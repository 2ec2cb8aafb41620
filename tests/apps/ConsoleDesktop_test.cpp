#include "vexa-cli/ConsoleDesktop.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using platform::Answer;
using platform::Buttons;
using vexa_cli::ConsoleDesktop;

platform::Message Question(Buttons buttons)
{
    platform::Message message;
    message.title = "Delete";
    message.lines = {"First line.", "", "Do you?"};
    message.buttons = buttons;
    return message;
}

TEST(ConsoleDesktop, MessageWithATitle_ItsTitleHasALineOfItsOwn)
{
    std::ostringstream err;
    ConsoleDesktop desktop(err, false);
    EXPECT_EQ(desktop.Show(Question(Buttons::Ok)), Answer::Ok);
    EXPECT_EQ(err.str(), "Delete\nFirst line.\n\nDo you?\n");
    EXPECT_FALSE(desktop.AnsweredNo());
}

TEST(ConsoleDesktop, MessageWithoutATitle_HasItsLinesAlone)
{
    std::ostringstream err;
    ConsoleDesktop desktop(err, false);
    platform::Message message;
    message.lines = {"One.", "Two."};
    desktop.Show(message);
    EXPECT_EQ(err.str(), "One.\nTwo.\n");
}

TEST(ConsoleDesktop, Question_IsAnsweredCancelOrNo)
{
    for (const auto& [buttons, answer] :
         {std::pair(Buttons::OkCancel, Answer::Cancel), std::pair(Buttons::YesNo, Answer::No)}) {
        std::ostringstream err;
        ConsoleDesktop desktop(err, false);
        EXPECT_EQ(desktop.Show(Question(buttons)), answer);
        EXPECT_TRUE(desktop.AnsweredNo());
        desktop.StartAfresh();
        EXPECT_FALSE(desktop.AnsweredNo());
        EXPECT_TRUE(desktop.WordsShown().empty());
    }
}

TEST(ConsoleDesktop, QuestionUnderYes_IsAnsweredOkOrYes)
{
    std::ostringstream err;
    ConsoleDesktop desktop(err, true);
    EXPECT_EQ(desktop.Show(Question(Buttons::OkCancel)), Answer::Ok);
    EXPECT_EQ(desktop.Show(Question(Buttons::YesNo)), Answer::Yes);
    EXPECT_FALSE(desktop.AnsweredNo());
}

TEST(ConsoleDesktop, FileDialog_IsCancelled)
{
    std::ostringstream err;
    EXPECT_EQ(ConsoleDesktop(err, true).AskFile({}), std::nullopt);
}

} // namespace
