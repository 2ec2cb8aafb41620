#pragma once

#include "platform/base/Numbers.h"

#include <string>

namespace u21Display {

/// A place and size in twips.
struct Box
{
    Long left = 0;
    Long top = 0;
    Long width = 0;
    Long height = 0;
};

enum class MainWindowFit { AsDesigned, Maximised, Placed };

/// How the main window starts on a screen of this height (twips); on a low one a message says so.
/// Placed: at `FirstPlace`.
MainWindowFit FitMainWindow(Long screenHeight);
/// Left 0, top 0, 12120 by 9120 twips.
Box FirstPlace();
/// The dialog moved to the middle of the main window, its size unchanged.
Box CenterOnMain(const Box& dialog, const Box& main);
/// Three lines with line breaks between them.
std::string LegalNotice();

} // namespace u21Display
