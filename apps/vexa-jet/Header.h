#pragma once

#include <cstdint>

namespace vexa_jet {

/// What the first page says of the whole database.
struct Header
{
    bool isJet4 = false;
    unsigned codePage = 0; // of the texts of a Jet 3 database
};

/// Reads the first page of an open file of this size. Throws Failure for other versions than Jet 3 and Jet 4,
/// for a database with a password and for one that was cut within a page.
Header ReadHeader(int file, std::uint64_t fileSize);

} // namespace vexa_jet
