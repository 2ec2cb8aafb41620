#pragma once

#include "platform/widgets/QtDesktop.h"
#include "platform/widgets/WorkProgress.h"
#include "worksheets/frm0_VEXA.h"

/// The program behind its event loop: the desktop, the stores and the main window, wired together. Made after
/// the Application and gone before it.
class Program
{
public:
    Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    frm0_VEXA& Window() { return m_window; }
    /// Runs the start with a path, or with the empty text for none, and shows the window.
    void Start(const std::string& commandLine);

private:
    platform::QtDesktop m_desktop;
    frm0_VEXA m_window;
    platform::WorkProgress m_progress; // of files of older formats
};
