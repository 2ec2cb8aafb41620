#include "vexa-cli/Run.h"

#include <iostream>
#include <string>
#include <vector>

int main(int count, char** arguments)
{
    return vexa_cli::Run(std::vector<std::string>(arguments + 1, arguments + count), std::cout, std::cerr);
}
