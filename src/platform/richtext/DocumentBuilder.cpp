#include "platform/richtext/DocumentBuilder.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace platform::richtext::reader {

namespace {

constexpr Long widestCell = 31680;    // twips: 22 inches
constexpr Long usualCellWidth = 1440; // twips, of a cell that no definition tells of

bool HasContent(const TableCell& cell)
{
    return std::ranges::any_of(cell.blocks, [](const Block& block) {
        const Paragraph* paragraph = block.AsParagraph();
        return paragraph == nullptr || !paragraph->runs.empty();
    });
}

/// Adds a block; tables that touch are one.
void Append(std::vector<Block>& blocks, Block&& block)
{
    Table* before = blocks.empty() ? nullptr : blocks.back().AsTable();
    Table* table = block.AsTable();
    if (before != nullptr && table != nullptr) {
        std::ranges::move(table->rows, std::back_inserter(before->rows));
    } else {
        blocks.push_back(std::move(block));
    }
}

void Append(std::vector<Block>& blocks, std::vector<Block>&& more)
{
    for (Block& block : more)
        Append(blocks, std::move(block));
    more.clear();
}

/// A cell that is told to continue another and yet has text, or nothing to continue, stands alone.
void SettleMerges(std::vector<TableCell>& cells)
{
    CellMerge before = CellMerge::None;
    for (TableCell& cell : cells) {
        const bool hasContent = HasContent(cell);
        if (cell.mergeAcross == CellMerge::Continued && (hasContent || before == CellMerge::None)) {
            cell.mergeAcross = CellMerge::None;
        }
        if (cell.mergeDown == CellMerge::Continued && hasContent) cell.mergeDown = CellMerge::None;
        before = cell.mergeAcross;
    }
}

} // namespace

void RowDefinition::AddEdge(Long edge)
{
    if (cells.size() < static_cast<std::size_t>(maxColumns)) {
        const Long before = edges.empty() ? row.left : edges.back();
        const std::int64_t width = std::int64_t{edge} - before;
        next.width = static_cast<Long>(std::clamp<std::int64_t>(width, 1, widestCell));
        edges.push_back(before + next.width);
        cells.push_back(next);
    }
    next = TableCell();
}

void DocumentBuilder::EndParagraph(Long depth)
{
    if (depth == 0 && BelongsToRow()) depth = 1;
    Settle(depth);
    if (!m_levels.empty()) FinishRedefinedRow(m_levels.back());
    PushParagraph();
}

/// Whether a paragraph that claims to stand outside of tables fills a row that lacks cells.
bool DocumentBuilder::BelongsToRow() const
{
    if (m_levels.empty() || m_levels.front().redefined) return false;
    const std::size_t cells = m_levels.front().cells.size();
    return cells > 0 && cells < m_row.cells.size();
}

void DocumentBuilder::EndCell(Long depth)
{
    Settle(depth);
    Level& level = m_levels.back();
    FinishRedefinedRow(level);
    PushParagraph();
    PushCell(level);
}

void DocumentBuilder::PushCell(Level& level)
{
    if (level.cell.back().AsTable() != nullptr) level.cell.push_back(Block{Paragraph()});
    if (level.cells.size() < static_cast<std::size_t>(maxColumns)) level.cells.emplace_back();
    Append(level.cells.back().blocks, std::move(level.cell));
}

void DocumentBuilder::EndRow(Long depth, const RowDefinition& row)
{
    if (HasText() || Depth() > depth) Settle(depth);
    if (Depth() != depth) return;
    Level& level = m_levels.back();
    level.redefined = false;
    if (HasText()) PushParagraph();
    if (!level.cell.empty()) PushCell(level);
    FinishRow(level, row);
}

void DocumentBuilder::RedefineRow()
{
    if (Depth() != 1 || m_levels.front().cells.empty() || m_levels.front().redefined) return;
    m_levels.front().redefined = true;
    m_levels.front().definition = m_row;
}

void DocumentBuilder::EndTables()
{
    while (!m_levels.empty())
        CloseLevel();
}

/// Opens or closes tables until `depth` of them are open.
void DocumentBuilder::Settle(Long depth)
{
    while (Depth() > depth)
        CloseLevel();
    while (Depth() < depth) {
        if (!m_levels.empty()) FinishRedefinedRow(m_levels.back());
        m_levels.emplace_back();
    }
}

void DocumentBuilder::PushParagraph()
{
    m_current.format.pageBreakBefore |= std::exchange(m_pageBreak, false);
    Blocks().push_back(Block{std::exchange(m_current, Paragraph())});
}

/// Ends the innermost table: what its last row holds is a row too, text that never came to a cell stands
/// alone.
void DocumentBuilder::CloseLevel()
{
    Level level = std::move(m_levels.back());
    m_levels.pop_back();
    if (!level.cells.empty()) {
        if (!level.cell.empty()) PushCell(level);
        const bool inForce = m_levels.empty() && !level.redefined;
        FinishRow(level, inForce ? m_row : level.definition);
    }
    std::vector<Block>& blocks = Blocks();
    if (!level.table.rows.empty()) Append(blocks, Block{std::move(level.table)});
    Append(blocks, std::move(level.cell));
}

void DocumentBuilder::FinishRedefinedRow(Level& level)
{
    if (!std::exchange(level.redefined, false)) return;
    if (!level.cell.empty()) PushCell(level);
    FinishRow(level, level.definition);
}

void DocumentBuilder::FinishRow(Level& level, const RowDefinition& definition)
{
    if (level.cells.empty()) return;
    TableRow row = definition.row;
    row.cells = std::exchange(level.cells, {});
    for (std::size_t place = 0; place < row.cells.size(); ++place) {
        std::vector<Block> blocks = std::move(row.cells[place].blocks);
        row.cells[place] = place < definition.cells.size() ? definition.cells[place] : TableCell();
        if (place >= definition.cells.size()) row.cells[place].width = usualCellWidth;
        row.cells[place].blocks = std::move(blocks);
    }
    SettleMerges(row.cells);
    level.table.rows.push_back(std::move(row));
}

} // namespace platform::richtext::reader
