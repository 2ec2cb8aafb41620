#include "vexa-jet/Values.h"

#include "vexa-jet/Failure.h"
#include "vexa-jet/LongValue.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace vexa_jet {

using platform::jet::CellType;

namespace {

constexpr int kDecimalSize = 17;

template <class Number> Number Read(std::string_view field)
{
    Number value = 0;
    if (field.size() < sizeof value) {
        throw Failure("a cell is shorter than its column");
    }
    std::memcpy(&value, field.data(), sizeof value);
    return value;
}

/// A decimal number: a byte for its sign, then four groups of four bytes, the highest first.
double ReadDecimal(const MdbColumn& column, std::string_view field)
{
    if (field.size() < kDecimalSize) {
        throw Failure("a cell is shorter than its column");
    }
    long double value = 0;
    for (std::size_t group = 0; group < 4; ++group) {
        value = value * 4294967296.0L +
                static_cast<long double>(Read<std::uint32_t>(field.substr(1 + 4 * group)));
    }
    value /= std::pow(10.0L, static_cast<long double>(column.col_scale));
    return static_cast<double>(field[0] == 0 ? value : -value);
}

} // namespace

CellType CellTypeOf(const MdbColumn& column)
{
    switch (column.col_type) {
    case MDB_BOOL: return CellType::Boolean;
    case MDB_BYTE: return CellType::Byte;
    case MDB_INT: return CellType::Integer;
    case MDB_LONGINT: return column.is_long_auto != 0 ? CellType::Automatic : CellType::Long;
    case MDB_MONEY: return CellType::Money;
    case MDB_FLOAT: return CellType::Single;
    case MDB_DOUBLE:
    case MDB_NUMERIC: return CellType::Double;
    case MDB_DATETIME:
    case MDB_BINARY:
    case MDB_TEXT:
    case MDB_OLE:
    case MDB_MEMO:
    case MDB_REPID: return CellType::Text;
    default: throw Failure("a column is of a type that is not known");
    }
}

void Values::Write(const MdbColumn& column, std::string_view field)
{
    switch (column.col_type) {
    case MDB_BYTE: m_output.Whole(Read<std::uint8_t>(field)); return;
    case MDB_INT: m_output.Whole(Read<std::int16_t>(field)); return;
    case MDB_LONGINT: m_output.Whole(Read<std::int32_t>(field)); return;
    case MDB_MONEY: m_output.Money(Read<std::int64_t>(field)); return;
    case MDB_FLOAT: m_output.Floating(static_cast<double>(Read<float>(field))); return;
    case MDB_DOUBLE: m_output.Floating(Read<double>(field)); return;
    case MDB_NUMERIC: m_output.Floating(ReadDecimal(column, field)); return;
    case MDB_DATETIME: m_output.Text(DateText(Read<double>(field))); return;
    case MDB_TEXT: m_output.Text(m_decoder.Decode(field)); return;
    case MDB_MEMO: m_output.Text(m_decoder.Decode(ReadLongValue(m_database, field))); return;
    case MDB_OLE: m_output.Text(HexText(ReadLongValue(m_database, field))); return;
    default: m_output.Text(HexText(field)); return;
    }
}

std::string DateText(double days)
{
    constexpr double kFirstDay = -657434.0; // 1 January 100
    constexpr double kLastDay = 2958466.0;  // 1 January 10000
    if (!(days > kFirstDay - 1 && days < kLastDay)) {
        throw Failure("a date is none");
    }
    constexpr double kSeconds = 86400.0;
    const double day = std::trunc(days);
    const auto seconds = static_cast<std::int64_t>(std::round(std::abs(days - day) * kSeconds));
    using namespace std::chrono;
    const sys_days start = sys_days(year(1899) / December / 30) + std::chrono::days(static_cast<int>(day));
    const sys_seconds moment = sys_seconds(start) + std::chrono::seconds(seconds);
    const sys_days midnight = floor<std::chrono::days>(moment);
    const year_month_day date(midnight);
    const hh_mm_ss<std::chrono::seconds> time(moment - midnight);
    std::array<char, 64> text{};
    std::snprintf(text.data(),
                  text.size(),
                  "%04d-%02u-%02u %02d:%02d:%02d",
                  static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text.data();
}

std::string HexText(std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0xFU];
    }
    return text;
}

} // namespace vexa_jet
