#include "platform/print/PrintControl.h"
#include "platform/print/PrintState.h"

#include <algorithm>
#include <utility>

namespace platform::print {

namespace {

constexpr Integer drawLine = 1;

/// Drops a document whose run is cancelled, so that no pages are left.
template <class Action> void OrDropIfCancelled(PrintControl& control, const Action& action)
{
    try {
        action();
    } catch (const PrintCancelled&) {
        control.Abandon();
        throw;
    }
}

/// How far down the lines of a box begin that is higher than they are.
Double BoxOffset(Integer align, Double height, const LaidText& text)
{
    const Double room = std::max(0.0, height - text.Height());
    switch (DownOf(align)) {
    case richtext::CellAlignment::Center: return room / 2.0;
    case richtext::CellAlignment::Bottom: return room;
    case richtext::CellAlignment::Top: break;
    }
    return 0.0;
}

} // namespace

void PrintControl::Paragraph(const PrintText& text)
{
    if (!m_state->isOpen) return;
    OrDropIfCancelled(*this, [&] { m_state->WriteParagraph(m_state->Joined(text)); });
}

void PrintControl::Text(const PrintText& text)
{
    State& state = *m_state;
    if (!state.isOpen) return;
    if (state.pending.empty()) state.pendingX = state.x;
    richtext::RichDocument read = state.Joined(text);
    richtext::RichDocument last;
    last.blocks.push_back({richtext::Paragraph()});
    if (read.blocks.back().AsParagraph() != nullptr) {
        last.blocks.back() = std::move(read.blocks.back());
        read.blocks.pop_back();
    }
    if (!read.blocks.empty()) OrDropIfCancelled(*this, [&] { state.WriteParagraph(std::move(read)); });
    const LaidText laid = state.LayOut(last, state.FrameAt(state.pendingX));
    state.x = state.flow.ColumnLeft() + state.TextLeft() + laid.lines.back().end;
    state.pending = std::move(last.blocks.back().AsParagraph()->runs);
    if (state.pending.empty()) state.x = state.pendingX;
}

void PrintControl::CalcParagraph(const PrintText& text)
{
    State& state = *m_state;
    const LaidText laid =
        state.LayOut(state.Joined(text), state.FrameAt(state.pending.empty() ? state.x : state.pendingX));
    const Double left = state.flow.ColumnLeft() + state.TextLeft();
    state.Measured(left, state.flow.Y() + state.settings.spaceBefore, state.TextWidth(), laid.Height());
}

void PrintControl::TextBox(
    const PrintText& text, Double left, Double top, Double width, Double height, bool wrap, bool calcOnly)
{
    State& state = *m_state;
    richtext::RichDocument read = ReadText(text, state.settings.font);
    Align(read.blocks, state.settings.textAlign);
    TextFrame frame;
    frame.width = std::max(1.0, width);
    frame.tallest = std::max(1.0, state.flow.ColumnHeight());
    frame.wrap = wrap;
    LaidText laid = state.LayOut(read, frame);
    const Double textHeight = laid.Height();
    state.Measured(left, top, width, textHeight);
    if (calcOnly || !state.isOpen) return;
    const Double offset = BoxOffset(state.settings.textAlign, height, laid);
    state.PlaceBox(
        std::move(read), std::move(laid), {{}, left, top + offset, width, std::max(0.0, textHeight)});
}

void PrintControl::DrawLine(Double x1, Double y1, Double x2, Double y2)
{
    if (m_state->isOpen) m_state->Line(x1, y1, x2, y2);
}

void PrintControl::SetDraw(Integer shape)
{
    if (shape == drawLine) DrawLine(m_state->x1, m_state->y1, m_state->x2, m_state->y2);
}

} // namespace platform::print
