#include "vexa-jet/Page.h"

#include "vexa-jet/Failure.h"

#include <cstring>

namespace vexa_jet {

namespace {
constexpr unsigned kHiddenFlag = 0x8000;
constexpr unsigned kMovedFlag = 0x4000;
constexpr unsigned kPlaceMask = 0x1FFF;
constexpr std::size_t kOwnerPlace = 4;
} // namespace

std::uint16_t Number16(const unsigned char* bytes)
{
    std::uint16_t value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

std::uint32_t Number32(const unsigned char* bytes)
{
    std::uint32_t value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

int Page::RowCount() const
{
    const int count = Number16(m_bytes + CountPlace());
    if (!IsData() || CountPlace() + 2 + 2 * count > m_database.fmt->pg_size) {
        throw Failure("a page of rows is damaged");
    }
    return count;
}

Slot Page::SlotOf(int row) const
{
    const int count = RowCount();
    if (row >= count) {
        throw Failure("a row is missing");
    }
    const unsigned char* entry = m_bytes + CountPlace() + 2 + 2 * row;
    const unsigned packed = Number16(entry);
    // Rows stand from the end of the page on downwards.
    const int end = row == 0 ? static_cast<int>(m_database.fmt->pg_size)
                             : static_cast<int>(Number16(entry - 2) & kPlaceMask);
    Slot slot;
    slot.start = static_cast<int>(packed & kPlaceMask);
    slot.size = end - slot.start;
    slot.isMoved = (packed & kMovedFlag) != 0;
    slot.isHidden = (packed & kHiddenFlag) != 0;
    if (slot.size < 0 || end > m_database.fmt->pg_size || slot.start < CountPlace() + 2 + 2 * count) {
        throw Failure("a row stands outside its page");
    }
    return slot;
}

std::uint32_t Page::Owner() const { return Number32(m_bytes + kOwnerPlace); }

const unsigned char* ReadSecondPageBytes(MdbHandle& database, std::uint32_t page)
{
    if (mdb_read_alt_pg(&database, page) != database.fmt->pg_size) {
        throw Failure("a page is missing");
    }
    return database.alt_pg_buf;
}

Page ReadSecondPage(MdbHandle& database, std::uint32_t page)
{
    return Page(database, ReadSecondPageBytes(database, page));
}

} // namespace vexa_jet
