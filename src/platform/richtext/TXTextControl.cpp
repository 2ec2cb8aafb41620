#include "platform/richtext/TXTextControl.h"

#include "platform/richtext/MoveLists.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform::richtext {

namespace {

platform::richtext::Alignment AlignmentOf(Long code)
{
    switch (code) {
    case TXTextControl::alignRight: return Alignment::Right;
    case TXTextControl::alignCentre: return Alignment::Center;
    case TXTextControl::alignJustify: return Alignment::Justify;
    default: return Alignment::Left;
    }
}

Long CodeOf(platform::richtext::Alignment alignment)
{
    switch (alignment) {
    case Alignment::Right: return TXTextControl::alignRight;
    case Alignment::Center: return TXTextControl::alignCentre;
    case Alignment::Justify: return TXTextControl::alignJustify;
    case Alignment::Left: break;
    }
    return TXTextControl::alignLeft;
}

/// The paragraph that a range begins in; nothing where that is a table.
const Paragraph* FirstOf(const TextRange<const std::vector<Block>>& range)
{
    return (*range.blocks)[range.first].AsParagraph();
}

/// The look at a place in a paragraph: of the character there, else of the one before.
CharacterFormat LookAt(const Paragraph& paragraph, Long place)
{
    if (paragraph.runs.empty()) return paragraph.emptyFormat;
    const Paragraph rest = SliceOf(paragraph, place, LengthOf(paragraph));
    return rest.runs.empty() ? paragraph.runs.back().format : rest.runs.front().format;
}

void SetLooks(std::vector<Block>& blocks, const ParagraphFormat& format, const CharacterFormat& look)
{
    ForEachParagraph(blocks, [&](Paragraph& paragraph) {
        paragraph.format = format;
        for (Run& run : paragraph.runs)
            run.format = look;
        if (paragraph.runs.empty()) paragraph.emptyFormat = look;
    });
}

} // namespace

TXTextControl::TXTextControl() { SetText(""); }

std::string TXTextControl::Text() const { return PlainText(m_document); }

void TXTextControl::SetText(std::string_view text) { Take(PlainDocument(text)); }

void TXTextControl::SetTextWidth(Long twips) { m_textWidth = std::max<Long>(twips, maxColumns); }

void TXTextControl::LoadFromMemory(std::string_view data, Long format)
{
    if (format == formatRtf) Take(ReadRtf(data));
}

std::string TXTextControl::SaveToMemory(Long format) const
{
    return format == formatRtf ? WriteRtf(m_document) : std::string();
}

void TXTextControl::Take(RichDocument document)
{
    m_document = std::move(document);
    if (m_document.blocks.back().AsParagraph() == nullptr) m_document.blocks.push_back({Paragraph()});
    m_parts = PartsOf(0, m_document.blocks.size());
    m_length = 0;
    for (const Part& part : m_parts)
        m_length += part.length;
    m_selStart = m_selLength = 0;
}

std::vector<TXTextControl::Part> TXTextControl::PartsOf(std::size_t first, std::size_t count) const
{
    std::vector<Part> parts(count);
    for (std::size_t i = 0; i < count; ++i)
        parts[i].length = LengthOf(m_document.blocks[first + i]);
    return parts;
}

/// Something in a block is another than before.
void TXTextControl::Changed(std::size_t place)
{
    Part& part = m_parts[place];
    m_length -= part.length;
    part.length = LengthOf(m_document.blocks[place]);
    part.isWithout = false;
    m_length += part.length;
}

/// In the place of some blocks others stand.
void TXTextControl::Respace(std::size_t first, std::size_t last, std::size_t count)
{
    const auto at = [&](std::size_t place) { return m_parts.begin() + static_cast<std::ptrdiff_t>(place); };
    for (std::size_t i = first; i < last; ++i)
        m_length -= m_parts[i].length;
    std::vector<Part> parts = PartsOf(first, count);
    for (const Part& part : parts)
        m_length += part.length;
    m_parts.erase(at(first), at(last));
    m_parts.insert(at(first), parts.begin(), parts.end());
}

/// Where a block begins; counted from the end, where a document grows.
Long TXTextControl::StartOf(std::size_t block) const
{
    Long start = m_length;
    for (std::size_t part = m_parts.size(); part > block; --part)
        start -= m_parts[part - 1].length;
    return start;
}

/// The block that a place is in; the place then counts from there. Looked for from the end as well.
std::size_t TXTextControl::PartAt(Long& place) const
{
    std::size_t part = m_parts.size() - 1;
    Long start = m_length - m_parts[part].length;
    while (part > 0 && place < start)
        start -= m_parts[--part].length;
    place -= start;
    return part;
}

template <class Blocks> TextRange<Blocks> TXTextControl::RangeOf(Blocks& blocks) const
{
    TextRange<Blocks> range{&blocks, 0, 0, m_selStart, m_selStart + m_selLength};
    range.first = PartAt(range.start);
    range.last = PartAt(range.end);
    auto* table = blocks[range.first].AsTable();
    if (table == nullptr || range.first != range.last) return range;
    return RangeIn(*table, range.start, range.end).value_or(range);
}

