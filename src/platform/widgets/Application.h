#pragma once

#include <QApplication>

#include <functional>
#include <string>

namespace platform {

/// What the outermost guard needs of the rooms above it. An empty member does nothing.
struct ErrorGuard
{
    std::function<void(const std::string& cause)> trace;
    std::function<bool()> busy;
    std::function<void()> endBusy;
};
void SetErrorGuard(ErrorGuard guard);

/// Whether the program is filling controls; false where nobody told how to know.
bool IsBusy();

/// An error that nobody handled: writes it down, restores the pointer, and shows one message box with the
/// cause (none while such a box stands already). The session goes on.
void ReportError(const std::string& cause);

/// Runs a handler of a control; what it throws is reported, and a busy state that it began is ended.
void Guarded(const std::function<void()>& handler);

/// The application whose event loop survives every error. Takes no option from the command line: build it
/// with the program's name alone.
class Application : public QApplication
{
    Q_OBJECT

public:
    /// argc must outlive the application.
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace platform
