#include "platform/data/Recordset.h"

#include "platform/data/Cells.h"
#include "platform/data/DatabaseError.h"
#include "platform/data/RecordsetState.h"

#include <sqlite3.h>

namespace platform {

Recordset::Recordset(std::unique_ptr<RecordsetState> state) : m_state(std::move(state)) {}

Recordset::Recordset(Recordset&&) noexcept = default;

Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset::~Recordset() = default;

void Recordset::Seek(Long key) { m_state->Seek({std::int64_t(key)}); }

void Recordset::Seek(Long firstKey, Long secondKey)
{
    m_state->Seek({std::int64_t(firstKey), std::int64_t(secondKey)});
}

void Recordset::Seek(std::string_view key) { m_state->Seek({std::string(key)}); }

bool Recordset::NoMatch() const { return m_state->NoMatch(); }

namespace {
void RequireRows(bool any)
{
    if (!any) {
        throw DatabaseError(SQLITE_EMPTY, "There is no row to move to");
    }
}
} // namespace

void Recordset::MoveFirst() { RequireRows(m_state->MoveFirst()); }

void Recordset::MoveLast() { RequireRows(m_state->MoveLast()); }

void Recordset::MoveNext() { m_state->MoveNext(); }

bool Recordset::Eof() const { return m_state->Eof(); }

Long Recordset::RecordCount() { return m_state->RecordCount(); }

void Recordset::AddNew() { m_state->AddNew(); }

void Recordset::Edit() { m_state->Edit(); }

void Recordset::Set(std::string_view column, Long value) { m_state->Set(column, std::int64_t(value)); }

void Recordset::Set(std::string_view column, Single value) { m_state->Set(column, Double(value)); }

void Recordset::Set(std::string_view column, Double value) { m_state->Set(column, value); }

void Recordset::Set(std::string_view column, Currency value)
{
    constexpr std::int64_t kScale = 10000;
    if (value.TenThousandths() % kScale == 0) {
        m_state->Set(column, value.TenThousandths() / kScale);
    } else {
        m_state->Set(column, ToDouble(value));
    }
}

void Recordset::Set(std::string_view column, const std::string& value) { m_state->Set(column, value); }

void Recordset::SetNull(std::string_view column) { m_state->Set(column, FieldValue()); }

void Recordset::SetValue(std::string_view column, FieldValue value)
{
    m_state->Set(column, std::move(value));
}

void Recordset::Update() { m_state->Update(); }

void Recordset::Delete() { m_state->Delete(); }

bool Recordset::IsNull(std::string_view column) const
{
    return std::holds_alternative<std::monostate>(m_state->Cell(column));
}

std::string Recordset::Text(std::string_view column) const { return ToTextCell(m_state->Cell(column)); }

Long Recordset::LongValue(std::string_view column) const
{
    const FieldValue& cell = m_state->Cell(column);
    return m_state->IsCurrency(column) ? ToLongCell(ToDouble(ToCurrencyCell(cell))) : ToLongCell(cell);
}

Single Recordset::SingleValue(std::string_view column) const
{
    const FieldValue& cell = m_state->Cell(column);
    return m_state->IsCurrency(column) ? ToSingle(ToCurrencyCell(cell)) : ToSingleCell(cell);
}

Currency Recordset::CurrencyValue(std::string_view column) const
{
    return ToCurrencyCell(m_state->Cell(column));
}

FieldValue Recordset::Value(std::string_view column) const { return m_state->Cell(column); }

std::vector<std::string> Recordset::ColumnNames() const { return m_state->ColumnNames(); }

} // namespace platform
