#include "RichDocuments.h"
#include "platform/base/Errors.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/richtext/TXTextControl.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using namespace rich;

constexpr Long atEnd = TXTextControl::endOfText, formatRtf = TXTextControl::formatRtf;

RichDocument DocumentIn(const TXTextControl& control) { return ReadRtf(control.SaveToMemory(formatRtf)); }

std::vector<const Table*> TablesOf(const RichDocument& document)
{
    std::vector<const Table*> tables;
    for (const Block& block : document.blocks) {
        if (const Table* table = block.AsTable()) tables.push_back(table);
    }
    return tables;
}

const std::string kList =
    "{\\rtf1{\\*\\listtable{\\list\\listtemplateid1{\\listlevel\\levelnfc0{\\leveltext\\'02"
    "\\'00.;}{\\levelnumbers\\'01;}}\\listid1}}{\\*\\listoverridetable{\\listoverride"
    "\\listid1\\ls1}}\\pard\\ls1 One\\par\\pard\\ls1 Two\\par }";

TEST(TXTextControl, New_IsOneEmptyParagraph)
{
    TXTextControl control;
    EXPECT_EQ(control.Text(), "");
    EXPECT_EQ(control.SaveToMemory(formatRtf), WriteRtf(RichDocument()));
    control.SetSelStart(atEnd);
    EXPECT_EQ(control.SelStart(), 0);
}

TEST(TXTextControl, Text_ClearsTheDocumentAndItsTables)
{
    TXTextControl control;
    const Integer table = control.TableInsert(1, 1, atEnd);
    control.SetTableCellText(table, 1, 1, "x");
    control.SetText("");
    EXPECT_EQ(control.Text(), "");
    EXPECT_EQ(control.TableCellText(table, 1, 1), "");
    EXPECT_EQ(control.TableCellStart(table, 1, 1), 0);
}

TEST(TXTextControl, Formats_OtherThanRichTextAreUnknown)
{
    TXTextControl control;
    control.LoadFromMemory("{\\rtf1 kept\\par }", formatRtf);
    control.LoadFromMemory("{\\rtf1 other\\par }", 3);
    EXPECT_EQ(control.Text(), "kept");
    EXPECT_EQ(control.SaveToMemory(3), "");
    control.LoadFromMemory("typed {\\b}", formatRtf); // no rich text: as typed
    EXPECT_EQ(control.Text(), "typed {\\b}");
}

TEST(TXTextControl, Selection_StaysWithinTheText)
{
    TXTextControl control;
    control.SetText("abc\r\nd");
    control.SetSelStart(atEnd);
    EXPECT_EQ(control.SelStart(), 5);
    control.SetSelStart(99);
    EXPECT_EQ(control.SelStart(), 5);
    control.SetSelStart(1);
    control.SetSelLength(99);
    EXPECT_EQ(control.SelLength(), 4);
    EXPECT_EQ(control.SelText(), "bc\nd");
    control.SetSelStart(2);
    EXPECT_EQ(control.SelLength(), 0);
}

TEST(TXTextControl, SelText_LineEndsEndParagraphs)
{
    TXTextControl control;
    control.SetSelText("a{\\b}");
    control.SetSelStart(atEnd);
    control.SetSelText("\r\n\r\n");
    control.SetSelText("b");
    EXPECT_EQ(control.Text(), "a{\\b}\n\nb");
    control.SetSelStart(0);
    control.SetSelLength(1);
    control.SetSelText("");
    EXPECT_EQ(control.Text(), "{\\b}\n\nb");
}

TEST(TXTextControl, SelText_TakesTheLookInForce)
{
    TXTextControl control;
    control.LoadFromMemory("{\\rtf1\\pard\\qc\\b ab\\par }", formatRtf);
    control.SetSelStart(1);
    control.SetSelText("X\r\nY");
    const RichDocument document = DocumentIn(control);
    ASSERT_EQ(document.blocks.size(), 2u);
    for (const Block& block : document.blocks) {
        EXPECT_EQ(block.AsParagraph()->format.alignment, Alignment::Center);
        EXPECT_EQ(block.AsParagraph()->runs.size(), 1u);
        EXPECT_TRUE(block.AsParagraph()->runs.front().format.bold);
    }
}

TEST(TXTextControl, RTFSelText_OfAllIsTheBodyAsStored)
{
    TXTextControl control;
    control.LoadFromMemory(kList, formatRtf);
    control.SetSelStart(0);
    control.SetSelLength(static_cast<Long>(kList.size()));
    EXPECT_EQ(control.RTFSelText(), WriteRtf(ReadRtf(kList)));
}

