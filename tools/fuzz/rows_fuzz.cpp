// A sound data file whose tables hold what none of ours would: the input is a list of changes of rows. The
// sample that they are made in is the file that FUZZ_SAMPLE names.

#include "FileGround.h"

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <limits>
#include <map>

namespace {

using Input = FuzzedDataProvider;

/// The engine, which refuses some of the changes: that is no finding.
class RawFile
{
public:
    explicit RawFile(const std::string& path)
    {
        sqlite3_open_v2(path.c_str(), &m_connection, SQLITE_OPEN_READWRITE, nullptr);
        Run("PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF");
    }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
    ~RawFile() { sqlite3_close(m_connection); }

    void Run(const std::string& sql) { sqlite3_exec(m_connection, sql.c_str(), nullptr, nullptr, nullptr); }
    std::vector<std::string> Texts(const std::string& sql)
    {
        std::vector<std::string> texts;
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(m_connection, sql.c_str(), -1, &statement, nullptr);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
            texts.emplace_back(text == nullptr ? "" : text);
        }
        sqlite3_finalize(statement);
        return texts;
    }
    void RunWith(const std::string& sql, Input& input)
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_connection, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) return;
        BindValue(statement, input);
        sqlite3_step(statement);
        sqlite3_finalize(statement);
    }

private:
    static void BindValue(sqlite3_stmt* statement, Input& input)
    {
        static const std::int64_t kWhole[] = {0,
                                              1,
                                              -1,
                                              2,
                                              3,
                                              11,
                                              21,
                                              26,
                                              32767,
                                              32768,
                                              -32769,
                                              2147483647,
                                              2147483648,
                                              -2147483648LL,
                                              std::numeric_limits<std::int64_t>::max(),
                                              std::numeric_limits<std::int64_t>::min()};
        static const double kFloating[] = {0.5,
                                           -0.0,
                                           1e10,
                                           3.5e38,
                                           -3.5e38,
                                           1e-40,
                                           922337203685477.5808,
                                           1e300,
                                           std::numeric_limits<double>::infinity(),
                                           -std::numeric_limits<double>::infinity()};
        static const char* const kTexts[] = {
            "", "Yes", "No", "12 acres", "-1e999", "time", "item", "05.01.02", "Standard", "{\\rtf1 a}"};
        switch (input.ConsumeIntegralInRange(0, 7)) {
        case 0: sqlite3_bind_null(statement, 1); break;
        case 1: sqlite3_bind_int64(statement, 1, input.PickValueInArray(kWhole)); break;
        case 2: sqlite3_bind_int64(statement, 1, input.ConsumeIntegral<std::int64_t>()); break;
        case 3: sqlite3_bind_int64(statement, 1, input.ConsumeIntegral<std::int8_t>()); break;
        case 4: sqlite3_bind_double(statement, 1, input.PickValueInArray(kFloating)); break;
        case 5: sqlite3_bind_double(statement, 1, input.ConsumeFloatingPoint<double>()); break;
        case 6: sqlite3_bind_text(statement, 1, input.PickValueInArray(kTexts), -1, SQLITE_STATIC); break;
        default: {
            const std::string text = input.ConsumeRandomLengthString(60);
            const int size = static_cast<int>(text.size());
            if (input.ConsumeBool()) {
                sqlite3_bind_blob(statement, 1, text.data(), size, SQLITE_TRANSIENT);
            } else {
                sqlite3_bind_text(statement, 1, text.data(), size, SQLITE_TRANSIENT);
            }
        }
        }
    }

    sqlite3* m_connection = nullptr;
};

struct Table
{
    std::string name;
    std::vector<std::string> columns;
    std::string key; // its first column
};

std::vector<Table> TablesOf(RawFile& file)
{
    std::vector<Table> tables;
    for (const std::string& name : file.Texts("SELECT name FROM sqlite_schema WHERE type = 'table' AND name "
                                              "NOT LIKE 'sqlite%' ORDER BY name")) {
        const auto columns = file.Texts("SELECT name FROM pragma_table_info('" + name + "')");
        tables.push_back({name, columns, columns.front()});
    }
    return tables;
}

const Table& Pick(const std::vector<Table>& tables, Input& input)
{
    return tables[input.ConsumeIntegralInRange<std::size_t>(0, tables.size() - 1)];
}

/// "WHERE" for some rows of a table.
std::string SomeRows(const Table& table, Input& input)
{
    const std::string row = std::to_string(input.ConsumeIntegral<std::uint8_t>());
    if (input.ConsumeBool()) return {};
    return " WHERE \"" + table.key + "\" = (SELECT \"" + table.key + "\" FROM " + table.name +
           " LIMIT 1 OFFSET " + row + ")";
}

void ChangeOnce(RawFile& file, const std::vector<Table>& tables, Input& input)
{
    const Table& table = Pick(tables, input);
    const std::string& column =
        table.columns[input.ConsumeIntegralInRange<std::size_t>(0, table.columns.size() - 1)];
    switch (input.ConsumeIntegralInRange(0, 15)) {
    case 0: file.Run("DELETE FROM " + table.name + SomeRows(table, input)); break;
    case 1: file.Run("ALTER TABLE " + table.name + " DROP COLUMN \"" + column + "\""); break;
    case 2: file.Run("DROP TABLE " + table.name); break;
    case 3: file.Run("DELETE FROM " + table.name); break;
    case 4:
    case 5:
        file.RunWith("INSERT OR IGNORE INTO " + table.name + " (\"" + column + "\") VALUES (?1)", input);
        break;
    default: {
        const std::string rows = SomeRows(table, input);
        file.RunWith("UPDATE OR IGNORE " + table.name + " SET \"" + column + "\" = ?1" + rows, input);
    }
    }
}

std::string ReadSample()
{
    const char* path = std::getenv("FUZZ_SAMPLE");
    const std::string sample = path == nullptr ? "" : support::ReadFile(path);
    fuzz::Require(!sample.empty(), "FUZZ_SAMPLE names no data file");
    return sample;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string sample = ReadSample();
    static fuzz::FileGround ground;
    support::WriteFile(ground.File(), sample);
    {
        RawFile file(ground.File());
        static const std::vector<Table> tables = TablesOf(file);
        Input input(data, size);
        constexpr int kMostChanges = 40;
        for (int i = 0; i < kMostChanges && input.remaining_bytes() > 0; ++i)
            ChangeOnce(file, tables, input);
    }
    ground.RunAll();
    return 0;
}
