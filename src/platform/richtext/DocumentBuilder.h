#pragma once

#include "platform/richtext/RichDocument.h"

#include <string_view>
#include <vector>

namespace platform::richtext::reader {

/// A table row as \trowd and what follows tell it; may come before the cells or behind them.
struct RowDefinition
{
    TableRow row;                 // without cells
    std::vector<TableCell> cells; // without text
    std::vector<Long> edges;      // right edge of each cell, twips
    TableCell next;               // of the \cellx to come

    /// Ends the definition of a cell at its right edge.
    void AddEdge(Long edge);
};

/// Puts a document together from paragraphs, cells and rows in the order of the text, however incomplete.
class DocumentBuilder
{
public:
    /// `row`: the definition in force for rows that are in no other table; must outlive the builder.
    explicit DocumentBuilder(const RowDefinition& row) : m_row(row) {}

    /// The paragraph being filled.
    Paragraph& Current() { return m_current; }
    bool HasText() const { return !m_current.runs.empty(); }
    /// The next paragraph that ends begins a page.
    void BreakPage() { m_pageBreak = true; }

    /// Ends the current paragraph; `depth` tells how many tables it stands in.
    void EndParagraph(Long depth);
    /// Ends the current paragraph and the cell that it stands in; depth is 1 or more.
    void EndCell(Long depth);
    /// Ends a row; text behind its last cell is one more cell.
    void EndRow(Long depth, const RowDefinition& row);
    /// A new row is about to be defined: if this one has cells and goes on with text, its own end was
    /// missing.
    void RedefineRow();
    /// Ends all tables.
    void EndTables();

    RichDocument& Document() { return m_document; }

private:
    struct Level
    {
        Table table;
        std::vector<TableCell> cells; // of the row being filled
        std::vector<Block> cell;      // the blocks of the cell being filled
        bool redefined = false;
        RowDefinition definition; // in force before the row was redefined
    };

    std::vector<Block>& Blocks() { return m_levels.empty() ? m_document.blocks : m_levels.back().cell; }
    Long Depth() const { return static_cast<Long>(m_levels.size()); }
    void Settle(Long depth);
    bool BelongsToRow() const;
    void PushParagraph();
    void PushCell(Level& level);
    void CloseLevel();
    void FinishRow(Level& level, const RowDefinition& definition);
    void FinishRedefinedRow(Level& level);

    const RowDefinition& m_row;
    RichDocument m_document;
    Paragraph m_current;
    std::vector<Level> m_levels; // the tables that are open, the outermost first
    bool m_pageBreak = false;
};

} // namespace platform::richtext::reader
