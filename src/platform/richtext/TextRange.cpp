#include "platform/richtext/TextRange.h"

#include "platform/richtext/MoveLists.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace platform::richtext {

namespace {

constexpr std::string_view pictureSign = "\uFFFC";
constexpr Long paragraphEnd = 1;

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

Long CharactersOf(std::string_view text)
{
    return static_cast<Long>(std::count_if(text.begin(), text.end(), BeginsCharacter));
}

Long LengthOf(const Run& run) { return run.picture ? 1 : CharactersOf(run.text); }

/// Where a character of a text begins, in bytes.
std::size_t ByteOf(std::string_view text, Long character)
{
    std::size_t byte = 0;
    for (; byte < text.size(); ++byte) {
        if (BeginsCharacter(text[byte]) && character-- == 0) break;
    }
    return byte;
}

void AppendRun(Paragraph& paragraph, const Run& run)
{
    if (run.picture) {
        paragraph.runs.push_back(run);
    } else {
        AppendText(paragraph, run.text, run.format);
    }
}

void AppendRuns(Paragraph& paragraph, const std::vector<Run>& runs)
{
    for (const Run& run : runs)
        AppendRun(paragraph, run);
}

void AppendSlice(Paragraph& paragraph, const Run& run, Long from, Long to)
{
    if (from >= to) return;
    if (run.picture) return AppendRun(paragraph, run);
    const std::size_t start = ByteOf(run.text, from);
    const std::string_view rest = std::string_view(run.text).substr(start);
    AppendText(paragraph, rest.substr(0, ByteOf(rest, to - from)), run.format);
}

std::string CharactersOf(const Paragraph& paragraph)
{
    std::string text;
    for (const Run& run : paragraph.runs)
        text += run.picture ? pictureSign : std::string_view(run.text);
    return text;
}

std::optional<Long> FindIn(const Paragraph& paragraph, std::string_view sought, Long from)
{
    const std::string text = CharactersOf(paragraph);
    const std::size_t place = text.find(sought, ByteOf(text, std::max<Long>(from, 0)));
    if (place == std::string::npos) return std::nullopt;
    return CharactersOf(std::string_view(text).substr(0, place));
}

std::optional<Long> FindIn(const std::vector<Block>& blocks, std::string_view sought, Long from, Long& passed)
{
    for (const Block& block : blocks) {
        if (const auto place = FindIn(block, sought, from - passed)) return passed + *place;
        passed += LengthOf(block);
    }
    return std::nullopt;
}

template <class Blocks> TextRange<Blocks> RangeInText(Blocks& blocks, Long from, Long to);

template <class TableType, class Blocks>
std::optional<TextRange<Blocks>> RangeInTable(TableType& table, Long from, Long to)
{
    for (auto& row : table.rows) {
        for (auto& cell : row.cells) {
            const Long length = LengthOf(cell.blocks);
            if (from < length) {
                if (to >= length) return std::nullopt;
                return RangeInText<Blocks>(cell.blocks, from, to);
            }
            from -= length;
            to -= length;
        }
    }
    return std::nullopt;
}

/// The block that a place is in; the place then counts from there.
std::size_t BlockAt(const std::vector<Block>& blocks, Long& place)
{
    std::size_t block = 0;
    for (; block + 1 < blocks.size(); ++block) {
        const Long length = LengthOf(blocks[block]);
        if (place < length) break;
        place -= length;
    }
    return block;
}

template <class Blocks> TextRange<Blocks> RangeInText(Blocks& blocks, Long from, Long to)
{
    TextRange<Blocks> range{&blocks, 0, 0, from, to};
    range.first = BlockAt(blocks, range.start);
    range.last = BlockAt(blocks, range.end);
    auto* table = blocks[range.first].AsTable();
    if (table == nullptr || range.first != range.last) return range;
    return RangeIn(*table, range.start, range.end).value_or(range);
}

/// What of a paragraph stands before and behind a range; nothing of a table.
Paragraph HeadOf(const Block& block, Long to)
{
    const Paragraph* paragraph = block.AsParagraph();
    return paragraph == nullptr ? Paragraph() : SliceOf(*paragraph, 0, to);
}

Paragraph TailOf(const Block& block, Long from)
{
    const Paragraph* paragraph = block.AsParagraph();
    return paragraph == nullptr ? Paragraph() : SliceOf(*paragraph, from, std::numeric_limits<Long>::max());
}

void JoinHead(Paragraph head, std::vector<Block>& inserted)
{
    if (head.runs.empty()) return;
    Paragraph* first = inserted.front().AsParagraph();
    if (first == nullptr) {
        inserted.insert(inserted.begin(), {std::move(head)});
        return;
    }
    AppendRuns(head, first->runs);
    *first = std::move(head);
}

void JoinTail(Paragraph tail, std::vector<Block>& inserted)
{
    if (tail.runs.empty()) return;
    if (Paragraph* last = inserted.back().AsParagraph()) {
        last->emptyFormat = {};
        AppendRuns(*last, tail.runs);
    } else {
        inserted.push_back({std::move(tail)});
    }
}

} // namespace

Long LengthOf(const Paragraph& paragraph)
{
    Long length = paragraphEnd;
    for (const Run& run : paragraph.runs)
        length += LengthOf(run);
    return length;
}

