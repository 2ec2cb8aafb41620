#include "session/UIMode.h"
#include "support/TestSession.h"

namespace {
class UIModeTest : public support::TestSession
{};

constexpr auto kHourglass = platform::Pointer::Hourglass;
constexpr auto kDefault = platform::Pointer::Default;
} // namespace

TEST_F(UIModeTest, Busy_Nests)
{
    EXPECT_TRUE(UIMode::NotBusy());
    UIMode::BeginBusy();
    UIMode::BeginBusy();
    EXPECT_FALSE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, kHourglass);
    UIMode::EndBusy();
    EXPECT_FALSE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, kHourglass);
    UIMode::EndBusy();
    EXPECT_TRUE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, kDefault);
}

TEST_F(UIModeTest, TheScopeObject_EndsBusyOnEveryPathOut)
{
    try {
        const UIMode::Busy busy;
        EXPECT_FALSE(UIMode::NotBusy());
        throw std::runtime_error("out");
    } catch (const std::runtime_error&) {
        EXPECT_TRUE(UIMode::NotBusy());
    }
}

TEST_F(UIModeTest, EndBusyWithoutBegin_GoesBelowZeroAndTheFlagStays)
{
    UIMode::EndBusy();
    EXPECT_TRUE(UIMode::NotBusy()) << "the flag stays as it was";
    UIMode::BeginBusy(); // back at depth 0, but busy
    EXPECT_FALSE(UIMode::NotBusy());
    UIMode::EndBusy(); // below zero again, not at zero: the flag stays
    EXPECT_FALSE(UIMode::NotBusy());
    EXPECT_EQ(desktop.pointer, kHourglass);
    UIMode::BeginBusy();
    UIMode::BeginBusy();
    UIMode::EndBusy();
    EXPECT_TRUE(UIMode::NotBusy());
}
