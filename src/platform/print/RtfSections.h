#pragma once

#include "platform/print/Document.h"
#include "platform/richtext/RtfTables.h"

#include <string>

namespace platform::print {

/// What a section of the export is: margins in twips, columns, and the header of its first and of its other
/// pages.
struct RtfSection
{
    Double marginLeft = 720.0, marginTop = 1440.0, marginRight = 720.0, marginBottom = 720.0;
    Long columns = 1;
    Double columnGap = 0.0;
    PageHeader first, rest;

    bool HasOwnFirstPage() const;
    /// Whether pages of the one may go on in the other.
    friend bool operator==(const RtfSection& a, const RtfSection& b);
};

bool operator==(const PageHeader& a, const PageHeader& b);

/// Adds \sectd and what a section is; on a new page unless it `goesOn`.
void AppendSection(std::string& rtf,
                   const RtfSection& section,
                   const Document& document,
                   bool goesOn,
                   richtext::RtfTables& tables);

} // namespace platform::print
