#include "convert/Rows.h"

namespace Rows {

using platform::Recordset;

void CopyLong(const Recordset& from, const char* source, Recordset& to, const char* target)
{
    if (from.IsNull(source)) {
        to.SetNull(target);
    } else {
        to.Set(target, from.LongValue(source));
    }
}

void CopyMoney(const Recordset& from, const char* source, Recordset& to, const char* target)
{
    if (from.IsNull(source)) {
        to.SetNull(target);
    } else {
        to.Set(target, from.CurrencyValue(source));
    }
}

void CopyText(const Recordset& from, const char* source, Recordset& to, const char* target)
{
    if (from.IsNull(source)) {
        to.SetNull(target);
    } else {
        to.Set(target, from.Text(source));
    }
}

void Write(Recordset& row, const char* column, const std::string& text)
{
    row.Edit();
    row.Set(column, text);
    row.Update();
}

void WriteProperty(std::string_view name, const std::string& value)
{
    gProperties->Seek(name);
    Write(*gProperties, "Value", value);
}

} // namespace Rows
