#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/widgets/RichTextBridge.h"
#include "platform/widgets/Theme.h"
#include "support/TempFolder.h"

#include <QTextBlock>
#include <QTextList>
#include <QTextTable>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

using namespace platform::richtext;
using platform::RichTextDocument;
using platform::RichTextPool;

namespace {

platform::RichTextFormats::Colors Light()
{
    return platform::RichTextFormats::ColorsOf(QPalette(Qt::lightGray));
}

std::unique_ptr<RichTextDocument> Shown(const RichDocument& text)
{
    auto document = std::make_unique<RichTextDocument>(std::make_shared<RichTextPool>(), Light(), nullptr);
    platform::RichTextBridge::Fill(*document, text);
    return document;
}

RichDocument Back(const RichDocument& text) { return platform::RichTextBridge::TextOf(*Shown(text)); }

Paragraph Line(const std::string& text, const CharacterFormat& format = {})
{
    Paragraph paragraph;
    if (text.empty()) {
        paragraph.emptyFormat = format;
    } else {
        AppendText(paragraph, text, format);
    }
    return paragraph;
}

void Add(std::vector<Block>& blocks, Paragraph paragraph)
{
    blocks.emplace_back().content.emplace<Paragraph>(std::move(paragraph));
}

RichDocument Of(std::vector<Paragraph> paragraphs)
{
    RichDocument text;
    for (Paragraph& paragraph : paragraphs)
        Add(text.blocks, std::move(paragraph));
    return text;
}

Paragraph Item(const std::string& text, Long list, Long level)
{
    Paragraph paragraph = Line(text);
    paragraph.format.list = list;
    paragraph.format.level = level;
    paragraph.format.indentLeft = 360 * (level + 1);
    paragraph.format.indentFirst = -360;
    return paragraph;
}

/// The marker that a paragraph shows, empty for a bullet.
std::string Marker(const RichTextDocument& document, int block)
{
    const QTextBlock at = document.findBlockByNumber(block);
    return at.textList() == nullptr ? "none" : at.textList()->itemText(at).toStdString();
}

using CharacterChange = std::function<void(CharacterFormat&)>;

TEST(RichTextBridge, EveryLookOfCharacters_ComesBackEqual)
{
    const std::vector<std::pair<const char*, CharacterChange>> cases = {
        {"font", [](auto& f) { f.font = "Times New Roman"; }},
        {"font not there", [](auto& f) { f.font = "No Such Family"; }},
        {"size", [](auto& f) { f.halfPoints = 25; }},
        {"bold", [](auto& f) { f.bold = true; }},
        {"italic", [](auto& f) { f.italic = true; }},
        {"strike", [](auto& f) { f.strike = true; }},
        {"double underline", [](auto& f) { f.underline = Underline::Double; }},
        {"words", [](auto& f) { f.underline = Underline::Words; }},
        {"wave", [](auto& f) { f.underline = Underline::Wave; }},
        {"capitals", [](auto& f) { f.capitals = Capitals::All; }},
        {"small capitals", [](auto& f) { f.capitals = Capitals::Small; }},
        {"super", [](auto& f) { f.position = VerticalPosition::Superscript; }},
        {"sub", [](auto& f) { f.position = VerticalPosition::Subscript; }},
        {"black", [](auto& f) { f.color = 0x000000; }},
        {"white", [](auto& f) { f.color = 0xFFFFFF; }},
        {"ground", [](auto& f) { f.background = 0xFFFF00; }},
        {"link", [](auto& f) { f.href = "https://example.org/a?b=c"; }},
        {"link underlined in blue", [](auto& f) {
             f.href = "mailto:a@example.org";
             f.underline = Underline::Single;
             f.color = 0x0000FF;
         }}};
    for (const auto& [name, change] : cases) {
        CharacterFormat look;
        change(look);
        Paragraph mixed = Line("plain ");
        AppendText(mixed, "changed", look);
        AppendText(mixed, " plain", {});
        const RichDocument text = Of({mixed, Line("", look)});
        EXPECT_EQ(Back(text), text) << name;
    }
}

TEST(RichTextBridge, EveryLookOfParagraphs_ComesBackEqual)
{
    const std::vector<std::pair<const char*, std::function<void(ParagraphFormat&)>>> cases = {
        {"center", [](auto& f) { f.alignment = Alignment::Center; }},
        {"right", [](auto& f) { f.alignment = Alignment::Right; }},
        {"justify", [](auto& f) { f.alignment = Alignment::Justify; }},
        {"indents of odd twips",
         [](auto& f) {
             f.indentLeft = 721;
             f.indentFirst = -359;
             f.indentRight = 1;
         }},
        {"outdent", [](auto& f) { f.indentLeft = -100; }},
        {"spaces",
         [](auto& f) {
             f.spaceBefore = 121;
             f.spaceAfter = 59;
         }},
        {"one and a half",
         [](auto& f) {
             f.lineSpacing = {LineSpacingRule::Multiple, 360};
         }},
        {"odd part of a line",
         [](auto& f) {
             f.lineSpacing = {LineSpacingRule::Multiple, 259};
         }},
        {"at least",
         [](auto& f) {
             f.lineSpacing = {LineSpacingRule::AtLeast, 301};
         }},
        {"exactly",
         [](auto& f) {
             f.lineSpacing = {LineSpacingRule::Exactly, 239};
         }},
        {"tabs",
         [](auto& f) {
             f.tabs = {{333, TabKind::Left, {}},
                       {1440, TabKind::Right, TabLeader::Dots},
                       {2000, TabKind::Decimal, {}},
                       {3000, TabKind::Bar, {}},
                       {4000, TabKind::Center, TabLeader::Underline}};
         }},
        {"ground", [](auto& f) { f.background = 0x202020; }},
        {"kept together",
         [](auto& f) {
             f.keepTogether = true;
             f.keepWithNext = true;
         }},
        {"new page", [](auto& f) { f.pageBreakBefore = true; }}};
    for (const auto& [name, change] : cases) {
        Paragraph paragraph = Line("text");
        change(paragraph.format);
        const RichDocument text = Of({Line("before"), paragraph, Line("after")});
        EXPECT_EQ(Back(text), text) << name;
    }
}

TEST(RichTextBridge, SignsOfAllKinds_ComeBackEqual)
{
    const RichDocument text =
        Of({Line("tab\tbreak\nslash \\ {brace} caf\u00e9 \u20ac \u00a0 \U0001F600"), Line("")});
    EXPECT_EQ(Back(text), text);
}

TEST(RichTextBridge, EmptyText_OneEmptyParagraph)
{
    RichDocument text;
    text.blocks.emplace_back();
    EXPECT_EQ(Back(text), text);
    EXPECT_EQ(Shown(text)->blockCount(), 1);
}

TEST(RichTextBridge, StandingTabs_ComeBackEqual)
{
    RichDocument text = Of({Line("a\tb")});
    text.defaultTab = 567;
    EXPECT_EQ(Back(text), text);
}

TEST(RichTextBridge, Lists_CountThroughTheTextAndAnewBelow)
{
    RichDocument text = Of({Item("one", 1, 0),
                            Item("a", 1, 1),
                            Item("b", 1, 1),
                            Line("between"),
                            Item("two", 1, 0),
                            Item("a again", 1, 1),
                            Item("bullet", 2, 0),
                            Item("three", 1, 0)});
    text.lists = {NumberList(), BulletList()};
    const auto document = Shown(text);
    EXPECT_EQ(Marker(*document, 0), "1.");
    EXPECT_EQ(Marker(*document, 1), "a.");
    EXPECT_EQ(Marker(*document, 2), "b.");
    EXPECT_EQ(Marker(*document, 3), "none");
    EXPECT_EQ(Marker(*document, 4), "2.");
    EXPECT_EQ(Marker(*document, 5), "a.");
    EXPECT_EQ(Marker(*document, 7), "3.");
    EXPECT_EQ(platform::RichTextBridge::TextOf(*document), text);
}

TEST(RichTextBridge, ListItem_TextStartsAtItsLeftIndent)
{
    RichDocument text = Of({Item("one", 1, 0)});
    text.lists = {BulletList()};
    const QTextBlockFormat format = Shown(text)->firstBlock().blockFormat();
    EXPECT_EQ(format.leftMargin(), platform::RichTextFormats::Pixels(360));
    EXPECT_EQ(format.textIndent(), 0.0);
}

TableRow Row(const std::vector<Long>& widths, const std::string& name)
{
    TableRow row;
    for (const Long width : widths) {
        TableCell& cell = row.cells.emplace_back();
        cell.width = width;
        Add(cell.blocks, Line(name + std::to_string(row.cells.size())));
    }
    return row;
}

RichDocument WithTable(const Table& table, bool before, bool after)
{
    RichDocument text;
    if (before) Add(text.blocks, Line("before"));
    text.blocks.emplace_back().content.emplace<Table>(table);
    if (after) Add(text.blocks, Line("after"));
    return text;
}

TEST(RichTextBridge, Tables_ComeBackEqualWhereverTheyStand)
{
    Table table;
    table.rows = {Row({1000, 2000, 1500}, "a"), Row({3000, 1500}, "b"), Row({500}, "c")};
    table.rows[0].cells[0].top = {BorderStyle::Double, 30, 0xFF0000};
    table.rows[0].heading = true;
    table.rows[1].left = -108;
    table.rows[1].cells[1].background = 0xE0E0E0;
    for (const bool before : {false, true}) {
        for (const bool after : {false, true}) {
            const RichDocument text = WithTable(table, before, after);
            EXPECT_EQ(Back(text), text) << before << after;
        }
    }
}

TEST(RichTextBridge, TwoTablesInARow_NoParagraphBetween)
{
    Table table;
    table.rows = {Row({1000, 2000}, "a")};
    RichDocument text = WithTable(table, false, false);
    text.blocks.emplace_back().content.emplace<Table>(table);
    EXPECT_EQ(Back(text), text);
}

TEST(RichTextBridge, JoinedCells_ComeBackEqual)
{
    Table table;
    table.rows = {Row({1000, 1000, 1000}, "a"), Row({1000, 1000, 1000}, "b"), Row({1000, 1000, 1000}, "c")};
    const auto empty = [&](std::size_t row, std::size_t cell) {
        table.rows[row].cells[cell].blocks = std::vector<Block>(1);
        return &table.rows[row].cells[cell];
    };
    table.rows[0].cells[0].mergeAcross = CellMerge::First;
    empty(0, 1)->mergeAcross = CellMerge::Continued;
    table.rows[0].cells[2].mergeDown = CellMerge::First;
    empty(1, 2)->mergeDown = CellMerge::Continued;
    empty(2, 2)->mergeDown = CellMerge::Continued;
    const RichDocument text = WithTable(table, true, true);
    EXPECT_EQ(Back(text), text);
    const auto document = Shown(text);
    const auto* shown = qobject_cast<QTextTable*>(document->rootFrame()->childFrames().first());
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->cellAt(0, 0).columnSpan(), 2);
    EXPECT_EQ(shown->cellAt(0, 2).rowSpan(), 3);
}

