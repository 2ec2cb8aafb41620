#pragma once

#include "platform/base/Desktop.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace support {

/// A desktop that knows in order what it will be asked and what it answers. A box that nobody expected, other
/// words than expected, or an expectation left over fails the test.
class ScriptedDesktop : public platform::Desktop
{
public:
    /// The next message box: every word, button and icon of it, and its answer.
    void Expect(const platform::Message& message, platform::Answer answer = platform::Answer::Ok);
    /// A plain box with OK.
    void ExpectText(std::vector<std::string> lines);
    /// The next file dialog, by its title, and the path it gives; an empty path cancels it.
    void ExpectFile(const std::string& title, const std::string& path);
    /// Lets a test look into the next file dialog's settings.
    std::function<void(const platform::FileRequest&)> lookAtFileRequest;
    /// Fails for what is left over; called by the fixture at its end.
    void CheckDone();

    platform::Answer Show(const platform::Message& message) override;
    std::optional<std::string> AskFile(const platform::FileRequest& request) override;
    void SetPointer(platform::Pointer shape) override { pointer = shape; }
    void LetEventsRun() override {}
    void PrinterSetup() override { calls.emplace_back("PrinterSetup"); }
    void ShowHelp(const std::string& helpFile, int topic) override;
    bool StartProgram(const std::string& program, const std::string& argument) override;
    void NoteRecentFile(const std::string& path) override { recentFiles.push_back(path); }
    int ScreenWidth() override { return screenWidth; }
    int ScreenHeight() override { return screenHeight; }

    platform::Pointer pointer = platform::Pointer::Default;
    std::vector<std::string> calls;       // help, programs and printer setup, in order
    std::vector<std::string> recentFiles; // told to the desktop, in order
    bool startsPrograms = true;
    int screenWidth = 28800;
    int screenHeight = 16200;

private:
    struct ExpectedBox
    {
        platform::Message message;
        platform::Answer answer;
    };
    struct ExpectedFile
    {
        std::string title;
        std::string path;
    };
    std::deque<ExpectedBox> m_boxes;
    std::deque<ExpectedFile> m_files;
};

} // namespace support
