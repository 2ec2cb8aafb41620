#include "platform/richtext/RichDocument.h"

#include <algorithm>

namespace platform::richtext {

namespace {

void AppendParagraph(std::string& text, const Paragraph& paragraph)
{
    for (const Run& run : paragraph.runs)
        text += run.text;
}

bool IsVisible(const Paragraph& paragraph)
{
    return std::ranges::any_of(paragraph.runs, [](const Run& run) {
        return run.text.find_first_not_of(" \t\n\u00A0") != std::string::npos;
    });
}

/// Adds what a cell holds as parts of its line, one blank between two; paragraphs of blanks alone leave none.
void AppendCell(std::string& text, const std::vector<Block>& blocks, std::size_t cellStart);

void AppendInner(std::string& text, const Table& table, std::size_t cellStart)
{
    for (const TableRow& row : table.rows) {
        for (const TableCell& cell : row.cells)
            AppendCell(text, cell.blocks, cellStart);
    }
}

void AppendCell(std::string& text, const std::vector<Block>& blocks, std::size_t cellStart)
{
    for (const Block& block : blocks) {
        if (const Table* table = block.AsTable()) {
            AppendInner(text, *table, cellStart);
            continue;
        }
        const Paragraph& paragraph = *block.AsParagraph();
        if (!IsVisible(paragraph)) continue;
        if (text.size() > cellStart) text += ' ';
        AppendParagraph(text, paragraph);
    }
}

void AppendRow(std::string& text, const TableRow& row)
{
    bool first = true;
    for (const TableCell& cell : row.cells) {
        if (!first) text += '\t';
        first = false;
        AppendCell(text, cell.blocks, text.size());
    }
}

void AppendTable(std::string& text, const Table& table)
{
    bool first = true;
    for (const TableRow& row : table.rows) {
        if (!first) text += '\n';
        first = false;
        AppendRow(text, row);
    }
}

} // namespace

std::string PlainText(const RichDocument& document)
{
    std::string text;
    bool first = true;
    for (const Block& block : document.blocks) {
        if (!first) text += '\n';
        first = false;
        if (const Table* table = block.AsTable()) {
            AppendTable(text, *table);
        } else {
            AppendParagraph(text, *block.AsParagraph());
        }
    }
    return text;
}

} // namespace platform::richtext
