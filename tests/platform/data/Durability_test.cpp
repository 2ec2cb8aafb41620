#include "DataTest.h"
#include "support/ChildProcess.h"

#include <sqlite3.h>

#include <csignal>
#include <filesystem>

namespace fs = std::filesystem;
using platform::Database;
using platform::DatabaseError;
using platform::Recordset;
using support::ReadFile;
using Texts = std::vector<std::string>;

namespace {

class DurabilityTest : public DataTest
{
protected:
    DurabilityTest() { Make(kItems); }

    static void Add(Database& file, Long key, const std::string& body = "body")
    {
        Recordset items = file.OpenTable("Items");
        items.AddNew();
        items.Set("ItemKey", key);
        items.Set("Body", body);
        items.Update();
    }
    std::string Count() { return Query("SELECT count(*) FROM Items")[0][0]; }
    std::string Integrity() { return Query("PRAGMA integrity_check")[0][0]; }
};

} // namespace

TEST_F(DurabilityTest, AnUpdate_IsSeenByTheNextReaderAndNothingStaysBeside)
{
    Open();
    Add(*database, 1);
    database.reset();
    EXPECT_EQ(Beside(), Texts{"Fire.qel"});
    EXPECT_EQ(Count(), "1");
}

TEST_F(DurabilityTest, AProgramThatIsKilledAfterUpdate_HasLostNothing)
{
    const pid_t child = ::fork();
    if (child == 0) {
        Database file(path, Database::Mode::Exclusive);
        Add(file, 1);
        Recordset items = file.OpenTable("Items");
        items.Seek(1);
        items.Edit();
        items.Set("ItemName", std::string("changed"));
        items.Update();
        Add(file, 2);
        items.Seek(2);
        items.Delete();
        items.AddNew();
        items.Set("ItemKey", Long(3)); // no Update
        ::raise(SIGKILL);
    }
    ASSERT_EQ(support::WaitFor(child), -SIGKILL);
    Open();
    EXPECT_TRUE(database->IntegrityFaults().empty());
    EXPECT_EQ(Query("SELECT ItemKey, ItemName FROM Items"), (support::Rows{{"1", "changed"}}));
    Add(Open(), 2);
    database.reset();
    EXPECT_EQ(Beside(), Texts{"Fire.qel"}) << "the next change takes the spent journal away";
}

TEST_F(DurabilityTest, AProgramThatIsKilledInTheMidstOfWork_LosesAtMostTheRowInHand)
{
    constexpr int kRounds = 5;
    Long reported = 0;
    for (int round = 0; round < kRounds; ++round) {
        int told[2];
        ASSERT_EQ(::pipe(told), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            Database file(path, Database::Mode::Exclusive);
            for (Long key = file.LastKeyInTable("Items", "ItemKey") + 1;; ++key) {
                Add(file, key, std::string(3000, 'b'));
                if (::write(told[1], &key, sizeof key) != sizeof key) {
                    ::_exit(1);
                }
            }
        }
        ::close(told[1]);
        for (int i = 0; i < 10 + round; ++i) {
            ASSERT_EQ(::read(told[0], &reported, sizeof reported), static_cast<ssize_t>(sizeof reported));
        }
        ::kill(child, SIGKILL);
        support::WaitFor(child);
        while (::read(told[0], &reported, sizeof reported) == static_cast<ssize_t>(sizeof reported)) {
        }
        ::close(told[0]);
        const Long there = Open().LastKeyInTable("Items", "ItemKey");
        EXPECT_TRUE(database->IntegrityFaults().empty());
        EXPECT_TRUE(there == reported || there == reported + 1) << there << " rows, told of " << reported;
        database.reset();
    }
}

TEST_F(DurabilityTest, AnUpdateWhileAnotherCursorWalks_IsDurableAllTheSame)
{
    Make("INSERT INTO Items (ItemKey) VALUES (1), (2), (3)");
    const pid_t child = ::fork();
    if (child == 0) {
        Database file(path, Database::Mode::Exclusive);
        Recordset walk = file.OpenTable("Items");
        walk.MoveFirst();
        walk.MoveNext();
        Add(file, 4);
        ::raise(SIGKILL);
    }
    ASSERT_EQ(support::WaitFor(child), -SIGKILL);
    Open();
    EXPECT_EQ(database->OpenTable("Items").RecordCount(), 4);
}

