#pragma once

#include "platform/base/Numbers.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

struct sqlite3;

namespace datafile_builder {

/// What a cell holds; std::monostate is null.
using Cell = std::variant<std::monostate, std::int64_t, Double, std::string>;
/// Column names with their cells. Columns that are not named stay as they are, in a new row null.
using Row = std::vector<std::pair<std::string, Cell>>;

/// The cell of a column of type Single: the nearest float, widened. Throws platform::Overflow.
Cell SingleCell(Double value);
/// The cell of a column of type Currency; a whole amount is kept as a whole number.
Cell CurrencyCell(platform::Currency value);
/// The whole number in a cell; null and anything else read as 0.
Long WholeNumber(const Cell& cell);

/// The tables of one data file while it is built. All rows go into one transaction, which Finish closes: the
/// same calls give the same file, byte for byte. Every member throws BuildError with the engine's words.
class DatafileWriter
{
public:
    /// Opens the file, or makes an empty one.
    explicit DatafileWriter(const std::filesystem::path& path);
    ~DatafileWriter();

    /// Runs the statements of a script that makes the tables; to be called before the first row.
    void RunScript(const std::string& statements);
    /// Adds a row and returns the key that the engine allotted or that the row named (tables with one key
    /// column).
    Long Add(const std::string& table, const Row& row);
    /// Writes `values` into the one row that has `key`; throws when there is not exactly one.
    void Change(const std::string& table, const Row& key, const Row& values);
    /// The cells of the first row that a query yields; none at all when it yields no row.
    std::vector<Cell> FirstRow(const std::string& query, const std::vector<Cell>& arguments);
    /// The highest number in a column, 0 if the table is empty.
    Long LastKey(const std::string& table, const std::string& column);
    /// Commits, packs the file and closes it.
    void Finish();

private:
    struct Closer
    {
        void operator()(sqlite3* database) const;
    };

    std::vector<Cell> Run(const std::string& statement, const std::vector<Cell>& arguments);
    void BeginIfIdle();

    std::unique_ptr<sqlite3, Closer> m_database;
};

} // namespace datafile_builder
