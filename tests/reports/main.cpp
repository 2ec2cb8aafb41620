#include "platform/print/Toolkit.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const platform::print::Toolkit toolkit; // no display is needed, and none is used
    return RUN_ALL_TESTS();
}
