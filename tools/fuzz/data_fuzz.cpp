// The bytes of a data file: opened, checked, dumped, converted where it is old, and every figure evaluated.

#include "FileGround.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static fuzz::FileGround ground;
    support::WriteFile(ground.File(), std::string(reinterpret_cast<const char*>(data), size));
    ground.RunAll();
    return 0;
}
