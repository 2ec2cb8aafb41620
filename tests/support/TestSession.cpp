#include "support/TestSession.h"

#include "common/ConnectConversions.h"
#include "common/ConnectStores.h"
#include "platform/base/Clock.h"
#include "platform/base/ProgramFolder.h"
#include "session/SessionLinks.h"
#include "session/SessionState.h"
#include "session/a1VEXA.h"
#include "session/u11Datafile.h"

#include <sqlite3.h>

#include <filesystem>
#include <sstream>
#include <stdexcept>

namespace support {

namespace {

/// A connection of the tests' own, for what a session would refuse to do.
class RawDatabase
{
public:
    explicit RawDatabase(const std::string& path) { Check(sqlite3_open(path.c_str(), &m_connection)); }
    RawDatabase(const RawDatabase&) = delete;
    RawDatabase& operator=(const RawDatabase&) = delete;
    ~RawDatabase() { sqlite3_close(m_connection); }

    Rows Run(const std::string& sql)
    {
        Rows rows;
        Check(sqlite3_exec(m_connection, sql.c_str(), &RawDatabase::Take, &rows, nullptr));
        return rows;
    }

private:
    static int Take(void* rows, int count, char** values, char** /*names*/)
    {
        std::vector<std::string> row;
        for (int i = 0; i < count; ++i) {
            row.emplace_back(values[i] == nullptr ? "NULL" : values[i]);
        }
        static_cast<Rows*>(rows)->push_back(row);
        return 0;
    }
    void Check(int result)
    {
        if (result != SQLITE_OK) {
            throw std::runtime_error(sqlite3_errmsg(m_connection));
        }
    }

    sqlite3* m_connection = nullptr;
};

/// As one step: a drive takes its time over each.
void ApplySql(const std::string& path, const std::string& sql)
{
    if (!sql.empty()) {
        ExecuteSql(path, "BEGIN;" + sql + ";COMMIT");
    }
}

std::string WithoutTime(const std::string& line)
{
    constexpr std::size_t kTime = 8;
    const bool timed = line.size() >= kTime && line[2] == ':' && line[5] == ':';
    return timed ? line.substr(kTime) : line;
}

} // namespace

void ExecuteSql(const std::string& path, const std::string& sql) { RawDatabase(path).Run(sql); }

Rows QuerySql(const std::string& path, const std::string& sql) { return RawDatabase(path).Run(sql); }

TestSession::TestSession()
{
    platform::SetProgramFolder(folder.Path());
    platform::SetDesktop(&desktop);
    CopyFile(BuiltFile("QEL.new"), folder.File("QEL.new"));
    std::filesystem::create_directory(folder.File("VEXAData"));
    Links() = SessionLinks();
    ConnectStores();
    ConnectConversions();
}

TestSession::~TestSession()
{
    Close();
    desktop.CheckDone();
    platform::SetClock({});
    platform::SetDesktop(nullptr);
    platform::SetProgramFolder({});
}

std::string TestSession::MakeFile(const std::string& sql, const std::string& name)
{
    const std::string made = folder.File(name);
    CloseIfOpened(made);
    CopyFile(BuiltFile("QEL.new"), made);
    ApplySql(made, sql);
    return made;
}

std::string TestSession::CopySample(const std::string& name, const std::string& sql)
{
    const std::string made = folder.File(name + ".qel");
    CloseIfOpened(made);
    CopyFile(BuiltFile("samples/" + name + ".qel"), made);
    ApplySql(made, sql);
    return made;
}

/// A file that takes the place of the one opened last must not find it open.
void TestSession::CloseIfOpened(const std::string& made)
{
    if (made == path) {
        Close();
    }
}

void TestSession::Open(const std::string& opened)
{
    Close();
    path = opened;
    ASSERT_TRUE(u11Datafile::OpenDatafile(path));
}

void TestSession::Close()
{
    a1VEXA::ClearAllStores();
    a1VEXA::CloseDatafileIfOpen();
    gCurrentTab.clear();
    gCurrentSection = 0;
}

Rows TestSession::Query(const std::string& sql)
{
    Close();
    return QuerySql(path, sql);
}

std::vector<std::string> TestSession::LogLines() const
{
    std::istringstream log(ReadFile(folder.File("VEXA.LOG")));
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);) {
        lines.push_back(WithoutTime(line));
    }
    return lines;
}

std::string TestSession::ErrorLog() const { return ReadFile(folder.File("ERROR.LOG")); }

} // namespace support
