#include "platform/print/TableSettings.h"

namespace platform::print {

Double CellValue::Number() const
{
    const Double* number = std::get_if<Double>(&m_value);
    return number == nullptr ? 0.0 : *number;
}

PrintText CellValue::Text() const
{
    const PrintText* text = std::get_if<PrintText>(&m_value);
    return text == nullptr ? PrintText() : *text;
}

} // namespace platform::print
