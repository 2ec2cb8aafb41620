#include "platform/print/PrintError.h"

namespace platform::print {

namespace {
constexpr int writeNumber = 57;
constexpr int printerNumber = 482;
constexpr int cancelNumber = 32755;
} // namespace

PrintError::PrintError(const std::string& path, const std::string& cause)
    : Error(writeNumber, "The report could not be written to \"" + path + "\": " + cause + ".")
{}

PrintError::PrintError(int number, const std::string& sentences) : Error(number, sentences) {}

PrintError PrintError::OverOpenFile(const std::string& path)
{
    return {path, "it is the data file that is open"};
}

PrintError PrintError::Refused(const std::string& printer, const std::string& cause)
{
    return {printerNumber,
            "The report could not be printed on \"" + printer + "\": " + cause +
                ". Choose another printer with Printer Setup, or print again later."};
}

PrintCancelled::PrintCancelled() : Error(cancelNumber, "The report was cancelled.") {}

} // namespace platform::print
