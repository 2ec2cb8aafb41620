#pragma once

#include "platform/print/FlowRecord.h"

#include <cstdint>
#include <optional>
#include <string>

namespace platform::print {

/// The look of text in force.
struct PrintFont
{
    std::string family = "Arial";
    Double size = 10.0; // points
    bool bold = false;
    bool italic = false;

    richtext::CharacterFormat Look() const;
};

/// Everything that StartDoc returns to its default.
struct PrintSettings
{
    Double pageWidth = 12240.0, pageHeight = 15840.0;
    Double marginLeft = 720.0, marginTop = 1440.0, marginRight = 720.0, marginBottom = 720.0;
    Double indentLeft = 0.0, indentFirst = 0.0, indentRight = 0.0;
    Integer columns = 1;
    Integer textAlign = 0;
    PrintFont font;
    Double spaceBefore = 0.0, spaceAfter = 0.0;
    Integer tableBorder = 0;
    Integer pageBorder = 0;
    PageHeader header;          // `ruled` is pageBorder's matter
    std::uint32_t penColor = 0; // 0xBBGGRR
    Double penWidth = 10.0;
};

} // namespace platform::print
