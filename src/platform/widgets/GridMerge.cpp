#include "platform/widgets/GridMerge.h"

#include "platform/base/Texts.h"

namespace platform {

namespace {

class Merging
{
public:
    Merging(const GridModel& model, Long end) : m_model(model), m_contents(model.Contents()), m_end(end) {}

    /// The block that begins at a cell and ends before the column `limit`.
    GridBlock From(Long row, Long column, Long limit) const
    {
        GridBlock block{row, column, 1, 1};
        const std::string& text = m_contents.Text(row, column);
        if (text.empty()) return block;
        if (m_contents.MergeRow(row) && (row < m_contents.FixedRows() || !IsNumeric(text))) {
            while (column + block.columns < limit && m_contents.Text(row, column + block.columns) == text)
                ++block.columns;
        }
        while (row + block.rows < m_end && Continues(block, text))
            ++block.rows;
        return block;
    }

private:
    bool Continues(const GridBlock& block, const std::string& text) const
    {
        for (Long column = block.column; column < block.column + block.columns; ++column) {
            const GridModel::Column& looks = m_model.ColumnAt(column);
            // What is typed into a cell is that cell's own, also beside an equal one.
            const bool typed = looks.editable && block.row >= m_contents.FixedRows();
            if (!looks.merged || typed || m_contents.Text(block.row + block.rows, column) != text)
                return false;
        }
        return true;
    }

    const GridModel& m_model;
    const GridContents& m_contents;
    Long m_end;
};

} // namespace

std::vector<GridBlock> MergedBlocks(const GridModel& model, Long first, Long end)
{
    const Long columns = model.Contents().Cols();
    const Merging merging(model, end);
    std::vector<GridBlock> blocks;
    std::vector<Long> freeFrom(static_cast<std::size_t>(columns),
                               first); // per column, the next row of no block
    for (Long row = first; row < end; ++row) {
        for (Long column = 0; column < columns; ++column) {
            if (freeFrom[static_cast<std::size_t>(column)] > row) continue;
            Long limit = column + 1;
            while (limit < columns && freeFrom[static_cast<std::size_t>(limit)] <= row)
                ++limit;
            const GridBlock block = merging.From(row, column, limit);
            for (Long taken = column; taken < column + block.columns; ++taken)
                freeFrom[static_cast<std::size_t>(taken)] = row + block.rows;
            if (block.rows * block.columns > 1) blocks.push_back(block);
        }
    }
    return blocks;
}

} // namespace platform
