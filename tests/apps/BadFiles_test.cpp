#include "CliTest.h"

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>

namespace {

constexpr const char* kNotOurs = "The file does not appear to be a VEXA Plus file.\nIt cannot be opened.\n";

/// Holds a file locked from another process for as long as it lives.
class OtherProcess
{
public:
    explicit OtherProcess(const std::string& file)
    {
        if (::pipe(m_locked.data()) != 0 || ::pipe(m_end.data()) != 0) {
            throw std::runtime_error("no pipe");
        }
        m_child = ::fork();
        if (m_child == 0) {
            LockUntilTheEnd(file);
        }
        char sign = 0;
        EXPECT_EQ(::read(m_locked[0], &sign, 1), 1);
    }
    OtherProcess(const OtherProcess&) = delete;
    OtherProcess& operator=(const OtherProcess&) = delete;
    ~OtherProcess()
    {
        EXPECT_EQ(::write(m_end[1], "x", 1), 1);
        ::waitpid(m_child, nullptr, 0);
        for (const int end : {m_locked[0], m_locked[1], m_end[0], m_end[1]}) {
            ::close(end);
        }
    }

private:
    [[noreturn]] void LockUntilTheEnd(const std::string& file) const
    {
        sqlite3* connection = nullptr;
        sqlite3_open(file.c_str(), &connection);
        const bool locked =
            sqlite3_exec(connection, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) == SQLITE_OK;
        char sign = 'x';
        if (locked && ::write(m_locked[1], &sign, 1) == 1) {
            static_cast<void>(::read(m_end[0], &sign, 1) == 1);
        }
        sqlite3_close(connection);
        ::_exit(0);
    }

    std::array<int, 2> m_locked{};
    std::array<int, 2> m_end{};
    pid_t m_child = 0;
};

class BadFiles : public support::CliTest
{
protected:
    /// Runs every command that reads a file: none may change it or leave anything beside it.
    void RunAll(const std::string& file, const std::string& what)
    {
        const bool isFile = std::filesystem::is_regular_file(file);
        const std::string before = isFile ? support::ReadFile(file) : "";
        for (const char* command : {"evaluate", "table", "dump", "check"}) {
            const Result result = Run({command, file});
            const bool plainEnd = result.status == 0 || result.status == 1;
            EXPECT_TRUE(plainEnd) << what << " " << command << " " << result.status;
            EXPECT_EQ(result.status == 1, !result.err.empty()) << what << " " << command << " " << result.err;
            if (isFile) {
                EXPECT_TRUE(support::ReadFile(file) == before) << what << " " << command;
            }
            EXPECT_FALSE(std::filesystem::exists(file + "-journal")) << what << " " << command;
            EXPECT_FALSE(std::filesystem::exists(file + "-wal")) << what << " " << command;
        }
    }
    /// The same for a new file with this SQL run on it, which opens.
    void RunAllOn(const std::string& sql)
    {
        const std::string gains = "INSERT INTO Properties VALUES ('UseNVCGains', 'No');";
        const std::string file = MakeFile(gains + sql);
        RunAll(file, sql);
        const Result result = Run({"evaluate", file});
        EXPECT_EQ(result.status, 0) << sql << result.err;
        EXPECT_TRUE(support::Json::accept(result.out)) << sql;
    }
};

TEST_F(BadFiles, NoDataFile_IsRefusedByEveryOpening)
{
    support::WriteFile(folder.File("one-byte.qel"), "S");
    support::WriteFile(folder.File("head-only.qel"), std::string("SQLite format 3\0", 16));
    const std::vector<std::string> files = {CopyLegacy("text.qel"),
                                            CopyLegacy("zero-length.qel"),
                                            CopyLegacy("truncated.sqlite.qel"),
                                            CopyLegacy("no-properties.sqlite.qel"),
                                            folder.File("one-byte.qel"),
                                            folder.File("head-only.qel"),
                                            folder.File("VEXAData"),
                                            folder.File("missing.qel"),
                                            ""};
    for (const std::string& file : files) {
        const Result result = Run({"evaluate", file});
        EXPECT_EQ(result.status, 1) << file;
        EXPECT_EQ(result.out, "") << file;
        EXPECT_EQ(result.err, kNotOurs) << file;
        RunAll(file, file);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.File("missing.qel")));
}

TEST_F(BadFiles, DamagedPage_FailsWhatReadsIt)
{
    const std::string file = CopyLegacy("garbage-page.sqlite.qel");
    const std::string before = support::ReadFile(file);
    EXPECT_EQ(Run({"evaluate", file}).status, 3);
    const Result result = Run({"dump", file});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "") << "half a document";
    EXPECT_TRUE(support::ReadFile(file) == before);
}

TEST_F(BadFiles, DamagedBytesAnywhere_NeitherCrashNorChangeTheFile)
{
    const std::string good = support::ReadFile(
        CopySample("juniper-gap", "INSERT OR IGNORE INTO Properties VALUES ('UseNVCGains', 'No')"));
    const std::string file = folder.File("damaged.qel");
    std::uint32_t random = 20;
    for (int i = 0; i < 60; ++i) {
        std::string bytes = good;
        for (int j = 0; j < 40; ++j) {
            random = random * 1664525U + 1013904223U;
            bytes[(random >> 4U) % bytes.size()] = static_cast<char>(random >> 20U);
        }
        support::WriteFile(file, bytes);
        for (const char* command : {"evaluate", "table", "dump", "check"}) {
            const int status = Run({command, file}).status;
            EXPECT_TRUE(status == 0 || status == 1 || status == 3) << i << command << status;
        }
    }
}

