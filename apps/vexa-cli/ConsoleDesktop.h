#pragma once

#include "platform/base/Desktop.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace vexa_cli {

/// The desktop where there is none: the text of a message box goes to standard error, a question is answered
/// Cancel or No unless the command line said --yes, and a file dialog is cancelled.
class ConsoleDesktop : public platform::Desktop
{
public:
    /// Does not own the stream.
    ConsoleDesktop(std::ostream& err, bool yes) : m_err(err), m_yes(yes) {}

    /// Forgets the words and answers so far: the next file starts.
    void StartAfresh();
    /// Whether a question was answered Cancel or No since then.
    bool AnsweredNo() const { return m_answeredNo; }
    /// The lines of the messages shown since then.
    const std::vector<std::string>& WordsShown() const { return m_wordsShown; }

    platform::Answer Show(const platform::Message& message) override;
    std::optional<std::string> AskFile(const platform::FileRequest&) override { return std::nullopt; }
    void SetPointer(platform::Pointer) override {}
    void LetEventsRun() override {}
    void PrinterSetup() override {}
    void ShowHelp(const std::string&, int) override {}
    bool StartProgram(const std::string&, const std::string&) override { return false; }
    int ScreenWidth() override { return 0; }
    int ScreenHeight() override { return 0; }

private:
    platform::Answer Refusal(platform::Answer answer);

    std::ostream& m_err;
    bool m_yes;
    bool m_answeredNo = false;
    std::vector<std::string> m_wordsShown;
};

} // namespace vexa_cli
