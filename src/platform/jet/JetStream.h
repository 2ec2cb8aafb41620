#pragma once

#include <cstddef>
#include <cstdint>

/// How the program "vexa-jet" writes the tables of a Jet database to its standard output. All numbers are
/// little-endian; a name or text is its length (a name's in 16 bits, a text's in 32) and that many bytes of
/// UTF-8.
///
///     stream   kStreamStart, number of tables (32 bits), the tables, End
///     table    Table, name, number of rows that the file claims (32 bits), number of columns (8 bits), for
///     each
///              its type (8 bits) and name, number of key columns (8 bits), the place of each (8 bits); then
///              its rows; then TableEnd, number of rows that were read (32 bits)
///     row      Row, a cell for each column
///     cell     a CellMark; behind Whole and Money 64 bits, behind Floating a double, behind Text a text
///
/// Wherever a record may begin, Failure with a text may stand instead and ends the stream.
namespace platform::jet {

inline constexpr char kStreamStart[] = "VEXAJET1"; // without its zero

enum class Record : char { Table = 'T', Row = 'R', TableEnd = 'E', End = 'Z', Failure = 'F' };

enum class CellMark : char {
    Null = 'n',
    False = 'f',
    True = 't',
    Whole = 'i',
    Money = 'm', // ten-thousandths
    Floating = 'd',
    Text = 's',
};

enum class CellType : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Automatic = 5,
    Money = 6,
    Single = 7,
    Double = 8,
    Text = 9,
};

inline constexpr std::size_t kMostTables = 4096;
inline constexpr std::size_t kMostColumns = 255;
inline constexpr std::size_t kLongestName = 1024;
/// Of one cell, in bytes of UTF-8: no text of a fire comes near this.
inline constexpr std::size_t kLongestText = std::size_t{32} << 20;

/// What a file of this size may come to at most: a null takes a bit there and a byte here.
constexpr std::uint64_t MostBytes(std::uint64_t fileSize) { return 16 * fileSize + (std::uint64_t{1} << 20); }
/// How long its reading may take, in seconds.
constexpr std::uint64_t MostSeconds(std::uint64_t fileSize)
{
    return 20 + fileSize / (std::uint64_t{1} << 20);
}

} // namespace platform::jet
