#include "ConvertTest.h"
#include "convert/ConversionSteps.h"
#include "platform/base/Errors.h"
#include "platform/base/LongWork.h"
#include "platform/data/Schema.h"
#include "session/SessionState.h"
#include "support/ChildProcess.h"

#include <csignal>

namespace {

using support::Rows;
using Texts = std::vector<std::string>;

class ConversionStepsTest : public support::ConvertTest
{
protected:
    ConversionSteps::Step Note(const char* name)
    {
        return [this, name] {
            m_made.emplace_back(name);
            Execute(name);
        };
    }
    static void Execute(const char* name)
    {
        platform::Recordset properties = OpenDatabase().OpenTable("Properties");
        properties.AddNew();
        properties.Set("Property", std::string(name));
        properties.Update();
    }
    Texts Made() { return std::exchange(m_made, {}); }

private:
    Texts m_made;
};

} // namespace

TEST_F(ConversionStepsTest, Steps_RunInOrderBetweenTheLinesOfTheLog)
{
    OpenNew();
    ConversionSteps::Run("Title", 9, {Note("a"), Note("b"), Note("c")});
    EXPECT_EQ(Made(), (Texts{"a", "b", "c"}));
    EXPECT_EQ(LogLines(), (Texts{"", " Start Title", " Finished Title", ""}));
    EXPECT_EQ(desktop.pointer, platform::Pointer::Default);
    EXPECT_EQ(Query("PRAGMA user_version"), (Rows{{"0"}}));
}

TEST_F(ConversionStepsTest, StepThatFails_IsTakenBackAndTheNextRunGoesOnWithIt)
{
    OpenNew();
    const auto fail = [] {
        Execute("half");
        OpenDatabase().OpenTable("NoSuchTable");
    };
    EXPECT_THROW(ConversionSteps::Run("Title", 9, {Note("a"), Note("b"), fail, Note("c")}), platform::Error);
    EXPECT_EQ(Made(), (Texts{"a", "b"}));
    EXPECT_EQ(Query("SELECT Property FROM Properties WHERE Property IN ('a', 'b', 'half')"),
              (Rows{{"a"}, {"b"}}));
    Open(path);
    ConversionSteps::Run("Title", 9, {Note("a"), Note("b"), Note("x"), Note("c")});
    EXPECT_EQ(Made(), (Texts{"x", "c"}));
    ConversionSteps::Run("Title", 9, {Note("y")});
    EXPECT_EQ(Made(), Texts{"y"}) << "it is over and begins anew";
}

TEST_F(ConversionStepsTest, MarkOfAnotherConversionOrProgram_IsNoneOfOurs)
{
    OpenNew();
    for (const std::int64_t mark :
         {std::int64_t{1}, std::int64_t{-1}, std::int64_t{0x51450A01}, std::int64_t{0x51450902}}) {
        platform::Schema(OpenDatabase()).SetMark(mark);
        ConversionSteps::Run("Title", 9, {[this] { Note("a")(); }, [this] { Note("b")(); }});
        EXPECT_EQ(Made(), (Texts{"a", "b"})) << mark;
        Close();
        support::ExecuteSql(path, "DELETE FROM Properties WHERE Property IN ('a', 'b')");
        Open(path);
    }
}

TEST_F(ConversionStepsTest, Progress_IsToldUpToTheEnd)
{
    OpenNew();
    Texts told;
    platform::SetProgressListener([&](const std::string& what, double part) {
        told.push_back(what + " " + std::to_string(int(part * 100)));
    });
    ConversionSteps::Run("Title", 9, {Note("a"), Note("b"), Note("c"), Note("d")});
    platform::SetProgressListener({});
    EXPECT_EQ(told, (Texts{"Title 0", "Title 25", "Title 50", "Title 75", " 100"}));
}

TEST_F(ConversionStepsTest, FileKilledBetweenAnyTwoSteps_IsConvertedWholeByTheNextOpening)
{
    MakeOld("4.00.00-juniper");
    const std::string original = support::ReadFile(path);
    ExpectEndsAsStandard();
    const auto all = [this] {
        Rows rows;
        for (const auto& table : Query("SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY name")) {
            for (auto& row : Query("SELECT * FROM \"" + table[0] + "\"")) {
                row.insert(row.begin(), table[0]);
                rows.push_back(row);
            }
        }
        return rows;
    };
    const Rows whole = all();
    constexpr int kSteps = 15 + 10 + 7;
    for (const int steps : {0, 1, 2, 5, 7, 11, 13, 14, 15, 16, 21, 25, 26, 30, 31, kSteps}) {
        support::WriteFile(path, original);
        const int ended = support::InChild([&] {
            int told = 0;
            platform::SetProgressListener([&](const std::string& what, double) {
                if (!what.empty() && told++ == steps) {
                    ::raise(SIGKILL);
                }
            });
            desktop.ExpectText({"This is a VEXA Standard file.", "It cannot be opened in Basic mode."});
            u11Datafile::OpenDatafile(path);
        });
        EXPECT_EQ(ended, steps < kSteps ? -SIGKILL : 0) << steps;
        ExpectEndsAsStandard();
        EXPECT_TRUE(all() == whole) << steps;
    }
}

TEST_F(ConversionStepsTest, FullDisk_IsToldAndTheNextOpeningGoesOn)
{
    MakeOld("04.01.01-bearpaw-20");
    const auto size = support::ReadFile(path).size();
    for (const std::size_t room : {std::size_t{512}, std::size_t{8192}, size / 2, size}) {
        MakeOld("04.01.01-bearpaw-20");
        EXPECT_EQ(support::InChild([&] {
                      const support::FileSizeLimit full(room);
                      ExpectFails();
                      desktop.CheckDone();
                  }),
                  0)
            << room;
        ExpectOpens();
        EXPECT_EQ(Format(), "06.01.01") << room;
    }
}
