#include "platform/richtext/DocumentInvariants.h"

#include "platform/base/Texts.h"

#include <algorithm>

namespace rich {

using namespace platform::richtext;

namespace {

bool IsControl(char sign)
{
    return (static_cast<unsigned char>(sign) < 0x20 && sign != '\t' && sign != '\n') || sign == 0x7F;
}

std::string BrokenPromise(const Run& run)
{
    if (run.picture == nullptr && run.text.empty()) return "a run of nothing";
    if (run.picture != nullptr && !run.text.empty()) return "a picture with text";
    CharacterFormat linked;
    linked.href = run.format.href;
    if (run.picture != nullptr && run.format != linked) return "a picture with a look";
    if (run.picture != nullptr && run.picture->bytes.size() > maxPictureBytes) return "a picture too large";
    if (std::ranges::any_of(run.text, IsControl)) return "a control character";
    if (platform::ValidUtf8(run.text) != run.text) return "text that is no UTF-8";
    if (run.format.halfPoints < 2 || run.format.halfPoints > 3276) return "a size out of bounds";
    return {};
}

std::string BrokenRuns(const Paragraph& paragraph)
{
    const Run* before = nullptr;
    for (const Run& run : paragraph.runs) {
        if (std::string broken = BrokenPromise(run); !broken.empty()) return broken;
        const bool areTexts = before != nullptr && before->picture == nullptr && run.picture == nullptr;
        if (areTexts && before->format == run.format) return "neighbouring runs of one look";
        before = &run;
    }
    const bool keepsLook = paragraph.emptyFormat != CharacterFormat();
    return keepsLook && !paragraph.runs.empty() ? "a look for an empty paragraph that is not empty" : "";
}

std::string BrokenFormat(const RichDocument& document, const ParagraphFormat& format)
{
    if (format.list != 0 && LevelOf(document, format) == nullptr) return "a list or level that is not there";
    if (format.list == 0 && format.level != 0) return "a level without a list";
    if (format.lineSpacing.value <= 0) return "lines of no height";
    const auto notBelow = [](const TabStop& a, const TabStop& b) { return a.position >= b.position; };
    if (std::ranges::adjacent_find(format.tabs, notBelow) != format.tabs.end())
        return "tab stops out of order";
    return {};
}

std::string BrokenBlocks(const RichDocument& document, const std::vector<Block>& blocks, Long depth);

std::string BrokenCell(const RichDocument& document, const TableCell& cell, Long depth)
{
    if (cell.width <= 0) return "a cell of no width";
    if (cell.blocks.empty()) return "a cell without a paragraph";
    if (cell.blocks.back().AsParagraph() == nullptr) return "a cell that ends in a table";
    return BrokenBlocks(document, cell.blocks, depth);
}

std::string BrokenTable(const RichDocument& document, const Table& table, Long depth)
{
    if (depth > maxTableDepth) return "tables nested too deep";
    if (table.rows.empty()) return "a table without rows";
    for (const TableRow& row : table.rows) {
        if (row.cells.empty()) return "a row without cells";
        if (row.cells.size() > static_cast<std::size_t>(maxColumns)) return "a row of too many cells";
        for (const TableCell& cell : row.cells) {
            if (std::string broken = BrokenCell(document, cell, depth); !broken.empty()) return broken;
        }
    }
    return {};
}

std::string BrokenBlock(const RichDocument& document, const Block& block, Long depth)
{
    if (const Table* table = block.AsTable()) return BrokenTable(document, *table, depth + 1);
    const Paragraph& paragraph = *block.AsParagraph();
    std::string broken = BrokenRuns(paragraph);
    return broken.empty() ? BrokenFormat(document, paragraph.format) : broken;
}

std::string BrokenBlocks(const RichDocument& document, const std::vector<Block>& blocks, Long depth)
{
    const Block* before = nullptr;
    for (const Block& block : blocks) {
        if (std::string broken = BrokenBlock(document, block, depth); !broken.empty()) return broken;
        const bool touch = before != nullptr && before->AsTable() != nullptr && block.AsTable() != nullptr;
        if (touch) return "tables that touch";
        before = &block;
    }
    return {};
}

} // namespace

std::string BrokenPromise(const RichDocument& document)
{
    if (document.blocks.empty()) return "no block";
    if (document.defaultTab <= 0) return "no standing tab stops";
    for (const RichList& list : document.lists) {
        if (list.levels.empty() || list.levels.size() > static_cast<std::size_t>(maxListLevels))
            return "a list's levels";
    }
    return BrokenBlocks(document, document.blocks, 0);
}

} // namespace rich
