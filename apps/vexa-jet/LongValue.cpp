#include "vexa-jet/LongValue.h"

#include "platform/jet/JetStream.h"
#include "vexa-jet/Failure.h"
#include "vexa-jet/Page.h"

#include <algorithm>

namespace vexa_jet {

namespace {

constexpr std::size_t kFieldHead = 12; // length with flags, place, four bytes unused
constexpr std::uint32_t kInRow = 0x80000000U;
constexpr std::uint32_t kOnePage = 0x40000000U;
constexpr std::size_t kNextSize = 4; // each piece of a chain begins with the place of the next

const unsigned char* BytesOf(std::string_view text)
{
    return reinterpret_cast<const unsigned char*>(text.data());
}

/// The row at a place, as it stands in the second buffer until the next page is read.
std::string_view RowAt(MdbHandle& database, const RowPlace& place)
{
    const Page page = ReadSecondPage(database, place.page);
    const Slot slot = page.SlotOf(place.row);
    if (slot.isHidden || slot.isMoved) {
        throw Failure("a long text was deleted");
    }
    return {reinterpret_cast<const char*>(page.Bytes(slot)), static_cast<std::size_t>(slot.size)};
}

std::string Whole(std::string_view bytes, std::size_t size)
{
    if (bytes.size() < size) {
        throw Failure("a long text is shorter than it should be");
    }
    return std::string(bytes.substr(0, size));
}

/// Every piece brings something, so that a ring comes to an end.
std::string ReadChain(MdbHandle& database, std::uint32_t next, std::size_t size)
{
    std::string value;
    while (next != 0) {
        const std::string_view piece = RowAt(database, RowPlace(next));
        if (piece.size() <= kNextSize || value.size() >= size) {
            throw Failure("the pieces of a long text do not fit together");
        }
        next = Number32(BytesOf(piece));
        const std::string_view bytes = piece.substr(kNextSize);
        value += bytes.substr(0, std::min(bytes.size(), size - value.size()));
    }
    return Whole(value, size);
}

} // namespace

std::string ReadLongValue(MdbHandle& database, std::string_view field)
{
    if (field.empty()) {
        return {};
    }
    if (field.size() < kFieldHead) {
        throw Failure("a long text is nowhere");
    }
    const std::uint32_t packed = Number32(BytesOf(field));
    const std::size_t size = packed & ~(kInRow | kOnePage);
    const std::uint32_t place = Number32(BytesOf(field.substr(4)));
    if (size > platform::jet::kLongestText) {
        throw Failure("a text is too long");
    }
    switch (packed & (kInRow | kOnePage)) {
    case kInRow: return Whole(field.substr(kFieldHead), size);
    case kOnePage: return Whole(RowAt(database, RowPlace(place)), size);
    case 0: return ReadChain(database, place, size);
    default: throw Failure("a long text is of a kind that is not known");
    }
}

} // namespace vexa_jet
