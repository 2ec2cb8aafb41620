#include "DataTest.h"
#include "support/ChildProcess.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace fs = std::filesystem;
using platform::Database;
using platform::DatabaseError;
using platform::Recordset;
using support::ReadFile;
using support::WriteFile;
using Texts = std::vector<std::string>;

namespace {

class OpeningTest : public DataTest
{
protected:
    OpeningTest() { Make(std::string(kProperties) + "INSERT INTO Properties VALUES ('ProgramID', 'Basic')"); }

    static std::string Stored(Database& file)
    {
        Recordset rows = file.OpenTable("Properties");
        rows.Seek("ProgramID");
        return rows.Text("Value");
    }
    static void Store(Database& file, const std::string& value)
    {
        Recordset rows = file.OpenTable("Properties");
        rows.Seek("ProgramID");
        rows.Edit();
        rows.Set("Value", value);
        rows.Update();
    }
    /// The fault of opening and reading a file, 0 for none.
    static int Fault(const std::string& name, Database::Mode mode = Database::Mode::Exclusive)
    {
        try {
            Database file(name, mode);
            Stored(file);
            return 0;
        } catch (const DatabaseError& error) {
            return error.Number();
        }
    }
    template <class Checks> void WhileAnotherProcessHasItOpen(Checks checks)
    {
        WhileAnotherProcessHasItOpen([] {}, checks);
    }
    /// `after` is done in the other process when it has the file open.
    template <class After, class Checks> void WhileAnotherProcessHasItOpen(After after, Checks checks)
    {
        int ready[2];
        int done[2];
        ASSERT_EQ(::pipe(ready) + ::pipe(done), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            const Database file(path, Database::Mode::Exclusive);
            after();
            char byte = 'r';
            const bool told = ::write(ready[1], &byte, 1) == 1 && ::read(done[0], &byte, 1) == 1;
            ::_exit(told ? 0 : 1);
        }
        char byte = 0;
        ASSERT_EQ(::read(ready[0], &byte, 1), 1);
        checks();
        EXPECT_EQ(::write(done[1], &byte, 1), 1);
        EXPECT_EQ(support::WaitFor(child), 0);
        for (const int end : {ready[0], ready[1], done[0], done[1]}) {
            ::close(end);
        }
    }
    void MakeWal()
    {
        support::ExecuteSql(path, "PRAGMA journal_mode = WAL; UPDATE Properties SET Value = 'wal'");
        ASSERT_EQ(ReadFile(path).substr(18, 2), "\x02\x02");
        ASSERT_EQ(Beside(), Texts{"Fire.qel"});
    }
};

constexpr auto kReadOnly = Database::Mode::ReadOnly;

} // namespace

TEST_F(OpeningTest, AFileThatIsMissing_ThrowsAndIsNotMade)
{
    const std::string missing = folder.File("Missing.qel");
    EXPECT_EQ(Fault(missing), SQLITE_CANTOPEN);
    EXPECT_EQ(Fault(missing, kReadOnly), SQLITE_CANTOPEN);
    EXPECT_EQ(Fault(""), SQLITE_CANTOPEN);
    EXPECT_FALSE(fs::exists(missing));
}

TEST_F(OpeningTest, AFolder_Throws) { EXPECT_EQ(Fault(folder.Path()), SQLITE_CANTOPEN); }

TEST_F(OpeningTest, ATextFile_ThrowsAndStaysAsItWas)
{
    for (const std::size_t size : {std::size_t(1),
                                   std::size_t(16),
                                   std::size_t(23),
                                   std::size_t(99),
                                   std::size_t(100),
                                   std::size_t(5000)}) {
        const std::string bytes(size, 'x');
        WriteFile(path, bytes);
        EXPECT_EQ(Fault(path), SQLITE_NOTADB) << size;
        EXPECT_EQ(Fault(path, kReadOnly), SQLITE_NOTADB) << size;
        EXPECT_TRUE(ReadFile(path) == bytes);
    }
    EXPECT_EQ(Beside(), Texts{"Fire.qel"});
}

TEST_F(OpeningTest, AnEmptyFile_ThrowsAndStaysEmpty)
{
    WriteFile(path, "");
    EXPECT_EQ(Fault(path), SQLITE_NOTADB);
    EXPECT_EQ(Fault(path, kReadOnly), SQLITE_NOTADB);
    EXPECT_EQ(ReadFile(path), "");
    EXPECT_EQ(Beside(), Texts{"Fire.qel"});
}

TEST_F(OpeningTest, ADatabaseOfAnotherProgram_LacksOurTables)
{
    support::ExecuteSql(path, "DROP TABLE Properties; CREATE TABLE notes (x)");
    const std::string before = ReadFile(path);
    EXPECT_EQ(Fault(path), SQLITE_ERROR);
    EXPECT_TRUE(ReadFile(path) == before);
}

