#include "platform/widgets/RichTextBridge.h"

#include "platform/widgets/RichTextGrid.h"

#include <QTextBlock>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <map>

namespace platform::RichTextBridge {

namespace {

using richtext::Block;
using richtext::CellMerge;
using richtext::CharacterFormat;
using richtext::ListKind;
using richtext::NumberStyle;
using richtext::Paragraph;
using richtext::ParagraphFormat;
using richtext::RichDocument;
using richtext::RichList;
using richtext::Table;
using richtext::TableCell;

constexpr Long kForeignTableWidth = 9000; // twips, shared by the columns of a table whose widths are unknown
constexpr Long kForeignCellGap = 70;

/// The text as it is kept: line breaks as U+000A, no other control sign but tabs.
std::string Kept(QString text)
{
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    text.remove(QChar::ObjectReplacementCharacter);
    text.removeIf([](QChar sign) {
        const char16_t code = sign.unicode();
        return (code < 0x20 && code != u'\t' && code != u'\n') || code == 0x7F;
    });
    return text.toStdString();
}

/// Walks through a document and writes down what stands there.
class Walker
{
public:
    Walker() = default;
    virtual ~Walker() = default;
    Walker(const Walker&) = delete;
    Walker& operator=(const Walker&) = delete;

    RichDocument Walk(const QTextDocument& document);

protected:
    std::vector<Block> Blocks(QTextFrame::iterator from);
    Paragraph ParagraphOf(const QTextBlock& block);
    Table GridOf(QTextTable& table);
    TableCell CellOf(QTextTable& table, int row, int column, Long width);
    /// The number in the text of a list known by its key, added at its first use.
    Long ListNumber(quintptr key, const RichList& list);

    virtual CharacterFormat CharacterLook(const QTextCharFormat& format) const = 0;
    virtual ParagraphFormat ParagraphLook(const QTextBlock& block) = 0;
    virtual Table TableOf(QTextTable& table) = 0;
    virtual std::shared_ptr<const richtext::Picture> PictureOf(const QString& name) const = 0;

private:
    void AddFragment(Paragraph& paragraph, const QTextFragment& fragment);

    RichDocument m_text;
    std::map<quintptr, Long> m_lists;
};

RichDocument Walker::Walk(const QTextDocument& document)
{
    m_text.blocks = Blocks(document.rootFrame()->begin());
    return std::move(m_text);
}

std::vector<Block> Walker::Blocks(QTextFrame::iterator from)
{
    std::vector<Block> blocks;
    for (; !from.atEnd(); ++from) {
        if (auto* table = qobject_cast<QTextTable*>(from.currentFrame())) {
            blocks.emplace_back().content.emplace<Table>(TableOf(*table));
        } else if (QTextFrame* frame = from.currentFrame()) {
            for (Block& block : Blocks(frame->begin()))
                blocks.push_back(std::move(block));
        } else {
            const QTextBlock block = from.currentBlock();
            const bool filler = block.blockFormat().boolProperty(RichTextFormats::Filler);
            if (!filler || block.length() > 1)
                blocks.emplace_back().content.emplace<Paragraph>(ParagraphOf(block));
        }
    }
    if (blocks.empty()) blocks.emplace_back();
    return blocks;
}

Paragraph Walker::ParagraphOf(const QTextBlock& block)
{
    Paragraph paragraph;
    paragraph.format = ParagraphLook(block);
    for (auto at = block.begin(); !at.atEnd(); ++at)
        AddFragment(paragraph, at.fragment());
    if (paragraph.runs.empty()) paragraph.emptyFormat = CharacterLook(block.charFormat());
    return paragraph;
}

void Walker::AddFragment(Paragraph& paragraph, const QTextFragment& fragment)
{
    const QTextCharFormat format = fragment.charFormat();
    if (!format.isImageFormat()) {
        const std::string text = Kept(fragment.text());
        if (!text.empty()) richtext::AppendText(paragraph, text, CharacterLook(format));
        return;
    }
    const auto picture = PictureOf(format.toImageFormat().name());
    // Equal pictures side by side are one fragment.
    for (int i = 0; picture != nullptr && i < fragment.length(); ++i)
        paragraph.runs.push_back({CharacterLook(format), {}, picture});
}

Long Walker::ListNumber(quintptr key, const RichList& list)
{
    const auto known = m_lists.find(key);
    if (known != m_lists.end()) return known->second;
    m_text.lists.push_back(list);
    return m_lists[key] = static_cast<Long>(m_text.lists.size());
}

TableCell Walker::CellOf(QTextTable& table, int row, int column, Long width)
{
    const QTextTableCell from = table.cellAt(row, column);
    TableCell cell;
    cell.width = width;
    const auto merge = [](int span, int at, int first) {
        if (span < 2) return CellMerge::None;
        return at == first ? CellMerge::First : CellMerge::Continued;
    };
    cell.mergeAcross = merge(from.columnSpan(), column, from.column());
    cell.mergeDown = merge(from.rowSpan(), row, from.row());
    const richtext::Border rule{richtext::BorderStyle::Single, 10, {}};
    if (table.format().border() > 0) cell.top = cell.left = cell.bottom = cell.right = rule;
    const bool first = row == from.row() && column == from.column();
    cell.blocks = first ? Blocks(from.begin()) : std::vector<Block>(1);
    if (cell.blocks.back().AsTable() != nullptr) cell.blocks.emplace_back();
    return cell;
}

/// A table of which no more is known than its grid.
Table Walker::GridOf(QTextTable& table)
{
    const int columns = std::min(table.columns(), static_cast<int>(richtext::maxColumns));
    Table made;
    for (int row = 0; row < table.rows(); ++row) {
        richtext::TableRow& line = made.rows.emplace_back();
        line.cellGap = kForeignCellGap;
        for (int column = 0; column < columns; ++column)
            line.cells.push_back(CellOf(table, row, column, kForeignTableWidth / columns));
    }
    return made;
}

class OwnWalker : public Walker
{
public:
    explicit OwnWalker(const RichTextPool& pool) : m_pool(pool) {}

private:
    CharacterFormat CharacterLook(const QTextCharFormat& format) const override
    {
        return RichTextFormats::LookOf(format);
    }
    ParagraphFormat ParagraphLook(const QTextBlock& block) override;
    Table TableOf(QTextTable& table) override;
    std::shared_ptr<const richtext::Picture> PictureOf(const QString& name) const override
    {
        return m_pool.Picture(name);
    }

