#include "platform/print/PrintError.h"

namespace platform::print {

namespace {
constexpr int writeNumber = 57;
constexpr int cancelNumber = 32755;
} // namespace

PrintError::PrintError(const std::string& path, const std::string& cause)
    : Error(writeNumber, "The report could not be written to \"" + path + "\": " + cause + ".")
{}

PrintCancelled::PrintCancelled() : Error(cancelNumber, "The report was cancelled.") {}

} // namespace platform::print
