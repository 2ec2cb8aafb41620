#pragma once

/// Topics of the help file that no worksheet has. A worksheet's topic is 4000 + 100 times its section + 10
/// times its tab, a dialog's is that of its worksheet and 1 or 2 more; below 4200 stands what is met in every
/// section.
namespace platform::HelpTopics {

constexpr int kOnScreen = -1; // the topic of what the main window shows
constexpr int kContents = 0;
constexpr int kStart = 4010;
constexpr int kFiles = 4020;
constexpr int kTexts = 4030;
constexpr int kSpelling = 4040;
constexpr int kPrinterSetup = 4050;
constexpr int kMessages = 4060;
constexpr int kHelp = 4070;

} // namespace platform::HelpTopics