Long LengthOf(const Block& block)
{
    if (const Paragraph* paragraph = block.AsParagraph()) return LengthOf(*paragraph);
    Long length = 0;
    for (const TableRow& row : block.AsTable()->rows) {
        for (const TableCell& cell : row.cells)
            length += LengthOf(cell.blocks);
    }
    return length;
}

Long LengthOf(const std::vector<Block>& blocks)
{
    Long length = 0;
    for (const Block& block : blocks)
        length += LengthOf(block);
    return length;
}

Paragraph SliceOf(const Paragraph& paragraph, Long from, Long to)
{
    Paragraph slice{paragraph.format, {}, {}};
    Long start = 0;
    for (const Run& run : paragraph.runs) {
        const Long length = LengthOf(run);
        AppendSlice(slice, run, std::max<Long>(from - start, 0), std::min(to - start, length));
        start += length;
    }
    if (paragraph.runs.empty()) slice.emptyFormat = paragraph.emptyFormat;
    return slice;
}

std::optional<Long> FindIn(const Block& block, std::string_view text, Long from)
{
    if (const Paragraph* paragraph = block.AsParagraph()) return FindIn(*paragraph, text, from);
    Long passed = 0;
    for (const TableRow& row : block.AsTable()->rows) {
        for (const TableCell& cell : row.cells) {
            if (const auto place = FindIn(cell.blocks, text, from, passed)) return place;
        }
    }
    return std::nullopt;
}

TextRange<std::vector<Block>> RangeIn(std::vector<Block>& blocks, Long from, Long to)
{
    return RangeInText<std::vector<Block>>(blocks, from, to);
}

TextRange<const std::vector<Block>> RangeIn(const std::vector<Block>& blocks, Long from, Long to)
{
    return RangeInText<const std::vector<Block>>(blocks, from, to);
}

std::optional<TextRange<std::vector<Block>>> RangeIn(Table& table, Long from, Long to)
{
    return RangeInTable<Table, std::vector<Block>>(table, from, to);
}

std::optional<TextRange<const std::vector<Block>>> RangeIn(const Table& table, Long from, Long to)
{
    return RangeInTable<const Table, const std::vector<Block>>(table, from, to);
}

std::vector<Block> CopyOf(const TextRange<const std::vector<Block>>& range)
{
    std::vector<Block> copy;
    for (std::size_t place = range.first; place <= range.last; ++place) {
        const Block& block = (*range.blocks)[place];
        const Paragraph* paragraph = block.AsParagraph();
        const bool isCut = paragraph != nullptr && (place == range.first || place == range.last);
        if (!isCut) {
            copy.push_back(block);
            continue;
        }
        const Long from = place == range.first ? range.start : 0;
        const Long to = place == range.last ? range.end : std::numeric_limits<Long>::max();
        copy.push_back({SliceOf(*paragraph, from, to)});
    }
    return copy;
}

std::size_t Replace(const TextRange<std::vector<Block>>& range, std::vector<Block> inserted)
{
    std::vector<Block>& blocks = *range.blocks;
    if (inserted.empty()) inserted.push_back({Paragraph{HeadOf(blocks[range.first], 0).format, {}, {}}});
    JoinHead(HeadOf(blocks[range.first], range.start), inserted);
    JoinTail(TailOf(blocks[range.last], range.end), inserted);
    const bool isLast = range.last + 1 == blocks.size();
    if (isLast && inserted.back().AsTable() != nullptr) inserted.push_back({Paragraph()});
    const auto at = [&](std::size_t place) { return blocks.begin() + static_cast<std::ptrdiff_t>(place); };
    const std::size_t count = inserted.size();
    blocks.erase(at(range.first), at(range.last + 1));
    blocks.insert(
        at(range.first), std::make_move_iterator(inserted.begin()), std::make_move_iterator(inserted.end()));
    return count;
}

void ForEachIn(const TextRange<std::vector<Block>>& range,
               const std::function<void(Paragraph&, Long, Long)>& change)
{
    const auto whole = [&](Paragraph& paragraph) { change(paragraph, 0, LengthOf(paragraph)); };
    for (std::size_t place = range.first; place <= range.last; ++place) {
        Block& block = (*range.blocks)[place];
        if (Table* table = block.AsTable()) {
            for (TableRow& row : table->rows) {
                for (TableCell& cell : row.cells)
                    ForEachParagraph(cell.blocks, whole);
            }
            continue;
        }
        Paragraph& paragraph = *block.AsParagraph();
        change(paragraph,
               place == range.first ? range.start : 0,
               place == range.last ? range.end : LengthOf(paragraph));
    }
}

void ChangeLooks(Paragraph& paragraph,
                 Long from,
                 Long to,
                 const std::function<void(CharacterFormat&)>& change)
{
    if (paragraph.runs.empty()) return change(paragraph.emptyFormat);
    Paragraph changed = SliceOf(paragraph, 0, from);
    for (Run& run : SliceOf(paragraph, from, to).runs) {
        if (!run.picture) change(run.format);
        AppendRun(changed, run);
    }
    AppendRuns(changed, SliceOf(paragraph, to, std::numeric_limits<Long>::max()).runs);
    paragraph.runs = std::move(changed.runs);
}

} // namespace platform::richtext