TEST_F(OpeningTest, AFilesName_IsAPlainNameWhateverItHolds)
{
    const std::string made = ReadFile(path);
    for (const char* name : {"file:x?mode=memory",
                             "file::memory:",
                             ":memory:",
                             "file:a%20b",
                             "a%20b?mode=ro",
                             "two words.qel",
                             "it's \"so\".qel",
                             "Säo Tomé 日本.qel",
                             "#hash&amp;.qel",
                             "-dash",
                             "tab\tname",
                             "back\\slash.qel",
                             " "}) {
        const std::string named = folder.File(name);
        WriteFile(named, made);
        EXPECT_EQ(Fault(named), 0) << name;
        EXPECT_EQ(Fault(named, kReadOnly), 0) << name;
    }
    const std::string longName = folder.File(std::string(200, 'n'));
    WriteFile(longName, made);
    EXPECT_EQ(Fault(longName), 0);
}

TEST_F(OpeningTest, ANameInTheWorkingFolder_IsAPlainNameToo)
{
    const std::string made = ReadFile(path);
    EXPECT_EQ(support::InChild([&] {
                  fs::current_path(folder.Path());
                  for (const char* name :
                       {"file:x?mode=memory", ":memory:", "Fire.qel", "./Fire.qel", "file:Fire.qel"}) {
                      EXPECT_EQ(Fault(name), fs::exists(name) ? 0 : SQLITE_CANTOPEN) << name;
                      WriteFile(name, made);
                      Database file(name, Database::Mode::Exclusive);
                      Store(file, name);
                      EXPECT_TRUE(ReadFile(name) != made) << name;
                  }
              }),
              0);
    EXPECT_EQ(Beside(), (Texts{":memory:", "Fire.qel", "file:Fire.qel", "file:x?mode=memory"}));
}

TEST_F(OpeningTest, ALinkToAFile_OpensThatFile)
{
    fs::create_directory(folder.File("links"));
    fs::create_symlink(path, folder.File("links/Link.qel"));
    Database file(folder.File("links/Link.qel"), Database::Mode::Exclusive);
    EXPECT_THROW(Database(path, Database::Mode::Exclusive), DatabaseError) << "one file under two names";
    Store(file, "by link");
    EXPECT_TRUE(fs::is_symlink(folder.File("links/Link.qel")));
}

TEST_F(OpeningTest, ASecondOpenerInThisProcess_FailsAtTheOpen)
{
    Open();
    EXPECT_EQ(Fault(path), SQLITE_BUSY);
    EXPECT_EQ(Fault(path, kReadOnly), SQLITE_BUSY);
    EXPECT_EQ(Stored(*database), "Basic") << "the first goes on";
    EXPECT_EQ(Fault(path), SQLITE_BUSY) << "the refused opener has not let go of the first one's lock";
    database.reset();
    EXPECT_EQ(Fault(path), 0);
}

TEST_F(OpeningTest, AFileThatIsOpenAlready_TheLogIsToldWhatWasBeingDone)
{
    const Database first(path, Database::Mode::Exclusive);
    try {
        const Database second(path, Database::Mode::Exclusive);
        FAIL() << "opened twice";
    } catch (const DatabaseError& error) {
        EXPECT_EQ(std::string(error.what()), "Opening " + path + ": database is locked");
    }
}

TEST_F(OpeningTest, AFileThatAnotherProcessHasOpen_IsRefusedUntilItIsClosed)
{
    WhileAnotherProcessHasItOpen([this] {
        EXPECT_EQ(Fault(path), SQLITE_BUSY);
        EXPECT_EQ(Fault(path, kReadOnly), SQLITE_BUSY);
    });
    EXPECT_EQ(Fault(path), 0);
}

/// As a file dialog does that looks into files for their icons: the system then lets go of the process's
/// locks.
TEST_F(OpeningTest, AFileThatItsProcessLooksIntoOtherwise_StaysRefusedToOthers)
{
    const auto look = [this] { ::close(::open(path.c_str(), O_RDONLY | O_CLOEXEC)); };
    WhileAnotherProcessHasItOpen(look, [this] {
        EXPECT_EQ(Fault(path), SQLITE_BUSY);
        EXPECT_EQ(Fault(path, kReadOnly), SQLITE_BUSY);
    });
    EXPECT_EQ(Fault(path), 0);
}

TEST_F(OpeningTest, AFileThatWasClosedByAKill_OpensAtOnce)
{
    const pid_t child = ::fork();
    if (child == 0) {
        const Database file(path, Database::Mode::Exclusive);
        ::raise(SIGKILL);
    }
    ASSERT_EQ(support::WaitFor(child), -SIGKILL);
    EXPECT_EQ(Fault(path), 0);
}

