#pragma once

#include <memory>
#include <string>

namespace platform {

class HelpWindow;

/// Opens the help window when it is first asked for; nothing of the help is read before.
class HelpDesk
{
public:
    HelpDesk();
    HelpDesk(const HelpDesk&) = delete;
    HelpDesk& operator=(const HelpDesk&) = delete;
    ~HelpDesk();

    /// Shows a topic of the help file; says so when the file is missing or no help file.
    void Show(const std::string& helpFile, int topic);
    /// The window, or nothing before it was asked for.
    HelpWindow* Window() { return m_window.get(); }

private:
    std::unique_ptr<HelpWindow> m_window;
};

} // namespace platform
