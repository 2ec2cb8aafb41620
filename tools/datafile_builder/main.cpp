#include "datafile_builder/Builder.h"

#include <iostream>

int main(int count, char** arguments)
{
    return datafile_builder::RunBuilder({arguments + 1, arguments + count}, std::cerr);
}
