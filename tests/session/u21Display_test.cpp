#include "session/u21Display.h"
#include "support/TestSession.h"

using u21Display::FitMainWindow;
using u21Display::MainWindowFit;

namespace {
class u21DisplayTest : public support::TestSession
{};
} // namespace

TEST_F(u21DisplayTest, ALowScreen_GetsAWordAndTheWindowAsDesigned)
{
    for (const Long height : {1, 7200, 8000}) {
        desktop.ExpectText({"This program is designed for display at 800 x 600 resolution or higher.",
                            "You may have difficulty using the program with your current display settings."});
        EXPECT_EQ(FitMainWindow(height), MainWindowFit::AsDesigned) << height;
    }
}

TEST_F(u21DisplayTest, AMiddlingScreen_IsFilledAndAHighOneGetsItsPlace)
{
    EXPECT_EQ(FitMainWindow(8001), MainWindowFit::Maximised);
    EXPECT_EQ(FitMainWindow(9120), MainWindowFit::Maximised);
    EXPECT_EQ(FitMainWindow(9121), MainWindowFit::Placed);
    const u21Display::Box place = u21Display::FirstPlace();
    EXPECT_EQ(place.left, 0);
    EXPECT_EQ(place.top, 0);
    EXPECT_EQ(place.width, 12120);
    EXPECT_EQ(place.height, 9120);
}

TEST_F(u21DisplayTest, ADialog_IsCenteredOnTheMainWindowWithItsSizeUnchanged)
{
    const u21Display::Box moved = u21Display::CenterOnMain({5, 5, 4000, 3000}, {1000, 500, 12120, 9120});
    EXPECT_EQ(moved.left, 1000 + 4060);
    EXPECT_EQ(moved.top, 500 + 3060);
    EXPECT_EQ(moved.width, 4000);
    EXPECT_EQ(moved.height, 3000);
    const u21Display::Box wide = u21Display::CenterOnMain({0, 0, 2000, 2000}, {0, 0, 1000, 1000});
    EXPECT_EQ(wide.left, -500);
    EXPECT_EQ(wide.top, -500);
}

TEST_F(u21DisplayTest, TheLegalNotice_HasItsThreeLines)
{
    EXPECT_EQ(u21Display::LegalNotice(),
              "Decision support for wildfire incidents.\nProvided as is, without warranty of any kind.\n"
              "The decision remains with the responsible official.");
}
