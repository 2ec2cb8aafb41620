#include "vexa-cli/Run.h"

#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

namespace {

/// Goes on as the program that makes reports, which stands beside this one; where it does not, comes back.
void BecomeReport(char** arguments)
{
    std::error_code failed;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", failed);
    if (!failed) ::execv((self.parent_path() / "vexa-report").c_str(), arguments);
}

} // namespace

int main(int count, char** arguments)
{
    if (count > 1 && std::string(arguments[1]) == "report") BecomeReport(arguments);
    return vexa_cli::Run(std::vector<std::string>(arguments + 1, arguments + count), std::cout, std::cerr);
}
