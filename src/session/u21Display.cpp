#include "session/u21Display.h"

#include "platform/base/Desktop.h"

namespace u21Display {

namespace {
constexpr Long kLowScreen = 8000;
constexpr Long kDesignedHeight = 9120;
constexpr Long kDesignedWidth = 12120;
} // namespace

MainWindowFit FitMainWindow(Long screenHeight)
{
    if (screenHeight <= kLowScreen) {
        platform::ShowMessage(
            {"This program is designed for display at 800 x 600 resolution or higher.",
             "You may have difficulty using the program with your current display settings."});
        return MainWindowFit::AsDesigned;
    }
    return screenHeight <= kDesignedHeight ? MainWindowFit::Maximised : MainWindowFit::Placed;
}

Box FirstPlace() { return {0, 0, kDesignedWidth, kDesignedHeight}; }

Box CenterOnMain(const Box& dialog, const Box& main)
{
    Box moved = dialog;
    moved.left = main.left + (main.width - dialog.width) / 2;
    moved.top = main.top + (main.height - dialog.height) / 2;
    return moved;
}

std::string LegalNotice()
{
    return "Decision support for wildfire incidents.\nProvided as is, without warranty of any kind.\n"
           "The decision remains with the responsible official.";
}

} // namespace u21Display
