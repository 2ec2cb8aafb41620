#include "platform/widgets/Application.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // no display is needed, and none is used
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    return RUN_ALL_TESTS();
}
