#include "platform/print/Printed.h"
#include "platform/print/Toolkit.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string_view>

namespace {

/// Pages for the test that holds those of several screens against each other: each needs a process of its
/// own.
void DumpSample()
{
    using namespace platform::print;
    printed::OpenControl control;
    control.Paragraph(Body(support::ReadFile(support::DataFile("rtf/made-writer-target.rtf"))));
    control.Table("3000|>3000;" + printed::Repeated("left words that wrap in their cell|1,234;", 30));
    std::printf("%s", DumpPages(printed::Ended(control)).c_str());
}

} // namespace

int main(int argc, char** argv)
{
    const platform::print::Toolkit toolkit; // no display is needed, and none is used
    if (argc == 2 && std::string_view(argv[1]) == "--dump-pages") {
        DumpSample();
        return 0;
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