TEST_F(BadFiles, DamagedPageBehindTheDoor_IsAFailureAndNoDocument)
{
    const std::string file = CopySample("juniper-gap");
    const int page = std::stoi(
        support::QuerySql(file, "SELECT rootpage FROM sqlite_schema WHERE name = 'Scores'").front().front());
    std::string bytes = support::ReadFile(file);
    constexpr std::size_t kPageSize = 4096;
    bytes.replace(
        (static_cast<std::size_t>(page) - 1) * kPageSize, kPageSize, std::string(kPageSize, '\x5A'));
    support::WriteFile(file, bytes);
    for (const char* command : {"evaluate", "table"}) {
        const Result result = Run({command, file});
        EXPECT_EQ(result.status, 1) << command;
        EXPECT_EQ(result.out, "") << command;
        EXPECT_NE(result.err.find("malformed"), std::string::npos) << result.err;
    }
}

TEST_F(BadFiles, FaultsInTheTables_LeaveADocumentWithNulls)
{
    for (const char* table : {"Items",
                              "Objectives",
                              "Outcomes",
                              "Scores",
                              "OutcomeFMZs",
                              "ItemImpacts",
                              "ValuesAtRisk",
                              "SRTypes",
                              "SRUses",
                              "NVCResources",
                              "NVCPerAcre",
                              "SuppressionPerAcreCost"}) {
        RunAllOn(std::string("DROP TABLE ") + table);
        RunAllOn(std::string("DROP TABLE ") + table + "; CREATE VIEW " + table + " AS SELECT 1 AS ItemKey");
    }
    RunAllOn("ALTER TABLE Outcomes DROP COLUMN FireSize");
    RunAllOn("DELETE FROM Outcomes");
    RunAllOn("UPDATE Outcomes SET FireSize = '12 acres', Success = 'none', AdjustedCost = 'x'");
    RunAllOn("UPDATE Outcomes SET ContainTime = 9223372036854775807, FireSize = 1e300, AdjustedCost = 1e300");
    RunAllOn("UPDATE Outcomes SET FireSize = 9e999, CostRationale = x'00FF'");
    RunAllOn("UPDATE Objectives SET ChildKey = 1 WHERE Key = 3");
    RunAllOn("UPDATE Objectives SET SiblingKey = 3 WHERE Key = 6");
    RunAllOn("CREATE TRIGGER Items AFTER INSERT ON Properties BEGIN DELETE FROM Outcomes; END");
}

TEST_F(BadFiles, TriggerOfTheFile_NeverRuns)
{
    const std::string file =
        MakeFile("CREATE TRIGGER t AFTER INSERT ON Properties BEGIN DELETE FROM Outcomes; END");
    EXPECT_EQ(Run({"evaluate", file}).status, 0);
    EXPECT_EQ(support::QuerySql(file, "SELECT count(*) FROM Outcomes"), support::Rows{{"1"}});
    EXPECT_EQ(support::QuerySql(file, "SELECT count(*) FROM Properties WHERE Property = 'UseNVCGains'"),
              support::Rows{{"1"}});
}

TEST_F(BadFiles, ViewInPlaceOfProperties_IsNoDataFile)
{
    const std::string file =
        MakeFile("DROP TABLE Properties; CREATE VIEW Properties AS SELECT 'DataFormatID' AS "
                 "Property, '06.01.01' AS Value");
    EXPECT_EQ(Run({"evaluate", file}).err, kNotOurs);
    RunAll(file, "view");
}

TEST_F(BadFiles, FileLockedByAnotherProcess_IsRefused)
{
    const std::string file = MakeFile();
    const OtherProcess other(file);
    for (const char* command : {"evaluate", "table", "convert"}) {
        const Result result = Run({command, file});
        EXPECT_EQ(result.status, 1) << command;
        EXPECT_EQ(result.err, kNotOurs) << command;
    }
    EXPECT_NE(ErrorLog().find("locked"), std::string::npos) << ErrorLog();
    for (const char* command : {"dump", "check"}) {
        const Result result = Run({command, file});
        EXPECT_EQ(result.status, 1) << command;
        EXPECT_EQ(result.out, "") << command;
    }
}

TEST_F(BadFiles, FileThatIsReadOnly_CanBeDumpedAndChecked)
{
    if (::geteuid() == 0) {
        GTEST_SKIP() << "nothing is read-only to root";
    }
    const std::string file = MakeFile();
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_EQ(Run({"evaluate", file}).status, 1);
    EXPECT_EQ(Run({"dump", file}).status, 0);
    EXPECT_EQ(Run({"check", file}).out, "ok\n");
}

TEST_F(BadFiles, PathsOfEveryKind_Work)
{
    const std::vector<std::string> names = {"two words.qel",
                                            "it's \"quoted\".qel",
                                            "Ängsjö 火.qel",
                                            "a?mode=ro&b%20#c.qel",
                                            "file:x.qel",
                                            "[a,b].qel",
                                            "[a,b]",
                                            std::string(200, 'n'),
                                            "back\\slash.qel",
                                            "line\nbreak.qel"};
    for (const std::string& name : names) {
        const std::string file = folder.File(name);
        EXPECT_EQ(Run({"new", file}).status, 0) << name;
        EXPECT_TRUE(std::filesystem::exists(file)) << name;
        EXPECT_EQ(Evaluated(file)["file"], file) << name;
        EXPECT_EQ(Run({"check", file}).out, "ok\n") << name;
        EXPECT_EQ(Run({"dump", file}).status, 0) << name;
        EXPECT_EQ(Run({"table", file}).status, 0) << name;
        EXPECT_EQ(Run({"evaluate", file, file}).status, 0) << name;
    }
}

} // namespace