TXTextControl::ConstRange TXTextControl::Selected() const { return RangeOf(m_document.blocks); }

void TXTextControl::SetSelStart(Long place)
{
    m_selStart = place == endOfText ? End() : std::clamp<Long>(place, 0, End());
    m_selLength = 0;
}

void TXTextControl::SetSelLength(Long length)
{
    m_selLength = std::clamp<Long>(length, 0, End() - m_selStart);
}

std::string TXTextControl::SelText() const
{
    RichDocument selected;
    selected.blocks = CopyOf(Selected());
    return PlainText(selected);
}

void TXTextControl::SetSelText(std::string_view text)
{
    RichDocument typed = ReadParts({{TextPart::Kind::Plain, text}});
    const ConstRange range = Selected();
    const Paragraph* first = FirstOf(range);
    if (first != nullptr) SetLooks(typed.blocks, first->format, LookAt(*first, range.start));
    ReplaceSelection(std::move(typed.blocks));
}

std::string TXTextControl::RTFSelText() const
{
    RichDocument selected;
    selected.blocks = CopyOf(Selected());
    selected.lists = m_document.lists;
    selected.defaultTab = m_document.defaultTab;
    return WriteRtf(selected);
}

void TXTextControl::SetRTFSelText(std::string_view rtf)
{
    RichDocument read = ReadRtf(rtf);
    MoveLists(read, m_document.lists);
    ReplaceSelection(std::move(read.blocks));
}

void TXTextControl::ReplaceSelection(std::vector<Block> blocks)
{
    const Long behind = End() - (m_selStart + m_selLength);
    Long start = m_selStart;
    const std::size_t top = PartAt(start);
    const Range range = RangeOf(m_document.blocks);
    const bool isInCell = range.blocks != &m_document.blocks;
    const std::size_t count = Replace(range, std::move(blocks));
    isInCell ? Changed(top) : Respace(range.first, range.last + 1, count);
    SetSelStart(std::max<Long>(End() - behind, 0));
}

void TXTextControl::ChangeSelection(const std::function<void(Paragraph&, Long, Long)>& change)
{
    ForEachIn(RangeOf(m_document.blocks), change);
}

void TXTextControl::ChangeCharacters(const std::function<void(CharacterFormat&)>& change)
{
    ChangeSelection(
        [&](Paragraph& paragraph, Long from, Long to) { ChangeLooks(paragraph, from, to, change); });
}

CharacterFormat TXTextControl::FirstLook() const
{
    const ConstRange range = Selected();
    const Paragraph* first = FirstOf(range);
    return first == nullptr ? CharacterFormat() : LookAt(*first, range.start);
}

Long TXTextControl::Alignment() const
{
    const Paragraph* first = FirstOf(Selected());
    return first == nullptr ? alignLeft : CodeOf(first->format.alignment);
}

void TXTextControl::SetAlignment(Long code)
{
    ChangeSelection(
        [code](Paragraph& paragraph, Long, Long) { paragraph.format.alignment = AlignmentOf(code); });
}

Single TXTextControl::FontSize() const { return Single(FirstLook().halfPoints) / 2.0F; }

void TXTextControl::SetFontSize(Double points)
{
    constexpr Long least = 2, most = 3276; // half points
    const Long halfPoints = std::clamp(ToLong(std::clamp(points * 2.0, 0.0, Double(most))), least, most);
    ChangeCharacters([halfPoints](CharacterFormat& look) { look.halfPoints = halfPoints; });
}

bool TXTextControl::FontBold() const { return FirstLook().bold; }

void TXTextControl::SetFontBold(bool bold)
{
    ChangeCharacters([bold](CharacterFormat& look) { look.bold = bold; });
}

bool TXTextControl::KeepWithNext() const
{
    const Paragraph* first = FirstOf(Selected());
    return first != nullptr && first->format.keepWithNext;
}

void TXTextControl::SetKeepWithNext(bool keep)
{
    ChangeSelection([keep](Paragraph& paragraph, Long, Long) { paragraph.format.keepWithNext = keep; });
}

/// Blocks that are known not to hold the text are passed over, so that looking for one text again and again
/// from the start does not read the document each time.
Long TXTextControl::Find(std::string_view text, Long start, Long)
{
    if (text.empty()) return -1;
    if (text != m_sought) {
        m_sought = text;
        for (Part& part : m_parts)
            part.isWithout = false;
    }
    Long passed = 0;
    for (std::size_t i = 0; i < m_parts.size(); passed += m_parts[i++].length) {
        if (m_parts[i].isWithout || passed + m_parts[i].length <= start) continue;
        const auto place = FindIn(m_document.blocks[i], text, std::max<Long>(start - passed, 0));
        m_parts[i].isWithout = !place && start <= passed;
        if (!place) continue;
        SetSelStart(passed + *place);
        SetSelLength(LengthOf(Paragraph{{}, {Run{{}, std::string(text), nullptr}}, {}}) - 1);
        return m_selStart;
    }
    return -1;
}

} // namespace platform::richtext
