#pragma once

#include <string>
#include <vector>

namespace vexa_cli {

/// What a column holds.
enum class CellKind { Long, Integer, Single, Currency, Text };

struct ColumnShape
{
    std::string name;
    CellKind kind = CellKind::Text;
};

/// A table of a data file of today's format.
struct TableShape
{
    std::string name;
    std::vector<std::string> keys; // the primary key in its order; empty for a column that may bear any name
    std::vector<ColumnShape> columns;
};

/// The tables that the system reads and writes, with the columns that it names. The row numbers of the value
/// tables are found by the primary key alone, so their columns may bear any name and are not listed.
const std::vector<TableShape>& DatafileShape();

} // namespace vexa_cli
