#pragma once

#include "vexa-jet/Library.h"

#include <cstdint>
#include <string_view>

namespace vexa_jet {

/// Little-endian numbers of a page.
std::uint16_t Number16(const unsigned char* bytes);
std::uint32_t Number32(const unsigned char* bytes);

/// A place on a data page where a row begins and ends.
struct Slot
{
    int start = 0;
    int size = 0;
    bool isMoved = false;  // it holds the place to which the row was moved
    bool isHidden = false; // deleted; without being moved too, a row that is reached from its old place
};

/// The data page in memory with its rows.
class Page
{
public:
    /// Does not own either. `bytes` are a page of the database.
    Page(const MdbHandle& database, const unsigned char* bytes) : m_database(database), m_bytes(bytes) {}

    /// Throws Failure where the page is none with rows.
    int RowCount() const;
    /// Throws Failure for a row that is not on the page.
    Slot SlotOf(int row) const;
    const unsigned char* Bytes(const Slot& slot) const { return m_bytes + slot.start; }
    bool IsData() const { return m_bytes[0] == MDB_PAGE_DATA; }
    /// The page of the table that it belongs to.
    std::uint32_t Owner() const;

private:
    int CountPlace() const { return m_database.fmt->row_count_offset; }

    const MdbHandle& m_database;
    const unsigned char* m_bytes;
};

/// A row's place in the file: its page and its number there.
struct RowPlace
{
    explicit RowPlace(std::uint32_t packed) : page(packed >> 8U), row(static_cast<int>(packed & 0xFFU)) {}
    std::uint32_t page;
    int row;
};

/// Reads a page into the library's second buffer. Throws Failure where there is none.
const unsigned char* ReadSecondPageBytes(MdbHandle& database, std::uint32_t page);
Page ReadSecondPage(MdbHandle& database, std::uint32_t page);

} // namespace vexa_jet