    const RichTextPool& m_pool;
};

ParagraphFormat OwnWalker::ParagraphLook(const QTextBlock& block)
{
    ParagraphFormat look = RichTextFormats::LookOf(block.blockFormat());
    const Long id = RichTextDocument::ListOf(block);
    const RichList* list = m_pool.List(id);
    if (list == nullptr) return look;
    look.list = ListNumber(static_cast<quintptr>(id), *list);
    look.level = RichTextDocument::LevelOf(block);
    return look;
}

/// The table as it was read, with the texts that its cells have now. A table that lost rows or columns is one
/// of a plain grid.
Table OwnWalker::TableOf(QTextTable& table)
{
    const Table* frame = m_pool.Table(table.format().intProperty(RichTextFormats::TableId));
    if (frame == nullptr) return GridOf(table);
    const RichTextGrid grid(*frame);
    if (grid.Rows() != table.rows() || grid.Columns() != table.columns()) return GridOf(table);
    Table made = *frame;
    for (std::size_t row = 0; row < made.rows.size(); ++row) {
        for (std::size_t cell = 0; cell < made.rows[row].cells.size(); ++cell) {
            const RichTextGrid::Place& place = grid.At(row, cell);
            if (place.joined) continue;
            auto& blocks = made.rows[row].cells[cell].blocks;
            blocks = Blocks(table.cellAt(place.row, place.column).begin());
            if (blocks.back().AsTable() != nullptr) blocks.emplace_back();
        }
    }
    return made;
}

class ForeignWalker : public Walker
{
    CharacterFormat CharacterLook(const QTextCharFormat& format) const override
    {
        return RichTextFormats::ForeignLookOf(format);
    }
    ParagraphFormat ParagraphLook(const QTextBlock& block) override;
    Table TableOf(QTextTable& table) override { return GridOf(table); }
    std::shared_ptr<const richtext::Picture> PictureOf(const QString&) const override { return nullptr; }
};

bool IsNumbered(QTextListFormat::Style style)
{
    return style <= QTextListFormat::ListDecimal && style >= QTextListFormat::ListUpperRoman;
}

/// Alignment and lists are kept; a page's margins are its own affair.
ParagraphFormat ForeignWalker::ParagraphLook(const QTextBlock& block)
{
    ParagraphFormat look;
    look.alignment = RichTextFormats::LookOf(block.blockFormat()).alignment;
    const QTextList* list = block.textList();
    if (list == nullptr) return look;
    const bool numbered = IsNumbered(list->format().style());
    const RichList kind = numbered ? richtext::NumberList() : richtext::BulletList();
    look.level = std::clamp(list->format().indent() - 1, 0, static_cast<int>(kind.levels.size()) - 1);
    look.list = ListNumber(reinterpret_cast<quintptr>(list), kind);
    const richtext::ListLevel& level = kind.levels[static_cast<std::size_t>(look.level)];
    look.indentLeft = level.indentLeft;
    look.indentFirst = level.indentFirst;
    return look;
}

} // namespace

RichDocument TextOf(const RichTextDocument& document)
{
    RichDocument text = OwnWalker(document.Pool()).Walk(document);
    text.defaultTab = document.DefaultTab();
    return text;
}

RichDocument ForeignTextOf(const QTextDocument& page) { return ForeignWalker().Walk(page); }

} // namespace platform::RichTextBridge
