#include "platform/richtext/RandomDocument.h"

#include "platform/richtext/RichDocuments.h"

#include <random>

namespace rich {

namespace {

class Maker
{
public:
    explicit Maker(std::uint32_t seed) : m_random(seed) {}

    RichDocument Document();

private:
    Long Number(Long least, Long greatest)
    {
        return least + static_cast<Long>(m_random() % static_cast<std::uint32_t>(greatest - least + 1));
    }
    bool Chance(Long percent) { return Number(1, 100) <= percent; }
    template <class Enum> Enum Any(Enum last)
    {
        return static_cast<Enum>(Number(0, static_cast<Long>(last)));
    }
    template <class T, std::size_t Count> const T& OneOf(const T (&values)[Count])
    {
        return values[static_cast<std::size_t>(Number(0, static_cast<Long>(Count) - 1))];
    }

    Color AnyColor();
    std::string Text();
    CharacterFormat Characters();
    Run AnyPicture();
    std::vector<Run> Runs();
    std::vector<TabStop> Tabs();
    ParagraphFormat Looks();
    void PutIntoList(ParagraphFormat& format);
    RichList List();
    Paragraph AnyParagraph();
    Border AnyBorder();
    TableCell Cell();
    TableRow Row(Long depth);
    Table AnyTable(Long depth);
    std::vector<Block> Blocks(Long count, Long depth);

