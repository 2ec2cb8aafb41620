#include "platform/base/Clock.h"
#include "platform/base/ProgramFolder.h"
#include "session/u14Properties.h"
#include "session/u91Trace.h"
#include "support/ChildProcess.h"
#include "support/TestSession.h"

#include <filesystem>

namespace {

class u91TraceTest : public support::TestSession
{
protected:
    u91TraceTest()
    {
        platform::SetClock([] { return platform::LocalTime{2006, 9, 5, 7, 8, 9}; });
    }
    std::string Log() const { return support::ReadFile(folder.File("VEXA.LOG")); }
};

const std::string kEnd = "\n07:08:09 VEXA Basic\n* * * * * Program End * * * * *\n\n";

} // namespace

TEST_F(u91TraceTest, ProgramStart_WritesTheLogAnewWithItsBlock)
{
    support::WriteFile(folder.File("VEXA.LOG"), "of the run before\n");
    desktop.screenWidth = 28800;
    desktop.screenHeight = 16200;
    u91Trace::TraceProgramStart("VEXA Basic 06.6");
    EXPECT_EQ(Log(),
              "\n* * * * * Program Start * * * * *\n09/05/2006\nApp.Path = " + folder.Path() +
                  "\nScreen: 28800 x 16200\n07:08:09 Start VEXA Basic 06.6\n\n");
}

TEST_F(u91TraceTest, EachOperation_WritesItsOwnLines)
{
    const struct
    {
        void (*operation)(const std::string&);
        const char* lines;
    } cases[] = {{u91Trace::Trace, "07:08:09   what\n"},
                 {u91Trace::TraceLoad, "07:08:09   Load what\n"},
                 {u91Trace::TraceUnload, "07:08:09   Unloaded what\n"},
                 {u91Trace::TraceStart, "\n07:08:09 Start what\n"},
                 {u91Trace::TraceFinished, "07:08:09 Finished what\n\n"},
                 {u91Trace::TraceWarning, "\n07:08:09  Warning! what\n\n"},
                 {u91Trace::TraceError, "\n* * * ERROR * * *\n07:08:09   what\n\n"},
                 {u91Trace::TraceProgramEnd, "\n07:08:09 what\n* * * * * Program End * * * * *\n\n"}};
    std::string expected;
    for (const auto& c : cases) {
        c.operation("what");
        expected += c.lines;
        EXPECT_EQ(Log(), expected) << "appended, not written anew";
    }
}

TEST_F(u91TraceTest, AnError_StandsInBothLogsAndWithItsDateInTheErrorLog)
{
    u91Trace::TraceError("what");
    EXPECT_EQ(Log(), "\n* * * ERROR * * *\n07:08:09   what\n\n");
    EXPECT_EQ(ErrorLog(), "\n* * * ERROR * * *\n09/05/2006\n07:08:09   what\n\n");
}

TEST_F(u91TraceTest, TheOtherOperations_WriteNoErrorLog)
{
    u91Trace::TraceProgramStart("what");
    u91Trace::TraceWarning("what");
    EXPECT_FALSE(std::filesystem::exists(folder.File("ERROR.LOG")));
}

TEST_F(u91TraceTest, TwoRunsInARow_LeaveTheSecondInTheLogAndTheErrorsOfBoth)
{
    u91Trace::TraceProgramStart("first");
    u91Trace::TraceError("error of the first");
    u91Trace::TraceProgramEnd("first");
    u91Trace::TraceProgramStart("second");
    u91Trace::TraceError("error of the second");
    u91Trace::TraceProgramEnd("VEXA Basic");
    EXPECT_EQ(Log().find("first"), std::string::npos);
    EXPECT_TRUE(Log().ends_with(kEnd));
    EXPECT_EQ(ErrorLog(),
              "\n* * * ERROR * * *\n09/05/2006\n07:08:09   error of the first\n\n"
              "\n* * * ERROR * * *\n09/05/2006\n07:08:09   error of the second\n\n");
}

TEST_F(u91TraceTest, ALogThatCannotBeWritten_StopsNobody)
{
    platform::SetProgramFolder(folder.File("none"));
    u91Trace::TraceProgramStart("what");
    u91Trace::Trace("what");
    u91Trace::TraceError("what");
    platform::SetProgramFolder(folder.Path());
    std::filesystem::create_directory(folder.File("VEXA.LOG"));
    u91Trace::TraceProgramStart("what");
    u91Trace::TraceError("what");
    EXPECT_EQ(ErrorLog(), "\n* * * ERROR * * *\n09/05/2006\n07:08:09   what\n\n");
}

TEST_F(u91TraceTest, AFullDisk_StopsNobody)
{
    OpenNew();
    u91Trace::Trace("before");
    {
        const support::FileSizeLimit full(5);
        u91Trace::Trace("lost");
        u91Trace::TraceError("lost");
    }
    u91Trace::Trace("after");
    EXPECT_NE(Log().find("after"), std::string::npos);
    EXPECT_EQ(u14Properties::Property_Get("ProgramID"), "Basic");
}