TEST(TXTextControl, RTFSelText_ListsAreNotJoined)
{
    TXTextControl control;
    for (int i = 0; i < 2; ++i) {
        control.SetSelStart(atEnd);
        control.SetRTFSelText(kList);
        control.SetSelText("\r\n");
    }
    const RichDocument document = DocumentIn(control);
    EXPECT_EQ(document.lists.size(), 2u);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(document.blocks[i].AsParagraph()->format.list, i < 2 ? 1 : 2) << i;
}

TEST(TXTextControl, RTFSelText_IntoACell_KeepsListsTablesAndPictures)
{
    RichDocument body = ReadRtf(kList);
    Table inner;
    inner.rows.push_back({{CellOf(2000, {Line("inner")})}, 0, 0, 0, Alignment::Left, false, false});
    body.blocks.push_back({inner});
    Picture picture;
    picture.bytes = "not sound, but kept";
    picture.width = picture.height = 7;
    body.blocks.push_back({ParagraphOf({PictureRun(picture)})});
    TXTextControl control;
    const Integer table = control.TableInsert(2, 2, atEnd);
    control.SetTableCellText(table, 2, 1, "###");
    control.Find("###", 0, TXTextControl::findQuietly);
    control.SetRTFSelText(WriteRtf(body));
    const RichDocument document = DocumentIn(control);
    const TableCell& cell = TablesOf(document).at(0)->rows.at(1).cells.at(0);
    EXPECT_EQ(cell.blocks, ReadRtf(WriteRtf(body)).blocks);
    EXPECT_EQ(document.lists.size(), 1u);
    EXPECT_EQ(control.TableCellText(table, 2, 1), "One\nTwo\ninner\n");
    EXPECT_EQ(control.TableCellText(table, 2, 2), "");
}

TEST(TXTextControl, TableInsert_AtTheEnd_LeavesALineBehindAndTellsNewIds)
{
    TXTextControl control;
    control.SetTextWidth(10466);
    const Integer first = control.TableInsert(2, 1, atEnd);
    control.SetSelStart(atEnd);
    control.SetSelText("\r\n");
    const Integer second = control.TableInsert(2, 3, atEnd);
    control.SetSelStart(atEnd);
    control.SetSelText("\r\n");
    const Integer third = control.TableInsert(4, 6, atEnd);
    EXPECT_NE(first, 0);
    EXPECT_NE(first, second);
    EXPECT_NE(second, third);
    const RichDocument document = DocumentIn(control);
    ASSERT_EQ(document.blocks.size(), 6u); // each table and a line
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(document.blocks[i].AsTable() != nullptr, i % 2 == 0) << i;
    for (const Table* table : TablesOf(document)) {
        for (const TableRow& row : table->rows) {
            Long width = 0;
            for (const TableCell& cell : row.cells)
                width += cell.width;
            EXPECT_EQ(width, 10466);
            EXPECT_EQ(row.left, 0);
            EXPECT_TRUE(row.keepTogether);
        }
    }
    EXPECT_EQ(TablesOf(document)[2]->rows.size(), 4u);
    EXPECT_EQ(TablesOf(document)[2]->rows[3].cells.size(), 6u);
}

TEST(TXTextControl, TableInsert_WithinText_PartsIt)
{
    TXTextControl control;
    control.SetText("abcd");
    const Integer table = control.TableInsert(1, 1, 2);
    control.SetTableCellText(table, 1, 1, "T");
    EXPECT_EQ(control.Text(), "ab\nT\ncd");
    const Integer before = control.TableInsert(1, 1, 0);
    control.SetTableCellText(before, 1, 1, "S");
    EXPECT_EQ(control.Text(), "S\nab\nT\ncd");
    // Within the first table is behind it; the two do not become one.
    const Integer behind = control.TableInsert(1, 1, 1);
    control.SetTableCellText(behind, 1, 1, "U");
    EXPECT_EQ(control.Text(), "S\n\nU\nab\nT\ncd");
    EXPECT_EQ(control.TableCellText(table, 1, 1), "T");
    EXPECT_EQ(TablesOf(DocumentIn(control)).size(), 3u);
}

TEST(TXTextControl, TableInsert_TwiceAtTheEnd_KeepsALineBetween)
{
    TXTextControl control;
    control.TableInsert(1, 1, atEnd);
    control.TableInsert(1, 1, atEnd);
    EXPECT_EQ(TablesOf(DocumentIn(control)).size(), 2u);
}