    std::mt19937 m_random;
    RichDocument m_document;
};

Color Maker::AnyColor()
{
    constexpr std::uint32_t colors[] = {0x000000, 0xFFFFFF, 0xC00000, 0xFFFF00, 0x123456, 0x000001};
    return Chance(50) ? Color() : Color(OneOf(colors));
}

std::string Maker::Text()
{
    static const std::string words[] = {"fire",     " ",  "  ",     "\t",     "\n",         "{", "}",
                                        "\\par",    "é",  "°",      "€100",   "\U0001F525", "“", "”",
                                        "it’s",     "–",  "—",      "1a",     "-5",         "*", ";",
                                        "\\'e9",    "•",  "\u00A0", "\u00AD", "\u200B",     "?", "日本",
                                        "\u0091 x", "ÿ0", "\uFFFD", "\uE0B7", "\uFEFF",     "b", "HYPERLINK"};
    std::string text;
    for (Long count = Number(1, 6); count > 0; --count)
        text += OneOf(words);
    return text;
}

CharacterFormat Maker::Characters()
{
    static const std::string fonts[] = {"Arial",
                                        "Arial",
                                        "Times New Roman",
                                        "Courier New",
                                        "Wingdings",
                                        "Symbol",
                                        "Ärgér",
                                        "MS ゴシック",
                                        "{odd} \\font"};
    static const std::string links[] = {"",
                                        "",
                                        "",
                                        "",
                                        "https://example.org/a?b=%20c",
                                        "mailto:duty@example.org",
                                        "http://example.org/\\ü{}",
                                        "#place"};
    CharacterFormat format;
    if (Chance(40)) return format;
    format.font = OneOf(fonts);
    format.halfPoints = Chance(60) ? 20 : Number(2, 200);
    format.bold = Chance(30);
    format.italic = Chance(30);
    format.strike = Chance(15);
    if (Chance(25)) format.underline = Any(Underline::Thick);
    if (Chance(15)) format.capitals = Any(Capitals::Small);
    if (Chance(15)) format.position = Any(VerticalPosition::Subscript);
    format.color = AnyColor();
    if (Chance(40)) format.background = AnyColor();
    format.href = OneOf(links);
    return format;
}

Run Maker::AnyPicture()
{
    Picture picture;
    picture.kind = OneOf({PictureKind::Png, PictureKind::Jpeg, PictureKind::Emf, PictureKind::Wmf});
    picture.bytes = "none of them"; // to be kept as it is, whatever it is told to be
    for (Long count = Number(0, 8); count > 0; --count)
        picture.bytes += static_cast<char>(Number(0, 255));
    picture.width = Number(0, 99);
    picture.height = Number(0, 99);
    if (Chance(50)) picture.widthGoal = Number(1, 9999);
    if (Chance(50)) picture.heightGoal = Number(1, 9999);
    if (Chance(30)) picture.scaleX = Number(1, 300);
    CharacterFormat format;
    format.href = Characters().href;
    return PictureRun(picture, format);
}

std::vector<Run> Maker::Runs()
{
    Paragraph paragraph;
    for (Long count = Number(0, 6); count > 0; --count) {
        if (Chance(8)) {
            paragraph.runs.push_back(AnyPicture());
        } else {
            AppendText(paragraph, Text(), Characters());
        }
    }
    return paragraph.runs;
}

std::vector<TabStop> Maker::Tabs()
{
    std::vector<TabStop> tabs;
    for (Long position = Number(0, 3000); position < 9000 && Chance(60); position += Number(1, 3000)) {
        TabStop tab{position, Any(TabKind::Bar), TabLeader::None};
        if (tab.kind != TabKind::Bar) tab.leader = Any(TabLeader::Equals);
        tabs.push_back(tab);
    }
    return tabs;
}

RichList Maker::List()
{
    RichList list;
    for (Long place = 0, count = Number(1, maxListLevels); place < count; ++place) {
        list.levels.push_back(Chance(50) ? Bullets(place, OneOf({"•", "◦", "▪", "–", ";", "\U0001F525"}))
                                         : Numbers(place, Any(NumberStyle::LowerLetter), Number(0, 9)));
        if (list.levels.back().kind == ListKind::Number && Chance(30)) {
            list.levels.back().textBefore = OneOf({"(", "§ ", "a;b {"});
            list.levels.back().textAfter = OneOf({")", "", ".;"});
        }
    }
    return list;
}

/// A list is made when it is first used, so lists stand in the order of their use.
void Maker::PutIntoList(ParagraphFormat& format)
{
    const auto lists = static_cast<Long>(m_document.lists.size());
    format.list = lists > 0 && Chance(70) ? Number(1, lists) : lists + 1;
    if (format.list > lists) m_document.lists.push_back(List());
    const auto levels = m_document.lists[static_cast<std::size_t>(format.list - 1)].levels.size();
    format.level = Number(0, static_cast<Long>(levels) - 1);
    if (Chance(70)) {
        format.indentLeft = 360 * (format.level + 1);
        format.indentFirst = -360;
    }
    std::erase(format.tabs, TabStop{format.indentLeft});
}

ParagraphFormat Maker::Looks()
{
    ParagraphFormat format;
    if (Chance(30)) format.alignment = Any(Alignment::Justify);
    if (Chance(30)) format.indentLeft = Number(-500, 3000);
    if (Chance(30)) format.indentFirst = Number(-500, 500);
    if (Chance(20)) format.indentRight = Number(0, 900);
    if (Chance(20)) format.spaceBefore = Number(0, 400);
    if (Chance(20)) format.spaceAfter = Number(0, 400);
    if (Chance(20)) format.lineSpacing = {Any(LineSpacingRule::Exactly), Number(1, 720)};
    if (Chance(20)) format.tabs = Tabs();
    if (Chance(10)) format.background = AnyColor();
    format.keepTogether = Chance(5);
    format.keepWithNext = Chance(5);
    format.pageBreakBefore = Chance(5);
    if (Chance(30)) PutIntoList(format);
    return format;
}

Paragraph Maker::AnyParagraph()
{
    Paragraph paragraph = ParagraphOf(Runs());
    paragraph.format = Looks();
    if (!paragraph.runs.empty()) return paragraph;
    paragraph.emptyFormat = Characters();
    paragraph.emptyFormat.href.clear();
    return paragraph;
}

Border Maker::AnyBorder()
{
    if (Chance(50)) return {};
    return {static_cast<BorderStyle>(Number(1, static_cast<Long>(BorderStyle::Thick))),
            Number(0, 255),
            AnyColor()};
}

TableCell Maker::Cell()
{
    TableCell cell;
    cell.width = Number(1, 4000);
    cell.alignment = Any(CellAlignment::Bottom);
    cell.top = AnyBorder();
    cell.left = AnyBorder();
    cell.bottom = AnyBorder();
    cell.right = AnyBorder();
    if (Chance(20)) cell.background = AnyColor();
    return cell;
}

TableRow Maker::Row(Long depth)
{
    TableRow row;
    for (Long count = Number(1, 4); count > 0; --count)
        row.cells.push_back(Cell());
    if (row.cells.size() > 2 && Chance(40)) {
        row.cells[0].mergeAcross = CellMerge::First;
        row.cells[1].mergeAcross = CellMerge::Continued;
    }
    for (TableCell& cell : row.cells) {
        const bool isFree = cell.mergeAcross != CellMerge::Continued;
        cell.blocks = isFree ? Blocks(Number(0, 2), depth) : std::vector<Block>{Block{Paragraph{}}};
    }
    row.left = Number(-200, 200);
    row.cellGap = Number(0, 100);
    if (Chance(20)) row.height = Number(-600, 600);
    if (Chance(20)) row.alignment = Any(Alignment::Right);
    row.keepTogether = Chance(10);
    return row;
}

Table Maker::AnyTable(Long depth)
{
    Table table;
    for (Long count = Number(1, 3); count > 0; --count)
        table.rows.push_back(Row(depth));
    table.rows.front().heading = Chance(20);
    return table;
}

/// Blocks that end in a paragraph, no table touching another.
std::vector<Block> Maker::Blocks(Long count, Long depth)
{
    std::vector<Block> blocks;
    for (; count > 0; --count) {
        const bool behindTable = !blocks.empty() && blocks.back().AsTable() != nullptr;
        if (depth < 4 && !behindTable && Chance(15)) {
            blocks.push_back(Block{AnyTable(depth + 1)});
        } else {
            blocks.push_back(Block{AnyParagraph()});
        }
    }
    blocks.push_back(Block{AnyParagraph()});
    return blocks;
}

RichDocument Maker::Document()
{
    m_document.blocks = Blocks(Number(0, 12), 0);
    if (Chance(20)) m_document.defaultTab = Number(1, 3000);
    return m_document;
}

} // namespace

RichDocument RandomDocument(std::uint32_t seed) { return Maker(seed).Document(); }

} // namespace rich
