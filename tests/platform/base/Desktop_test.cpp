#include "platform/base/Desktop.h"
#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

TEST(ShowMessage, IsAPlainBoxWithOkAndNoTitle)
{
    support::ScriptedDesktop desktop;
    platform::SetDesktop(&desktop);
    platform::Message plain;
    plain.lines = {"first", "second"};
    plain.title = "";
    plain.buttons = platform::Buttons::Ok;
    plain.preset = platform::Answer::Ok;
    plain.icon = platform::Icon::None;
    desktop.Expect(plain);
    platform::ShowMessage({"first", "second"});
    desktop.CheckDone();
    EXPECT_EQ(&platform::TheDesktop(), &desktop);
    platform::SetDesktop(nullptr);
}
