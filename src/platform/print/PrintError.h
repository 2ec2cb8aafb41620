#pragma once

#include "platform/base/Errors.h"

#include <string>

namespace platform::print {

/// A document could not be written; the message is a sentence for the user and names the file. What the file
/// was before, it still is.
class PrintError : public Error
{
public:
    PrintError(const std::string& path, const std::string& cause);
    /// A report that would be written over the data file that is open.
    static PrintError OverOpenFile(const std::string& path);
    /// Pages that a printer did not take.
    static PrintError Refused(const std::string& printer, const std::string& cause);

private:
    PrintError(int number, const std::string& sentences);
};

/// The user cancelled. No file was written and no pages are left.
class PrintCancelled : public Error
{
public:
    PrintCancelled();
};

} // namespace platform::print
