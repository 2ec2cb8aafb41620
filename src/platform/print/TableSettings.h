#pragma once

#include "platform/base/Numbers.h"
#include "platform/print/PrintText.h"

#include <string>
#include <type_traits>
#include <variant>

namespace platform::print {

/// What can be told of a table that is built in steps, by the numbers of the control. Row 0 is the header
/// row, columns begin at 1.
enum TableSetting {
    tcRows = 1,             // of the table: number of body rows
    tcRowHeight = 7,        // twips, at least; 0: as the text needs
    tcRowIsHeader = 8,      // repeated where the table goes on, on a new page or in a new column
    tcRowKeepWithNext = 11, // the row stays on the page of the next one
    tcColSpan = 17,         // number of columns that the cell covers; cut to the table's
    tcText = 18,            // of the cell
    tcAlign = 19,           // alignment code 0 to 8
    tcFontSize = 24,        // points
    tcFontBold = 25,        //
    tcRowSpacing = 34,      // extra space above the row's text, twips
    tcRowBorderAbove = 36,  // width of a rule above the row, twips; 0: none
    tcRowBorderBelow = 37,  //
    tcRowLongText = 40,     // the row may break over pages when it alone is higher than one
    tcVertical = 42         // the text stands turned, reading upward
};

/// The value of a setting: a number, a truth or a text.
class CellValue
{
public:
    CellValue(bool value) : m_value(value ? -1.0 : 0.0) {}
    template <class Number>
    requires std::is_arithmetic_v<Number> CellValue(Number value) : m_value(static_cast<Double>(value)) {}
    CellValue(PrintText text) : m_value(std::move(text)) {}
    CellValue(std::string text) : m_value(PrintText(std::move(text))) {}
    CellValue(const char* text) : m_value(PrintText(text)) {}

    bool IsText() const { return std::holds_alternative<PrintText>(m_value); }
    bool IsTrue() const { return Number() != 0.0; }
    Double Number() const;  // 0 for a text
    PrintText Text() const; // empty for a number

private:
    std::variant<Double, PrintText> m_value;
};

} // namespace platform::print
