#include "platform/widgets/PrintService.h"

#include <QLibrary>

namespace platform::PrintService {

namespace {

constexpr int kLastSuccess = 0xff; // of the service's status codes
constexpr int kVersion = 2;

/// The library by which the toolkit's own plugin prints; where it is missing there is no printer either.
template <class Function> Function* FunctionOf(const char* name)
{
    QLibrary service(QStringLiteral("cups"), kVersion);
    return reinterpret_cast<Function*>(service.resolve(name));
}

} // namespace

std::string CauseOfRefusal()
{
    auto* status = FunctionOf<int()>("cupsLastError");
    auto* words = FunctionOf<const char*()>("cupsLastErrorString");
    if (status == nullptr || words == nullptr || status() <= kLastSuccess) return {};
    const char* told = words();
    std::string cause = told == nullptr ? "" : told;
    while (cause.ends_with('.'))
        cause.pop_back();
    return cause.empty() ? "the print service is not there" : cause;
}

} // namespace platform::PrintService