TEST(RichTextBridge, NestedTableAndListInACell_ComeBackEqual)
{
    Table inner;
    inner.rows = {Row({500, 500}, "inner")};
    Table table;
    table.rows = {Row({3000, 3000}, "a")};
    auto& blocks = table.rows[0].cells[1].blocks;
    blocks.emplace_back().content.emplace<Table>(inner);
    Add(blocks, Item("item", 1, 0));
    RichDocument text = WithTable(table, true, true);
    text.lists = {BulletList()};
    EXPECT_EQ(Back(text), text);
}

TEST(RichTextBridge, PicturesOfAllKinds_BytesKept)
{
    const auto picture = [](PictureKind kind, const std::string& bytes) {
        Picture made;
        made.kind = kind;
        made.bytes = bytes;
        made.width = 10;
        made.height = 20;
        made.widthGoal = 301;
        made.heightGoal = 299;
        made.scaleX = 57;
        return std::make_shared<const Picture>(made);
    };
    Paragraph paragraph = Line("before ");
    for (const PictureKind kind : {PictureKind::Png,
                                   PictureKind::Jpeg,
                                   PictureKind::Bmp,
                                   PictureKind::Wmf,
                                   PictureKind::Emf,
                                   PictureKind::Pict})
        paragraph.runs.push_back({{}, {}, picture(kind, "broken")});
    const auto twice = picture(PictureKind::Png, "same");
    paragraph.runs.push_back({{}, {}, twice});
    paragraph.runs.push_back({{}, {}, twice});
    AppendText(paragraph, " after", {});
    const RichDocument text = Of({paragraph});
    EXPECT_EQ(Back(text), text);
}

