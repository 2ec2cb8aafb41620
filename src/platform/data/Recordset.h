#pragma once

#include "platform/base/Numbers.h"

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace platform {

class RecordsetState;

/// A cell as the file holds it: null, a whole number, a floating number or a text.
using FieldValue = std::variant<std::monostate, std::int64_t, Double, std::string>;

/// A cursor on a table (ordered by its primary key) or on a query. Valid from constructor to destructor,
/// closes itself, and must go before its Database. Columns are named as in the file, letters of either case.
/// Every member throws DatabaseError for what the engine refuses, for a column that is not there, and for
/// reading where there is no row.
class Recordset
{
public:
    explicit Recordset(std::unique_ptr<RecordsetState> state);
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    /// Seek "=" on the primary key of a table; sets NoMatch. A failed seek leaves no current row.
    void Seek(Long key);
    void Seek(Long firstKey, Long secondKey);
    void Seek(std::string_view key);
    /// Whether the last Seek found no row.
    bool NoMatch() const;

    /// Throw DatabaseError when there are no rows.
    void MoveFirst();
    void MoveLast();
    /// To the next row, or behind the last one (EOF).
    void MoveNext();
    bool Eof() const;
    /// The number of rows, exactly.
    Long RecordCount();

    /// Start a new row (every column null) or a change of the current one. Nothing is written before Update.
    void AddNew();
    void Edit();
    void Set(std::string_view column, Long value);
    void Set(std::string_view column, Single value);
    void Set(std::string_view column, Double value);
    void Set(std::string_view column, Currency value);
    void Set(std::string_view column, const std::string& value);
    void SetNull(std::string_view column);
    /// The cell as it stands in another row.
    void SetValue(std::string_view column, FieldValue value);
    /// Writes what was set, durably. After AddNew there is no current row.
    void Update();
    /// Deletes the current row, durably; MoveNext then goes to the row behind it.
    void Delete();

    /// The current row's cells. A null cell reads as 0 or the empty text; a text in a number column as its
    /// Val; a number beyond the width asked for is a DatabaseError. A currency column is rounded to four
    /// decimals first.
    bool IsNull(std::string_view column) const;
    std::string Text(std::string_view column) const;
    Long LongValue(std::string_view column) const;
    Single SingleValue(std::string_view column) const;
    Currency CurrencyValue(std::string_view column) const;
    FieldValue Value(std::string_view column) const;
    std::vector<std::string> ColumnNames() const;

private:
    std::unique_ptr<RecordsetState> m_state;
};

} // namespace platform