TEST_F(DurabilityTest, AChangeThatWasCutOff_IsTakenBackAtTheNextOpen)
{
    const pid_t child = ::fork();
    if (child == 0) {
        sqlite3* raw = nullptr;
        sqlite3_open(path.c_str(), &raw);
        sqlite3_exec(raw,
                     "PRAGMA cache_size = 1; INSERT INTO Items (ItemKey) VALUES (1); BEGIN",
                     nullptr,
                     nullptr,
                     nullptr);
        for (int i = 0; i < 50; ++i) {
            sqlite3_exec(
                raw, "INSERT INTO Items (Body) VALUES (hex(zeroblob(2000)))", nullptr, nullptr, nullptr);
        }
        ::raise(SIGKILL);
    }
    ASSERT_EQ(support::WaitFor(child), -SIGKILL);
    ASSERT_EQ(Beside(), (Texts{"Fire.qel", "Fire.qel-journal"}));
    EXPECT_THROW(Open(Database::Mode::ReadOnly).OpenTable("Items"), DatabaseError)
        << "half a change is not read";
    ASSERT_EQ(Beside(), (Texts{"Fire.qel", "Fire.qel-journal"})) << "nor is it taken back by looking";
    EXPECT_EQ(Open().OpenTable("Items").RecordCount(), 1);
    EXPECT_TRUE(database->IntegrityFaults().empty());
}

TEST_F(DurabilityTest, ADiskThatFillsUp_FailsTheUpdateAndHurtsNothing)
{
    Make("INSERT INTO Items (ItemKey, Body) VALUES (1, 'first')");
    Open();
    Recordset items = database->OpenTable("Items");
    items.AddNew();
    items.Set("ItemKey", Long(2));
    items.Set("Body", std::string(100000, 'b'));
    {
        const support::FileSizeLimit full(fs::file_size(path) + 4096);
        EXPECT_THROW(items.Update(), DatabaseError);
        EXPECT_THROW(items.Update(), DatabaseError) << "the try again fails as long as the disk is full";
    }
    EXPECT_TRUE(database->IntegrityFaults().empty());
    EXPECT_EQ(database->OpenTable("Items").RecordCount(), 1);
    items.Update();
    EXPECT_EQ(database->OpenTable("Items").RecordCount(), 2) << "what was set is not lost";
    items.Seek(2);
    EXPECT_EQ(items.Text("Body"), std::string(100000, 'b'));
    EXPECT_EQ(Integrity(), "ok");
}

TEST_F(DurabilityTest, ADiskWithNoRoomForTheJournal_FailsEditAndDeleteAndHurtsNothing)
{
    Make("INSERT INTO Items (ItemKey, Body) VALUES (1, 'first')");
    Open();
    Recordset items = database->OpenTable("Items");
    items.Seek(1);
    {
        const support::FileSizeLimit full(100);
        items.Edit();
        items.Set("Body", std::string("changed"));
        EXPECT_THROW(items.Update(), DatabaseError);
        EXPECT_THROW(items.Delete(), DatabaseError);
        EXPECT_EQ(items.Text("Body"), "first") << "the row in hand is what the file holds";
    }
    items.Update();
    EXPECT_EQ(items.Text("Body"), "changed");
    EXPECT_EQ(Integrity(), "ok");
    EXPECT_EQ(Query("SELECT Body FROM Items"), (support::Rows{{"changed"}}));
}

TEST_F(DurabilityTest, AFullDisk_FailsTheUpdateAndTheNextWorksWhenThereIsRoom)
{
    if (!support::CanMount()) {
        GTEST_SKIP() << "no disk of its own can be mounted here";
    }
    EXPECT_EQ(support::InChild([this] {
                  ASSERT_TRUE(support::MountSmallDisk(folder.Path(), "256k"));
                  Make(kItems);
                  const std::string ballast = folder.File("ballast");
                  support::WriteFile(ballast, std::string(150000, 'x'));
                  Open();
                  Add(*database, 1);
                  try {
                      Add(*database, 2, std::string(120000, 'b'));
                      ADD_FAILURE() << "the disk was not full";
                  } catch (const DatabaseError& error) {
                      EXPECT_EQ(error.Number() & 0xFF, SQLITE_FULL) << error.what();
                  }
                  fs::remove(ballast);
                  Add(*database, 3, std::string(60000, 'b'));
                  EXPECT_EQ(Integrity(), "ok");
                  EXPECT_EQ(Query("SELECT ItemKey FROM Items"), (support::Rows{{"1"}, {"3"}}));
              }),
              0);
}
