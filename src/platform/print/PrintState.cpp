#include "platform/print/PrintState.h"

#include "platform/print/KeepRules.h"

#include <algorithm>
#include <utility>

namespace platform::print {

namespace {

/// Texts are laid out in at least this, however great margins and indents are.
constexpr Double narrowest = 720.0;

/// 0xBBGGRR as 0xRRGGBB, and back.
std::uint32_t Swapped(std::uint32_t color)
{
    return ((color & 0xFFU) << 16) | (color & 0xFF00U) | ((color >> 16) & 0xFFU);
}

} // namespace

Double PrintControl::State::TextWidth() const
{
    return std::max(narrowest, flow.ColumnWidth() - settings.indentLeft - settings.indentRight);
}

/// A first line that begins where it was told begins there whatever the indents are.
TextFrame PrintControl::State::FrameAt(std::optional<Double> start) const
{
    TextFrame frame;
    frame.width = TextWidth();
    frame.firstX = start ? *start - flow.ColumnLeft() - TextLeft() : settings.indentFirst;
    frame.tallest = std::max(narrowest, flow.ColumnHeight());
    return frame;
}

LaidText PrintControl::State::LayOut(const richtext::RichDocument& text, const TextFrame& frame)
{
    return TextLayout(looks).LayOut(text, frame);
}

richtext::RichDocument PrintControl::State::Joined(const PrintText& text) const
{
    richtext::RichDocument read = ReadText(text, settings.font);
    if (!pending.empty()) {
        if (read.blocks.front().AsParagraph() == nullptr)
            read.blocks.insert(read.blocks.begin(), {richtext::Paragraph()});
        auto& runs = read.blocks.front().AsParagraph()->runs;
        runs.insert(runs.begin(), pending.begin(), pending.end());
    }
    Align(read.blocks, settings.textAlign);
    return read;
}

void PrintControl::State::WriteParagraph(richtext::RichDocument text)
{
    const std::optional<Double> start = pending.empty() ? x : pendingX;
    FlowText item;
    item.left = TextLeft();
    item.right = settings.indentRight;
    item.firstX = start ? std::optional(*start - flow.ColumnLeft()) : item.left + settings.indentFirst;
    item.spaceBefore = settings.spaceBefore;
    item.spaceAfter = settings.spaceAfter;
    item.isHeading = !heading.empty();
    const LaidText laid = LayOut(text, FrameAt(start));
    MoveLists(text, document.lists);
    Loosen(text.blocks, laid, flow.ColumnHeight());
    item.blocks = std::move(text.blocks);
    flow.Note(std::move(item));
    pending.clear();
    pendingX.reset();
    x.reset();
    flow.SetY(flow.Y() + settings.spaceBefore);
    WriteBookmark();
    flow.Place(laid, TextLeft());
    flow.SetY(flow.Y() + settings.spaceAfter);
    flow.NoteEnd();
}

void PrintControl::State::WriteBookmark()
{
    if (heading.empty()) return;
    document.bookmarks.push_back({std::exchange(heading, {}), flow.PageIndex(), flow.Y()});
}

void PrintControl::State::EndLine()
{
    if (!pending.empty()) WriteParagraph(Joined(Rich("")));
}

void PrintControl::State::Measured(Double left, Double top, Double width, Double height)
{
    x1 = left;
    y1 = top;
    x2 = left + width;
    y2 = top + height;
    textHeight = height;
}

void PrintControl::State::WriteTable(const TableBuilder& builder)
{
    EndLine();
    if (builder.IsEmpty()) return;
    richtext::RichDocument text;
    FlowTable item = builder.Finish(text.lists);
    text.blocks.push_back({std::move(item.table)});
    richtext::ListCounter counter(text);
    TableLayout layout(looks, counter, text.defaultTab);
    std::vector<LaidRow> rows;
    const std::vector<richtext::TableRow>& told = text.blocks.front().AsTable()->rows;
    for (std::size_t i = 0; i < told.size(); ++i) {
        rows.push_back(layout.LayOut(told[i], 1.0, std::max(narrowest, flow.ColumnHeight())));
        rows.back().spaceBefore = item.rules[i].spaceBefore;
        rows.back().spacing = item.rules[i].spacing;
        rows.back().height += item.rules[i].spacing;
    }
    MoveLists(text, document.lists);
    item.table = std::move(*text.blocks.front().AsTable());
    const std::vector<RowRules> rules = item.rules;
    Loosen(item.rules, rows, flow.ColumnHeight());
    flow.Note(std::move(item));
    x.reset();
    const std::size_t placed = flow.Place(std::move(rows), rules, 0.0);
    flow.NoteEnd();
    KeepRows(placed);
}

/// Of the table that was noted last. One of which no row was placed is none.
void PrintControl::State::KeepRows(std::size_t placed)
{
    FlowTable* written = std::get_if<FlowTable>(&document.flow.back().content);
    if (written == nullptr) return;
    if (placed == 0) {
        document.flow.pop_back();
        return;
    }
    written->table.rows.resize(placed);
    written->rules.resize(placed);
}

void PrintControl::State::WriteTableOrDrop(PrintControl& control, const TableBuilder& builder)
{
    try {
        WriteTable(builder);
    } catch (const PrintCancelled&) {
        control.Abandon();
        throw;
    }
}

void PrintControl::State::PlaceBox(richtext::RichDocument text, LaidText laid, FlowTextBox box)
{
    MoveLists(text, document.lists);
    box.blocks = std::move(text.blocks);
    flow.PlaceBox(std::move(laid), std::move(box));
}

void PrintControl::State::Line(Double fromX, Double fromY, Double toX, Double toY)
{
    const PlacedLine line{fromX, fromY, toX, toY, settings.penWidth, Swapped(settings.penColor)};
    flow.PageInk().lines.push_back(line);
    flow.Note(FlowLine{line});
}

void PrintControl::State::Drop()
{
    std::string title = std::move(document.title);
    document = Document();
    document.title = std::move(title);
    looks.Clear();
    pending.clear();
    pendingX.reset();
    x.reset();
    heading.clear();
    table.reset();
    isOpen = false;
}

} // namespace platform::print