TEST_F(OpeningTest, OpeningAndReading_ChangesNoByteAndLeavesNothingBeside)
{
    const std::string before = ReadFile(path);
    EXPECT_EQ(Fault(path), 0);
    EXPECT_EQ(Fault(path, kReadOnly), 0);
    EXPECT_TRUE(ReadFile(path) == before);
    EXPECT_EQ(Beside(), Texts{"Fire.qel"});
}

TEST_F(OpeningTest, ReadOnly_RefusesToWrite)
{
    Open(kReadOnly);
    EXPECT_THROW(Store(*database, "changed"), DatabaseError);
    EXPECT_EQ(Stored(*database), "Basic");
}

TEST_F(OpeningTest, ReadOnly_ReadsAFileThatOnlyReadingIsAllowedOf)
{
    fs::permissions(
        path, fs::perms::all & ~(fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write));
    fs::permissions(folder.Path(),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                        fs::perms::others_exec);
    EXPECT_EQ(support::InChild([this] {
                  ASSERT_TRUE(support::BecomeOrdinaryUser());
                  EXPECT_EQ(Fault(path, kReadOnly), 0);
                  EXPECT_EQ(Fault(path), SQLITE_READONLY);
              }),
              0);
    fs::permissions(folder.Path(), fs::perms::owner_all);
    EXPECT_EQ(Beside(), Texts{"Fire.qel"});
}

TEST_F(OpeningTest, AFolderThatCannotHoldAJournal_IsRefusedAtTheOpen)
{
    fs::permissions(path, fs::perms::all);
    fs::permissions(folder.Path(),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                        fs::perms::others_exec);
    EXPECT_EQ(support::InChild([this] {
                  ASSERT_TRUE(support::BecomeOrdinaryUser());
                  EXPECT_EQ(Fault(path), SQLITE_READONLY_DIRECTORY);
                  EXPECT_EQ(Fault(path, kReadOnly), 0);
              }),
              0);
    fs::permissions(folder.Path(), fs::perms::owner_all);
}

TEST_F(OpeningTest, ALinkInAReadOnlyFolder_IsJudgedByTheFolderOfItsFile)
{
    const std::string links = folder.File("links");
    fs::create_directory(links);
    fs::create_symlink(path, links + "/Link.qel");
    fs::permissions(path, fs::perms::all);
    fs::permissions(folder.Path(), fs::perms::all);
    fs::permissions(links,
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                        fs::perms::others_exec);
    EXPECT_EQ(support::InChild([&] {
                  ASSERT_TRUE(support::BecomeOrdinaryUser());
                  EXPECT_EQ(Fault(links + "/Link.qel"), 0);
              }),
              0);
}

TEST_F(OpeningTest, AFileOnAReadOnlyDisk_IsReadButNotOpenedForWork)
{
    if (!support::CanMount()) {
        GTEST_SKIP() << "no disk of its own can be mounted here";
    }
    const std::string bytes = ReadFile(path);
    EXPECT_EQ(support::InChild([&] {
                  ASSERT_TRUE(support::MountSmallDisk(folder.Path(), "1m"));
                  WriteFile(path, bytes);
                  ASSERT_EQ(::mount(nullptr, folder.Path().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr),
                            0);
                  EXPECT_EQ(Fault(path, kReadOnly), 0);
                  EXPECT_EQ(Fault(path), SQLITE_READONLY);
              }),
              0);
}

TEST_F(OpeningTest, AFileWithAWriteAheadHeader_IsNotChangedByBeingLookedAt)
{
    MakeWal();
    const std::string before = ReadFile(path);
    EXPECT_EQ(Fault(path), 0);
    EXPECT_EQ(Fault(path, kReadOnly), 0);
    EXPECT_TRUE(ReadFile(path) == before);
    EXPECT_EQ(Beside(), Texts{"Fire.qel"});
}

TEST_F(OpeningTest, AFileWithAWriteAheadHeader_IsOpenForOneProcessAlone)
{
    MakeWal();
    WhileAnotherProcessHasItOpen([this] { EXPECT_EQ(Fault(path), SQLITE_BUSY); });
    Open();
    EXPECT_EQ(Fault(path), SQLITE_BUSY);
}

TEST_F(OpeningTest, AFileWithAWriteAheadHeader_IsAnOrdinaryFileAfterTheFirstWrite)
{
    MakeWal();
    Open();
    Store(*database, "changed");
    database.reset();
    EXPECT_EQ(ReadFile(path).substr(18, 2), "\x01\x01");
    EXPECT_EQ(Beside(), Texts{"Fire.qel"});
    EXPECT_EQ(Query("SELECT Value FROM Properties"), (support::Rows{{"changed"}}));
}

TEST_F(OpeningTest, AFileWithAWriteAheadHeader_CanBeChangedInTheMidstOfAWalk)
{
    MakeWal();
    Open();
    Recordset walk = database->OpenTable("Properties");
    walk.MoveFirst();
    Store(*database, "changed");
    walk.MoveNext();
    EXPECT_TRUE(walk.Eof());
}
