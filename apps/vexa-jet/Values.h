#pragma once

#include "platform/jet/JetStream.h"
#include "vexa-jet/Library.h"
#include "vexa-jet/Output.h"
#include "vexa-jet/TextDecoder.h"

#include <string>
#include <string_view>

namespace vexa_jet {

/// What a column's cells are written as. Throws Failure for a type that is not known.
platform::jet::CellType CellTypeOf(const MdbColumn& column);

/// Writes the cells of rows.
class Values
{
public:
    /// Owns none of them.
    Values(MdbHandle& database, const TextDecoder& decoder, Output& output)
        : m_database(database), m_decoder(decoder), m_output(output)
    {}

    /// A cell that is not null (nor a Boolean, which is nothing else). Throws Failure for one that is
    /// damaged.
    void Write(const MdbColumn& column, std::string_view field);

private:
    MdbHandle& m_database;
    const TextDecoder& m_decoder;
    Output& m_output;
};

/// "YYYY-MM-DD hh:mm:ss" of days since 30 December 1899, whose fraction is the time also before that day.
/// Throws Failure for a day outside the years 100 to 9999.
std::string DateText(double days);
std::string HexText(std::string_view bytes);

} // namespace vexa_jet
