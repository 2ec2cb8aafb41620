#include "session/u19RowData.h"

namespace u19RowData {

std::string ReadText(const platform::Recordset& rows, std::string_view column)
{
    return rows.NoMatch() ? std::string() : rows.Text(column);
}

Long ReadLong(const platform::Recordset& rows, std::string_view column)
{
    return rows.NoMatch() ? 0 : rows.LongValue(column);
}

Single ReadSingle(const platform::Recordset& rows, std::string_view column)
{
    return rows.NoMatch() ? 0.0F : rows.SingleValue(column);
}

} // namespace u19RowData