/// Real documents of many writers: what the reader made of them comes through the editor's document.
TEST(RichTextBridge, DocumentsOfManyWriters_ComeBackEqual)
{
    int documents = 0;
    for (const auto& entry : std::filesystem::directory_iterator(support::DataFile("rtf"))) {
        if (entry.path().extension() != ".rtf") continue;
        ++documents;
        const std::string stored = WriteRtf(ReadRtf(support::ReadFile(entry.path().string()), Source::Bytes));
        const RichDocument text = ReadRtf(stored);
        EXPECT_EQ(WriteRtf(Back(text)), stored) << entry.path().filename();
    }
    EXPECT_GT(documents, 5);
}

TEST(RichTextBridge, DarkSheet_EveryColourCanBeReadAndIsKept)
{
    const auto colors = platform::RichTextFormats::ColorsOf(platform::Theme::DarkPalette());
    for (const std::uint32_t color : {0x000000u, 0x0000FFu, 0xA80000u, 0x606060u, 0xFFFFFFu}) {
        CharacterFormat look;
        look.color = color;
        const QTextCharFormat format = platform::RichTextFormats::CharFormat(look, colors);
        EXPECT_GE(platform::Theme::Contrast(format.foreground().color(), colors.sheet), 4.5) << color;
        EXPECT_EQ(platform::RichTextFormats::LookOf(format), look) << color;
    }
}

TEST(RichTextBridge, AutomaticTextOnAGround_CanBeRead)
{
    const auto colors = platform::RichTextFormats::ColorsOf(platform::Theme::DarkPalette());
    CharacterFormat look;
    look.background = 0xFFFF00;
    const QTextCharFormat format = platform::RichTextFormats::CharFormat(look, colors);
    EXPECT_GE(platform::Theme::Contrast(format.foreground().color(), QColor(0xFF, 0xFF, 0x00)), 4.5);
    EXPECT_EQ(platform::RichTextFormats::LookOf(format), look);
}

} // namespace