TEST(TXTextControl, TableInsert_Refuses_IdsThatAreTakenAndTablesOfNothing)
{
    TXTextControl control;
    EXPECT_EQ(control.TableInsert(1, 1, atEnd, 1), 1);
    EXPECT_EQ(control.TableInsert(1, 1, atEnd, 1), 0);
    EXPECT_EQ(control.TableInsert(1, 1, atEnd), 2); // the next that is free
    EXPECT_EQ(control.TableInsert(0, 1, atEnd), 0);
    EXPECT_EQ(control.TableInsert(1, 0, atEnd), 0);
    EXPECT_EQ(control.TableInsert(1, maxColumns + 1, atEnd), 0);
    EXPECT_EQ(TablesOf(DocumentIn(control)).size(), 2u);
}

TEST(TXTextControl, TableInsert_IdsBeyond16Bits_Throw)
{
    TXTextControl control;
    control.TableInsert(1, 1, atEnd, 1);
    for (Long id = 2; id <= 32767; ++id) {
        control.SetText("");
        ASSERT_EQ(control.TableInsert(1, 1, atEnd), id - 1);
    }
    control.TableInsert(1, 1, atEnd);
    EXPECT_THROW(control.TableInsert(1, 1, atEnd), platform::Overflow);
}

TEST(TXTextControl, Cells_StartCountsFrom1AndLengthHasTheEnd)
{
    TXTextControl control;
    control.SetText("ab");
    const Integer table = control.TableInsert(2, 2, atEnd);
    control.SetTableCellText(table, 1, 1, "\u00e9\u4e2d");
    control.SetTableCellText(table, 2, 1, "x\r\ny");
    EXPECT_EQ(control.TableCellStart(table, 1, 1), 4);
    EXPECT_EQ(control.TableCellLength(table, 1, 1), 3);
    EXPECT_EQ(control.TableCellStart(table, 1, 2), 7);
    EXPECT_EQ(control.TableCellLength(table, 1, 2), 1);
    EXPECT_EQ(control.TableCellStart(table, 2, 1), 8);
    EXPECT_EQ(control.TableCellLength(table, 2, 1), 4);
    control.SetSelStart(control.TableCellStart(table, 2, 1) - 1);
    control.SetSelLength(control.TableCellLength(table, 2, 1) - 1);
    EXPECT_EQ(control.SelText(), "x\ny");
}

TEST(TXTextControl, Cells_ThatAreNotThere_DoNothing)
{
    TXTextControl control;
    const Integer table = control.TableInsert(1, 1, atEnd);
    const std::string before = control.SaveToMemory(formatRtf);
    using Place = std::array<Long, 3>;
    for (const auto& [id, row, column] : {Place{table + 1, 1, 1},
                                          Place{0, 1, 1},
                                          Place{table, 0, 1},
                                          Place{table, 2, 1},
                                          Place{table, 1, 0},
                                          Place{table, 1, 2}}) {
        const auto number = static_cast<Integer>(id);
        control.SetTableCellText(number, row, column, "x");
        control.SetTableCellAttribute(number, row, column, TXTextControl::ruleAbove, 1);
        EXPECT_EQ(control.TableCellText(number, row, column), "");
        EXPECT_EQ(control.TableCellStart(number, row, column), 0);
        EXPECT_EQ(control.TableCellLength(number, row, column), 0);
    }
    EXPECT_EQ(control.SaveToMemory(formatRtf), before);
}

TEST(TXTextControl, CellText_WrittenAgain_KeepsTheLookOfTheCell)
{
    TXTextControl control;
    const Integer table = control.TableInsert(1, 1, atEnd);
    control.SetTableCellText(table, 1, 1, "one");
    control.SetSelStart(control.TableCellStart(table, 1, 1) - 1);
    control.SetSelLength(3);
    control.SetAlignment(TXTextControl::alignCentre);
    control.SetFontSize(11.0);
    control.SetTableCellText(table, 1, 1, "two");
    const RichDocument document = DocumentIn(control);
    const Paragraph& paragraph = *TablesOf(document)[0]->rows[0].cells[0].blocks[0].AsParagraph();
    EXPECT_EQ(paragraph.format.alignment, Alignment::Center);
    EXPECT_EQ(paragraph.runs.at(0).text, "two");
    EXPECT_EQ(paragraph.runs.at(0).format.halfPoints, 22);
}

