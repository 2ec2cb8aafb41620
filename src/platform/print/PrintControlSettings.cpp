#include "platform/print/PrintControl.h"
#include "platform/print/PrintState.h"

#include <algorithm>
#include <utility>

namespace platform::print {

namespace {

/// The place of a bar that parts two fields, or the end.
std::size_t BarIn(const std::string& text, std::size_t from)
{
    return std::min(text.find('|', from), text.size());
}

} // namespace

void PrintControl::SetPaper(Double width, Double height)
{
    m_state->paper.pageWidth = width;
    m_state->paper.pageHeight = height;
    if (m_state->isOpen) return;
    m_state->settings.pageWidth = width;
    m_state->settings.pageHeight = height;
}

Double PrintControl::PageWidth() const { return m_state->settings.pageWidth; }

Double PrintControl::PageHeight() const { return m_state->settings.pageHeight; }

Double PrintControl::MarginLeft() const { return m_state->settings.marginLeft; }

void PrintControl::SetMarginLeft(Double twips) { m_state->settings.marginLeft = twips; }

Double PrintControl::MarginTop() const { return m_state->settings.marginTop; }

void PrintControl::SetMarginTop(Double twips) { m_state->settings.marginTop = twips; }

Double PrintControl::MarginRight() const { return m_state->settings.marginRight; }

void PrintControl::SetMarginRight(Double twips) { m_state->settings.marginRight = twips; }

Double PrintControl::MarginBottom() const { return m_state->settings.marginBottom; }

void PrintControl::SetMarginBottom(Double twips) { m_state->settings.marginBottom = twips; }

Double PrintControl::IndentLeft() const { return m_state->settings.indentLeft; }

void PrintControl::SetIndentLeft(Double twips) { m_state->settings.indentLeft = twips; }

Double PrintControl::IndentFirst() const { return m_state->settings.indentFirst; }

void PrintControl::SetIndentFirst(Double twips) { m_state->settings.indentFirst = twips; }

Double PrintControl::IndentRight() const { return m_state->settings.indentRight; }

void PrintControl::SetIndentRight(Double twips) { m_state->settings.indentRight = twips; }

Double PrintControl::SpaceBefore() const { return m_state->settings.spaceBefore; }

void PrintControl::SetSpaceBefore(Double twips) { m_state->settings.spaceBefore = twips; }

Double PrintControl::SpaceAfter() const { return m_state->settings.spaceAfter; }

void PrintControl::SetSpaceAfter(Double twips) { m_state->settings.spaceAfter = twips; }

Double PrintControl::PenWidth() const { return m_state->settings.penWidth; }

void PrintControl::SetPenWidth(Double twips) { m_state->settings.penWidth = twips; }

Integer PrintControl::Columns() const { return m_state->settings.columns; }

void PrintControl::SetColumns(Integer columns)
{
    State& state = *m_state;
    const Integer told = std::clamp<Integer>(columns, 1, 8);
    if (told == state.settings.columns) return;
    if (state.isOpen) state.EndLine();
    state.settings.columns = told;
    state.flow.RestartColumns();
    if (state.isOpen)
        state.flow.Note(
            FlowColumns{told, PageFlow::columnGap, state.settings.marginLeft, state.settings.marginRight});
}

Double PrintControl::CurrentX() const { return m_state->x.value_or(m_state->flow.ColumnLeft()); }

void PrintControl::SetCurrentX(Double twips)
{
    if (!m_state->pending.empty()) {
        const Double y = m_state->flow.Y();
        m_state->EndLine();
        m_state->flow.SetY(y); // the line goes on, elsewhere
    }
    m_state->x = twips;
}

Double PrintControl::CurrentY() const { return m_state->flow.Y(); }

void PrintControl::SetCurrentY(Double twips)
{
    if (m_state->isOpen) m_state->EndLine();
    m_state->flow.SetY(twips);
}

std::string PrintControl::FontName() const { return m_state->settings.font.family; }

void PrintControl::SetFontName(std::string family) { m_state->settings.font.family = std::move(family); }

Single PrintControl::FontSize() const { return ToSingle(m_state->settings.font.size); }

void PrintControl::SetFontSize(Double points) { m_state->settings.font.size = points; }

bool PrintControl::FontBold() const { return m_state->settings.font.bold; }

void PrintControl::SetFontBold(bool bold) { m_state->settings.font.bold = bold; }

bool PrintControl::FontItalic() const { return m_state->settings.font.italic; }

void PrintControl::SetFontItalic(bool italic) { m_state->settings.font.italic = italic; }

Integer PrintControl::TextAlign() const { return m_state->settings.textAlign; }

void PrintControl::SetTextAlign(Integer code)
{
    m_state->settings.textAlign = std::clamp<Integer>(code, 0, 8);
}

std::uint32_t PrintControl::PenColor() const { return m_state->settings.penColor; }

void PrintControl::SetPenColor(std::uint32_t color) { m_state->settings.penColor = color; }

Double PrintControl::X1() const { return m_state->x1; }

void PrintControl::SetX1(Double twips) { m_state->x1 = twips; }

Double PrintControl::Y1() const { return m_state->y1; }

void PrintControl::SetY1(Double twips) { m_state->y1 = twips; }

Double PrintControl::X2() const { return m_state->x2; }

void PrintControl::SetX2(Double twips) { m_state->x2 = twips; }

Double PrintControl::Y2() const { return m_state->y2; }

void PrintControl::SetY2(Double twips) { m_state->y2 = twips; }

Double PrintControl::TextHei() const { return m_state->textHeight; }

std::string PrintControl::Header() const
{
    const auto& fields = m_state->settings.header.fields;
    return fields[0].text + "|" + fields[1].text + "|" + fields[2].text;
}

void PrintControl::SetHeader(const std::string& fields)
{
    const std::size_t first = BarIn(fields, 0);
    const std::size_t second = BarIn(fields, std::min(first + 1, fields.size()));
    const auto from = [&](std::size_t bar) { return std::min(bar + 1, fields.size()); };
    SetHeader({{{fields.substr(0, first), true},
                {fields.substr(from(first), second - from(first)), true},
                {fields.substr(from(second)), true}}});
}

void PrintControl::SetHeader(const std::array<HeaderField, 3>& fields)
{
    m_state->settings.header.fields = fields;
}

std::string PrintControl::HdrFontName() const { return m_state->settings.header.font; }

void PrintControl::SetHdrFontName(std::string family) { m_state->settings.header.font = std::move(family); }

Single PrintControl::HdrFontSize() const { return ToSingle(m_state->settings.header.size); }

void PrintControl::SetHdrFontSize(Double points) { m_state->settings.header.size = points; }

bool PrintControl::HdrFontBold() const { return m_state->settings.header.bold; }

void PrintControl::SetHdrFontBold(bool bold) { m_state->settings.header.bold = bold; }

Integer PrintControl::PageBorder() const { return m_state->settings.pageBorder; }

void PrintControl::SetPageBorder(Integer border) { m_state->settings.pageBorder = border; }

Integer PrintControl::TableBorder() const { return m_state->settings.tableBorder; }

void PrintControl::SetTableBorder(Integer border) { m_state->settings.tableBorder = border; }

Long PrintControl::FontCount() const
{
    if (m_state->fonts.empty()) m_state->fonts = ServedFamilies();
    return static_cast<Long>(m_state->fonts.size());
}

std::string PrintControl::Fonts(Long place) const
{
    const bool isThere = place >= 0 && place < FontCount();
    return isThere ? m_state->fonts[static_cast<std::size_t>(place)] : std::string();
}

void PrintControl::SetFonts(std::vector<std::string> families) { m_state->fonts = std::move(families); }

} // namespace platform::print
