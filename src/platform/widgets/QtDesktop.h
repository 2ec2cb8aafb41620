#pragma once

#include "platform/base/Desktop.h"
#include "platform/widgets/HelpDesk.h"

#include <QString>

namespace platform {

/// The desktop of the program's windows.
class QtDesktop : public Desktop
{
public:
    /// The title stands over boxes that have none of their own.
    explicit QtDesktop(const QString& programTitle) : m_programTitle(programTitle) {}

    Answer Show(const Message& message) override;
    std::optional<std::string> AskFile(const FileRequest& request) override;
    void SetPointer(Pointer pointer) override;
    void LetEventsRun() override;
    void PrinterSetup() override;
    void ShowHelp(const std::string& helpFile, int topic) override;
    bool StartProgram(const std::string& program, const std::string& argument) override;
    void NoteRecentFile(const std::string& path) override;
    int ScreenWidth() override;
    int ScreenHeight() override;

private:
    QString m_programTitle;
    HelpDesk m_help;
    QString m_lastFolder; // where the last file dialog was left
    bool m_hourglass = false;
};

} // namespace platform