TEST(TXTextControl, CellAttributes6And8_AreTheRulesAboveAndBelow)
{
    TXTextControl control;
    const Integer table = control.TableInsert(2, 1, atEnd);
    control.SetTableCellAttribute(table, 1, 1, 6, 1);
    control.SetTableCellAttribute(table, 1, 1, 8, 2);
    control.SetTableCellAttribute(table, 1, 1, 5, 1); // none that is known
    EXPECT_EQ(control.TableCellAttribute(table, 1, 1, 6), 1);
    EXPECT_EQ(control.TableCellAttribute(table, 1, 1, 8), 2);
    EXPECT_EQ(control.TableCellAttribute(table, 1, 1, 5), 0);
    EXPECT_EQ(control.TableCellAttribute(table, 2, 1, 6), 0);
    const RichDocument document = DocumentIn(control);
    const TableCell& cell = TablesOf(document)[0]->rows[0].cells[0];
    EXPECT_EQ(cell.top, (Border{BorderStyle::Single, 10, std::nullopt}));
    EXPECT_EQ(cell.bottom, (Border{BorderStyle::Single, 20, std::nullopt}));
    EXPECT_EQ(cell.left, Border());
    EXPECT_EQ(cell.right, Border());
    control.SetTableCellAttribute(table, 1, 1, 6, 0);
    EXPECT_EQ(TablesOf(DocumentIn(control))[0]->rows[0].cells[0].top, Border());
}

TEST(TXTextControl, Looks_AreOfTheSelectionAlone)
{
    TXTextControl control;
    control.SetText("abc\r\nd");
    control.SetSelStart(1);
    control.SetSelLength(1);
    control.SetFontSize(11.0);
    control.SetFontBold(true);
    control.SetAlignment(TXTextControl::alignCentre);
    control.SetKeepWithNext(true);
    EXPECT_EQ(control.FontSize(), 11.0F);
    EXPECT_TRUE(control.FontBold());
    EXPECT_EQ(control.Alignment(), TXTextControl::alignCentre);
    EXPECT_TRUE(control.KeepWithNext());
    control.SetSelStart(0);
    EXPECT_EQ(control.FontSize(), 10.0F);
    EXPECT_FALSE(control.FontBold());
    control.SetSelStart(atEnd);
    EXPECT_EQ(control.Alignment(), TXTextControl::alignLeft);
    EXPECT_FALSE(control.KeepWithNext());
    const RichDocument document = DocumentIn(control);
    EXPECT_EQ(document.blocks[0].AsParagraph()->runs.size(), 3u);
}

TEST(TXTextControl, Alignment_Codes)
{
    for (const auto& [code, alignment] : {std::pair{0, Alignment::Left},
                                          {1, Alignment::Right},
                                          {2, Alignment::Center},
                                          {3, Alignment::Justify}}) {
        TXTextControl control;
        control.SetText("x");
        control.SetAlignment(code);
        EXPECT_EQ(DocumentIn(control).blocks[0].AsParagraph()->format.alignment, alignment);
        EXPECT_EQ(control.Alignment(), code);
    }
}

TEST(TXTextControl, Find_TakesTheFirstFromThere)
{
    TXTextControl control;
    control.SetText("a###b###");
    const Integer table = control.TableInsert(1, 1, atEnd);
    control.SetTableCellText(table, 1, 1, "###");
    EXPECT_EQ(control.Find("###", 0, 16), 1);
    EXPECT_EQ(control.SelStart(), 1);
    EXPECT_EQ(control.SelLength(), 3);
    EXPECT_EQ(control.Find("###", 2, 16), 5);
    EXPECT_EQ(control.Find("###", 6, 16), 9);
    EXPECT_EQ(control.Find("###", 10, 16), -1);
    EXPECT_EQ(control.SelStart(), 9);
    EXPECT_EQ(control.Find("", 0, 16), -1);
    EXPECT_EQ(control.Find("nowhere", 0, 16), -1);
}

TEST(TXTextControl, Find_FindsWhatCameIntoATextThatWasWithoutIt)
{
    TXTextControl control;
    control.SetText("one\r\ntwo");
    const Integer table = control.TableInsert(1, 1, atEnd);
    EXPECT_EQ(control.Find("###", 0, 16), -1);
    control.SetSelStart(1);
    control.SetSelText("###");
    EXPECT_EQ(control.Find("###", 0, 16), 1);
    control.SetSelText("");
    EXPECT_EQ(control.Find("###", 0, 16), -1);
    control.SetTableCellText(table, 1, 1, "###");
    EXPECT_EQ(control.Find("###", 0, 16), control.TableCellStart(table, 1, 1) - 1);
    EXPECT_EQ(control.Find("e", 0, 16), 2);
    EXPECT_EQ(control.Find("###", 0, 16), control.TableCellStart(table, 1, 1) - 1);
}

TEST(TXTextControl, Replace_SelectionOverATable_TakesTheWholeTable)
{
    TXTextControl control;
    control.SetText("ab");
    const Integer table = control.TableInsert(1, 2, atEnd);
    control.SetTableCellText(table, 1, 1, "x");
    control.SetSelStart(1);
    control.SetSelLength(2);
    control.SetSelText("Z");
    EXPECT_EQ(control.Text(), "aZ\n");
    EXPECT_EQ(control.TableCellLength(table, 1, 1), 0);
}

} // namespace
