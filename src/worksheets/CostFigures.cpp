#include "worksheets/CostFigures.h"

#include "platform/base/Errors.h"
#include "platform/widgets/Application.h"

#include <utility>

std::string CostFigures::Text(const std::function<std::string()>& figure)
{
    try {
        return figure();
    } catch (const platform::Overflow& cause) {
        TellLater(cause);
        return kTooLarge;
    } catch (const std::exception& cause) {
        TellLater(cause);
        return kUnknown;
    }
}

bool CostFigures::Try(const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const std::exception& cause) {
        TellLater(cause);
        return false;
    }
}

void CostFigures::TellLater(const std::exception& cause)
{
    if (m_told == cause.what() || m_failure != nullptr) return;
    m_told = cause.what();
    m_failure = std::current_exception();
    const auto tell = [this] { std::rethrow_exception(std::exchange(m_failure, nullptr)); };
    QMetaObject::invokeMethod(
        this, [tell] { platform::Guarded(tell); }, Qt::QueuedConnection);
}
