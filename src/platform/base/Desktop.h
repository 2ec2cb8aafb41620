#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

enum class Buttons { Ok, OkCancel, YesNo, StayLeave };
enum class Answer { Ok, Cancel, Yes, No, Stay, Leave };
enum class Icon { None, Stop, Question };

/// A message box.
struct Message
{
    std::vector<std::string> lines;
    std::string title; // empty: none of its own
    Buttons buttons = Buttons::Ok;
    Answer preset = Answer::Ok; // the button that Enter presses
    Icon icon = Icon::None;
};

/// A file dialog. The folder may be empty: it is left as it was.
struct FileRequest
{
    enum class Kind { Open, Save };
    Kind kind = Kind::Open;
    std::string title;
    std::string folder;
    std::string extension; // without a point
    std::string fileName;
    std::string filter; // captions and patterns by turns, parted by "|"
    /// A save dialog asks before a file is replaced. Else whoever asked for the name does, in words of its
    /// own.
    bool asksBeforeReplacing = false;
};

enum class Pointer { Default, Hourglass };

/// Everything that the system asks of the desktop around it. One for the program's windows, one for the
/// command line, one for tests. All calls come from the one thread.
class Desktop
{
public:
    virtual ~Desktop() = default;

    /// Shows a message box and waits for its answer.
    virtual Answer Show(const Message& message) = 0;
    /// The chosen path, or nothing when the user cancelled.
    virtual std::optional<std::string> AskFile(const FileRequest& request) = 0;
    virtual void SetPointer(Pointer pointer) = 0;
    /// Lets waiting events run, where the system yields to them.
    virtual void LetEventsRun() = 0;
    virtual void PrinterSetup() = 0;
    /// Opens the help file at a topic, or at its contents for topic 0.
    virtual void ShowHelp(const std::string& helpFile, int topic) = 0;
    /// Starts another program with one argument (none when it is empty); false when it cannot be started.
    virtual bool StartProgram(const std::string& program, const std::string& argument) = 0;
    /// Tells a data file that is now shown to the desktop's list of recent documents, where it keeps one.
    /// Never throws and never asks: no file fails to open on its account.
    virtual void NoteRecentFile(const std::string& /*path*/) {}
    /// The screen in twips.
    virtual int ScreenWidth() = 0;
    virtual int ScreenHeight() = 0;
};

/// The desktop in use. SetDesktop comes first in every main and test; it does not own.
Desktop& TheDesktop();
void SetDesktop(Desktop* desktop);

/// The hourglass from constructor to destructor.
class Hourglass
{
public:
    Hourglass();
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass();
};

/// A plain message box with OK, of these lines.
void ShowMessage(std::vector<std::string> lines);

} // namespace platform
