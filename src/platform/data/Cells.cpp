#include "platform/data/Cells.h"

#include "platform/base/Texts.h"
#include "platform/data/DatabaseError.h"

#include <sqlite3.h>

namespace platform {

namespace {

struct TextReader
{
    std::string operator()(std::monostate) const { return {}; }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(Double value) const { return TextOf(value); }
    std::string operator()(const std::string& value) const { return value; }
};

struct NumberReader
{
    Double operator()(std::monostate) const { return 0.0; }
    Double operator()(std::int64_t value) const { return Double(value); }
    Double operator()(Double value) const { return value; }
    Double operator()(const std::string& value) const { return Val(value); }
};

/// An overflow on the way out of the file is a fault of the file.
template <class Reader> auto Guarded(Reader reader)
{
    try {
        return reader();
    } catch (const Overflow& error) {
        throw DatabaseError(SQLITE_RANGE, std::string("A number in the file is too large. ") + error.what());
    }
}

} // namespace

std::string ToTextCell(const FieldValue& cell)
{
    return Guarded([&] { return std::visit(TextReader(), cell); });
}

Long ToLongCell(const FieldValue& cell)
{
    return Guarded([&] { return ToLong(std::visit(NumberReader(), cell)); });
}

Single ToSingleCell(const FieldValue& cell)
{
    return Guarded([&] { return ToSingle(std::visit(NumberReader(), cell)); });
}

Currency ToCurrencyCell(const FieldValue& cell)
{
    return Guarded([&] {
        if (const auto* whole = std::get_if<std::int64_t>(&cell)) {
            std::int64_t scaled = 0;
            constexpr std::int64_t kScale = 10000;
            if (__builtin_mul_overflow(*whole, kScale, &scaled)) {
                throw Overflow("currency");
            }
            return Currency::FromTenThousandths(scaled);
        }
        return ToCurrency(std::visit(NumberReader(), cell));
    });
}

} // namespace platform
