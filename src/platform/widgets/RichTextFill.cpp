#include "platform/widgets/RichTextBridge.h"
#include "platform/widgets/RichTextGrid.h"
#include "platform/widgets/RichTextListGroups.h"
#include "platform/widgets/RichTextPictures.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>

#include <algorithm>
#include <map>

namespace platform::RichTextBridge {

namespace {

using richtext::Block;
using richtext::Paragraph;
using richtext::RichDocument;
using richtext::Run;
using richtext::Table;
using richtext::TableCell;

/// A line break within a paragraph, and no sign that the toolkit would take for an end or an object.
QString Shown(const std::string& text)
{
    QString shown = QString::fromStdString(text);
    shown.replace(QLatin1Char('\n'), QChar::LineSeparator);
    shown.replace(QChar::ParagraphSeparator, QChar::LineSeparator);
    shown.replace(QChar::ObjectReplacementCharacter, QChar::ReplacementCharacter);
    return shown;
}

/// The first paragraph of a cell has the cell's own format in its place.
void SetMarkerLook(QTextCursor& cursor, const QTextCharFormat& format)
{
    if (cursor.blockCharFormat().objectIndex() == -1) {
        cursor.setBlockCharFormat(format);
    } else {
        cursor.mergeBlockCharFormat(format);
    }
}

class Filler
{
public:
    Filler(RichTextDocument& document, const RichDocument& text)
        : m_document(document), m_text(text), m_groups(document)
    {}

    void PutBlocks(QTextCursor cursor, const std::vector<Block>& blocks);

private:
    void PutParagraph(QTextCursor& cursor, const Paragraph& paragraph);
    void PutRun(QTextCursor& cursor, const Run& run);
    void PutTable(QTextCursor& cursor, const Table& table);
    void PutCell(QTextTable& table, const RichTextGrid::Place& place, const TableCell& cell);
    static void MarkFiller(QTextCursor& cursor);
    Long PoolList(Long list);
    QTextCharFormat CharFormat(const richtext::CharacterFormat& look) const
    {
        return RichTextFormats::CharFormat(look, m_document.Colors());
    }

    RichTextDocument& m_document;
    const RichDocument& m_text;
    RichTextListGroups m_groups;
    std::map<Long, Long> m_lists; // numbers of the text, numbers of the pool
};

/// The toolkit has a paragraph before and after each table; those that the text has not are marked.
void Filler::PutBlocks(QTextCursor cursor, const std::vector<Block>& blocks)
{
    bool unused = true; // the cursor stands in a paragraph that nothing was put into
    for (const Block& block : blocks) {
        if (const Paragraph* paragraph = block.AsParagraph()) {
            if (!unused) cursor.insertBlock();
            PutParagraph(cursor, *paragraph);
            unused = false;
        } else {
            if (unused) MarkFiller(cursor);
            PutTable(cursor, *block.AsTable());
            unused = true;
        }
    }
    if (unused) MarkFiller(cursor);
}

void Filler::MarkFiller(QTextCursor& cursor)
{
    QTextBlockFormat format;
    format.setProperty(RichTextFormats::Filler, true);
    cursor.setBlockFormat(format);
    SetMarkerLook(cursor, QTextCharFormat());
}

Long Filler::PoolList(Long list)
{
    const auto known = m_lists.find(list);
    if (known != m_lists.end()) return known->second;
    if (list < 1 || list > static_cast<Long>(m_text.lists.size())) return 0;
    return m_lists[list] = m_document.Pool().AddList(m_text.lists[static_cast<std::size_t>(list - 1)]);
}

void Filler::PutParagraph(QTextCursor& cursor, const Paragraph& paragraph)
{
    const bool empty = paragraph.runs.empty();
    const Long list = PoolList(paragraph.format.list);
    cursor.setBlockFormat(RichTextFormats::BlockFormat(paragraph.format, m_document.Colors()));
    // A list's marker looks like the text beside it.
    SetMarkerLook(cursor, CharFormat(empty ? paragraph.emptyFormat : paragraph.runs.front().format));
    if (list != 0) m_groups.Put(cursor.block(), list, paragraph.format.level);
    for (const Run& run : paragraph.runs)
        PutRun(cursor, run);
}

void Filler::PutRun(QTextCursor& cursor, const Run& run)
{
    if (run.picture == nullptr) {
        cursor.insertText(Shown(run.text), CharFormat(run.format));
        return;
    }
    QTextImageFormat format;
    format.merge(CharFormat(run.format));
    const QSizeF size = RichTextPictures::ShownSize(*run.picture);
    format.setName(m_document.Pool().AddPicture(run.picture));
    format.setWidth(size.width());
    format.setHeight(size.height());
    cursor.insertImage(format);
}

QTextTableFormat TableFormat(const Table& table, const RichTextGrid& grid)
{
    const bool ruled = std::any_of(table.rows.begin(), table.rows.end(), [](const richtext::TableRow& row) {
        return std::any_of(row.cells.begin(), row.cells.end(), [](const TableCell& cell) {
            return cell.top.style != richtext::BorderStyle::None ||
                   cell.bottom.style != richtext::BorderStyle::None;
        });
    });
    QList<QTextLength> widths;
    for (const Long width : grid.Widths())
        widths << QTextLength(QTextLength::FixedLength, RichTextFormats::Pixels(width));
    QTextTableFormat format;
    format.setColumnWidthConstraints(widths);
    format.setCellSpacing(0);
    format.setCellPadding(RichTextFormats::Pixels(std::clamp(table.rows.front().cellGap, 40, 300)));
    format.setBorderCollapse(true);
    format.setBorder(ruled ? 1 : 0);
    format.setBorderStyle(ruled ? QTextFrameFormat::BorderStyle_Solid : QTextFrameFormat::BorderStyle_None);
    return format;
}

void Filler::PutTable(QTextCursor& cursor, const Table& table)
{
    const RichTextGrid grid(table);
    QTextTableFormat format = TableFormat(table, grid);
    format.setProperty(RichTextFormats::TableId, m_document.Pool().AddTable(table));
    QTextTable* made = cursor.insertTable(grid.Rows(), grid.Columns(), format);
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        for (std::size_t cell = 0; cell < table.rows[row].cells.size(); ++cell) {
            const RichTextGrid::Place& place = grid.At(row, cell);
            if (!place.joined) PutCell(*made, place, table.rows[row].cells[cell]);
        }
    }
    cursor = made->lastCursorPosition();
    cursor.movePosition(QTextCursor::NextCharacter);
}

void Filler::PutCell(QTextTable& table, const RichTextGrid::Place& place, const TableCell& cell)
{
    if (place.rows > 1 || place.columns > 1)
        table.mergeCells(place.row, place.column, place.rows, place.columns);
    QTextTableCell made = table.cellAt(place.row, place.column);
    const QBrush ground = RichTextFormats::Ground(cell.background, m_document.Colors());
    if (ground != Qt::NoBrush) {
        QTextCharFormat format = made.format();
        format.setBackground(ground);
        made.setFormat(format);
    }
    PutBlocks(made.firstCursorPosition(), cell.blocks);
}

} // namespace

void Fill(RichTextDocument& document, const RichDocument& text)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    document.SetDefaultTab(text.defaultTab);
    Filler(document, text).PutBlocks(cursor, text.blocks);
    cursor.endEditBlock();
}

} // namespace platform::RichTextBridge
