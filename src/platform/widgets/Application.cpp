#include "platform/widgets/Application.h"

#include "platform/base/Desktop.h"
#include "platform/widgets/AccessibleRoles.h"
#include "platform/widgets/IdFilter.h"
#include "platform/widgets/Theme.h"

#include <QFocusEvent>
#include <QIcon>
#include <QLocale>

#include <clocale>
#include <exception>
#include <utility>

namespace platform {

namespace {

ErrorGuard g_guard;
bool g_reporting = false;

/// Ends what a handler began and did not end; a busy state that stood before it is its beginner's to end.
void EndBusyBegunSince(bool wasBusy)
{
    if (wasBusy || !g_guard.endBusy) return;
    while (IsBusy())
        g_guard.endBusy();
}

/// Within a catch block: reports the error in flight.
void ReportCurrentError(bool wasBusy)
{
    EndBusyBegunSince(wasBusy);
    try {
        throw;
    } catch (const std::exception& error) {
        ReportError(error.what());
    } catch (...) {
        ReportError("an error of unknown kind");
    }
}

/// A text box that loses the focus to the menu bar would drop its selection, on which the Edit menu is to
/// act.
bool GoesToMenuBar(const QEvent& event)
{
    return event.type() == QEvent::FocusOut &&
           static_cast<const QFocusEvent&>(event).reason() == Qt::MenuBarFocusReason;
}

} // namespace

void SetErrorGuard(ErrorGuard guard) { g_guard = std::move(guard); }

bool IsBusy() { return g_guard.busy && g_guard.busy(); }

void ReportError(const std::string& cause)
{
    if (g_guard.trace) g_guard.trace(cause);
    if (!IsBusy()) TheDesktop().SetPointer(Pointer::Default);
    if (g_reporting) return; // the first box tells enough; the log has the rest
    g_reporting = true;
    ShowMessage(
        {"Something went wrong: " + cause + ".", "You can go on working; what was saved before is safe."});
    g_reporting = false;
}

void Guarded(const std::function<void()>& handler)
{
    const bool wasBusy = IsBusy();
    try {
        handler();
    } catch (...) {
        ReportCurrentError(wasBusy);
    }
}

namespace {

/// The words are English and the figures have a point, whatever the language of the desktop: they are read
/// from the left, and no dialog of the toolkit writes them otherwise.
void SpeakOneLanguage()
{
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    // The desktop entry of the windows, and the icon installed with it.
    setDesktopFileName(QStringLiteral("vexa"));
    setWindowIcon(QIcon::fromTheme(QStringLiteral("vexa")));
    SpeakOneLanguage();
    Theme::Apply();
    InstallAccessibleRoles();
    InstallIdFilter(*this);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    const bool wasBusy = IsBusy();
    try {
        if (GoesToMenuBar(*event)) {
            QFocusEvent keepsSelection(QEvent::FocusOut, Qt::PopupFocusReason);
            return QApplication::notify(receiver, &keepsSelection);
        }
        return QApplication::notify(receiver, event);
    } catch (...) {
        ReportCurrentError(wasBusy);
        return false;
    }
}

} // namespace platform
