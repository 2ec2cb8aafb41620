#include "platform/print/Printed.h"
#include "platform/print/RtfExport.h"
#include "platform/richtext/RtfReader.h"

#include <QBuffer>
#include <QImage>
#include <gtest/gtest.h>

using namespace platform::print;
using namespace printed;
namespace rich = platform::richtext;

namespace {

std::string Exported(PrintControl& control) { return RtfOf(Ended(control)); }

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

std::size_t Count(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t place = text.find(part); place != std::string::npos; place = text.find(part, place + 1))
        ++count;
    return count;
}

/// What stands behind the tables at the head.
std::string BodyIn(const std::string& rtf) { return rtf.substr(rtf.find("\\sectd")); }

const rich::Paragraph& ParagraphAt(const rich::RichDocument& document, std::size_t place)
{
    return *document.blocks.at(place).AsParagraph();
}

QByteArray MadePng()
{
    QImage image(2, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "png");
    return bytes;
}

std::string HexOf(const QByteArray& bytes) { return bytes.toHex().toStdString(); }

std::string BulletBody(const std::string& item)
{
    return "{\\rtf1\\ansi\\uc0{\\fonttbl{\\f0 "
           "Arial;}}{\\*\\listtable{\\list\\listtemplateid1\\listhybrid{\\listlevel"
           "\\levelnfc23\\leveljc0\\levelfollow0\\levelstartat1{\\leveltext\\'01\\u8226 "
           ";}{\\levelnumbers;}\\fi-360"
           "\\li360}{\\listname "
           ";}\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\listoverridecount0"
           "\\ls1}}\\plain\\f0\\fs20 \\pard {\\listtext \\u8226 \\tab}\\ls1\\ilvl0\\fi-360\\li360\\tx360 " +
           item + "\\par }";
}

} // namespace

TEST(RtfExport, Document_IsWholeAndAscii)
{
    OpenControl control;
    control.SetTitle("Fire \xC3\xA9 {x}");
    control.Paragraph("caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80");
    const std::string rtf = Exported(control);
    EXPECT_TRUE(rtf.starts_with("{\\rtf1\\ansi"));
    EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char sign) { return sign >= '\n' && sign < 127; }));
    EXPECT_TRUE(Has(rtf, "{\\info{\\title Fire \\'e9 \\{x\\}}}"));
    EXPECT_TRUE(Has(rtf, "\\paperw12240\\paperh15840"));
    EXPECT_EQ(rich::PlainText(rich::ReadRtf(rtf)), "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80");
}

TEST(RtfExport, Paragraphs_KeepTheirLooks)
{
    OpenControl control;
    control.SetFontName("Courier New");
    control.SetTextAlign(alignCenterBottom);
    control.SetSpaceBefore(120);
    control.SetSpaceAfter(60);
    control.Paragraph("typed {x} \\y");
    control.SetTextAlign(alignLeftTop);
    control.SetIndentLeft(1440);
    control.Paragraph(Body(BodyOf("\\li360\\fi-180 one {\\b two}")));
    const rich::RichDocument read = rich::ReadRtf(Exported(control));
    const rich::Paragraph& typed = ParagraphAt(read, 0);
    EXPECT_EQ(typed.format.alignment, rich::Alignment::Center);
    EXPECT_EQ(typed.format.spaceBefore, 120);
    EXPECT_EQ(typed.format.spaceAfter, 60);
    EXPECT_EQ(typed.runs.at(0).format.font, "Courier New");
    EXPECT_EQ(typed.runs.at(0).text, "typed {x} \\y");
    const rich::Paragraph& body = ParagraphAt(read, 1);
    EXPECT_EQ(body.format.indentLeft, 1800);
    EXPECT_EQ(body.format.indentFirst, -180);
    EXPECT_TRUE(body.runs.at(1).format.bold);
}

TEST(RtfExport, ArialAskedFor_IsToldAndNotItsSubstitute)
{
    OpenControl control;
    control.Paragraph("x");
    const std::string rtf = Exported(control);
    EXPECT_TRUE(Has(rtf, "Arial;"));
    EXPECT_FALSE(Has(rtf, "Liberation"));
}

TEST(RtfExport, FirstLineToldElsewhere_HangsOut)
{
    OpenControl control;
    control.Paragraph("x"); // the section's margin is 720
    control.SetMarginLeft(2880);
    control.SetMarginRight(1440);
    control.SetCurrentX(1080);
    control.Paragraph("head");
    const rich::RichDocument read = rich::ReadRtf(Exported(control));
    EXPECT_EQ(ParagraphAt(read, 1).format.indentLeft, 2160);
    EXPECT_EQ(ParagraphAt(read, 1).format.indentFirst, -1800);
    EXPECT_EQ(ParagraphAt(read, 1).format.indentRight, 720);
}

TEST(RtfExport, TextAndParagraphOfOneLine_AreOneParagraph)
{
    OpenControl control;
    control.SetFontBold(true);
    control.Text("Start: ");
    control.SetFontBold(false);
    control.Paragraph("noon");
    EXPECT_EQ(rich::PlainText(rich::ReadRtf(Exported(control))), "Start: noon");
}

TEST(RtfExport, PositionToldFurtherDown_BecomesSpaceAbove)
{
    OpenControl control;
    control.Paragraph("one");
    control.SetCurrentY(5000);
    control.Paragraph("two");
    const rich::RichDocument read = rich::ReadRtf(Exported(control));
    EXPECT_EQ(ParagraphAt(read, 1).format.spaceBefore, 5000 - 1440 - 223);
}

TEST(RtfExport, TableOfWhichNoRowWasPlaced_IsLeftOut)
{
    OpenControl control;
    control.Paragraph("Above.");
    control.StartTable();
    control.AddTable("2000|2000;", PrintCells());
    control.EndTable();
    control.SetCurrentY(15800.0);
    control.Table("2000|2000; | ;"); // blank, and too low to be seen
    const std::string rtf = Exported(control);
    EXPECT_TRUE(Has(rtf, "Above."));
    EXPECT_FALSE(Has(rtf, "\\trowd"));
    EXPECT_EQ(control.Pages().pages.size(), 1u);
}

TEST(RtfExport, BlankLineJumpedOver_IsLeftOut)
{
    OpenControl control;
    control.SetCurrentY(1490);
    control.Paragraph("Heading");
    control.Paragraph("");
    control.SetCurrentY(1620);
    control.Table("3000;Objective;");
    EXPECT_EQ(rich::PlainText(rich::ReadRtf(Exported(control))), "Heading\nObjective\n");
}

TEST(RtfExport, Tables_KeepWidthsSpansAlignmentsAndRules)
{
    OpenControl control;
    control.SetTableBorder(7);
    control.StartTable();
    control.AddTable("2000|>1800|^900;", "title||;", "a|b|c;");
    control.SetTableCell(tcColSpan, 0, 1, 12);
    control.SetTableCell(tcAlign, 0, 1, 7);
    control.SetTableCell(tcRowHeight, 1, 480);
    control.EndTable();
    const rich::RichDocument read = rich::ReadRtf(Exported(control));
    const rich::Table* table = nullptr;
    for (const rich::Block& block : read.blocks)
        table = block.AsTable() != nullptr ? block.AsTable() : table;
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->rows.size(), 2u);
    EXPECT_TRUE(table->rows[0].heading);
    ASSERT_EQ(table->rows[0].cells.size(), 1u);
    EXPECT_EQ(table->rows[0].cells[0].width, 4700);
    EXPECT_EQ(table->rows[0].cells[0].alignment, rich::CellAlignment::Bottom);
    EXPECT_EQ(table->rows[1].height, 480);
    ASSERT_EQ(table->rows[1].cells.size(), 3u);
    EXPECT_EQ(table->rows[1].cells[1].width, 1800);
    EXPECT_EQ(ParagraphAt({table->rows[1].cells[1].blocks, {}, 720}, 0).format.alignment,
              rich::Alignment::Right);
    EXPECT_EQ(ParagraphAt({table->rows[1].cells[2].blocks, {}, 720}, 0).format.alignment,
              rich::Alignment::Center);
    EXPECT_EQ(table->rows[1].cells[1].bottom.style, rich::BorderStyle::Single);
    EXPECT_EQ(table->rows[1].cells[1].right.style, rich::BorderStyle::Single);
}

TEST(RtfExport, TablesOfEqualColumns_AreOneAndOthersAreNot)
{
    OpenControl control;
    control.Table("2000|1000;a|b;");
    control.Table("2000|1000;c|d;");
    control.Table("1000|2000;e|f;");
    const rich::RichDocument read = rich::ReadRtf(Exported(control));
    std::vector<std::size_t> rows;
    for (const rich::Block& block : read.blocks) {
        if (block.AsTable() != nullptr) rows.push_back(block.AsTable()->rows.size());
    }
    EXPECT_EQ(rows, (std::vector<std::size_t>{2, 1}));
}

TEST(RtfExport, TurnedHead_IsTurned)
{
    OpenControl control;
    control.StartTable();
    control.AddTable("420;", "National;");
    control.SetTableCell(tcVertical, 0, 1, true);
    control.EndTable();
    const std::string rtf = Exported(control);
    EXPECT_TRUE(Has(rtf, "\\cltxbtlr"));
    const rich::RichDocument read = rich::ReadRtf(rtf);
    const auto isTurned = [](const rich::Block& block) {
        return block.AsTable() != nullptr && block.AsTable()->rows[0].cells[0].upward;
    };
    EXPECT_TRUE(std::any_of(read.blocks.begin(), read.blocks.end(), isTurned));
}

TEST(RtfExport, ListsOfTwoBodies_AreNotJoined)
{
    OpenControl control;
    control.Paragraph(Body(BulletBody("one")));
    control.Paragraph(Body(BulletBody("two")));
    control.Table("4000;", {{Body(BulletBody("three"))}});
    const std::string rtf = Exported(control);
    EXPECT_EQ(Count(rtf, "\\listtemplateid"), 3u);
    const rich::RichDocument read = rich::ReadRtf(rtf);
    EXPECT_EQ(read.lists.size(), 3u);
    EXPECT_EQ(ParagraphAt(read, 0).format.list, 1);
    EXPECT_EQ(ParagraphAt(read, 1).format.list, 2);
}

TEST(RtfExport, JoinedBodies_BecomeOneDocument)
{
    OpenControl control;
    control.Paragraph(Body(BodyOf("one") + BodyOf("two") + BodyOf("three")));
    const std::string rtf = Exported(control);
    EXPECT_EQ(Count(rtf, "{\\rtf"), 1u);
    EXPECT_EQ(rich::PlainText(rich::ReadRtf(rtf)), "one\ntwo\nthree");
}

TEST(RtfExport, Header_HasThePageFieldAndPlainTextElsewhere)
{
    OpenControl control;
    control.SetHeader({{{"Bar | {50%d}"}, {"VEXA No. 7"}, {"Page %d", true}}});
    control.SetPageBorder(2);
    control.Paragraph("x");
    const std::string rtf = Exported(control);
    EXPECT_TRUE(Has(rtf, "Bar | \\{50%d\\}\\tab VEXA No. 7\\tab Page {\\field{\\*\\fldinst{PAGE}}"));
    EXPECT_TRUE(Has(rtf, "{\\header"));
    EXPECT_TRUE(Has(rtf, "\\brdrb\\brdrs"));
    EXPECT_EQ(Count(rtf, "{\\header"), 1u);
}

TEST(RtfExport, FirstPageWithoutAHeader_HasAnEmptyOneOfItsOwn)
{
    OpenControl control;
    control.OnNewPage([&] { control.SetHeader("Fire||"); });
    control.Paragraph(Repeated("line\r\n", 100));
    const std::string rtf = Exported(control);
    EXPECT_TRUE(Has(rtf, "\\titlepg{\\headerf"));
    EXPECT_TRUE(Has(rtf, "Fire\\tab"));
}

TEST(RtfExport, NewPageWithTheSameHeader_IsAPageBreak)
{
    OpenControl control;
    control.Paragraph("one");
    control.NewPage();
    control.Paragraph("two");
    control.NewPage();
    control.Table("1000;three;");
    const std::string rtf = Exported(control);
    EXPECT_EQ(Count(rtf, "\\pagebb"), 2u);
    EXPECT_EQ(Count(rtf, "\\sectd"), 1u);
    EXPECT_EQ(rich::PlainText(rich::ReadRtf(rtf)), "one\ntwo\n\nthree\n");
}

TEST(RtfExport, NewPageWithAnotherHeader_IsASectionWithoutABlankParagraph)
{
    OpenControl control;
    control.SetHeader("a||");
    control.Paragraph("one");
    control.OnNewPage([&] { control.SetHeader("b||"); });
    control.NewPage();
    control.Paragraph("two");
    const std::string rtf = Exported(control);
    EXPECT_EQ(Count(rtf, "\\sbkpage"), 2u);
    EXPECT_TRUE(Has(rtf, "one\\sect\\sectd"));
}

TEST(RtfExport, PageThatFillsUp_IsNoBreak)
{
    OpenControl control;
    control.Paragraph(Repeated("line\r\n", 100));
    const std::string rtf = Exported(control);
    EXPECT_FALSE(Has(rtf, "\\pagebb"));
    EXPECT_EQ(Count(rtf, "\\sectd"), 1u);
}

TEST(RtfExport, Columns_AreASectionOfTheirOwn)
{
    OpenControl control;
    control.Paragraph("above");
    control.SetColumns(2);
    control.Paragraph("left");
    control.NewColumn();
    control.Paragraph("right");
    const std::string rtf = Exported(control);
    EXPECT_TRUE(Has(rtf, "above\\sect\\sectd\\sbknone"));
    EXPECT_TRUE(Has(rtf, "\\cols2\\colsx360"));
    EXPECT_TRUE(Has(rtf, "\\column right"));
}

TEST(RtfExport, NewPageWithinColumns_KeepsThem)
{
    OpenControl control;
    control.Paragraph("above");
    control.SetColumns(2);
    control.Paragraph("one");
    control.NewPage();
    control.Paragraph("two");
    control.SetColumns(1);
    control.NewPage();
    control.Paragraph("three");
    const std::string rtf = Exported(control);
    const std::size_t two = rtf.find("two");
    EXPECT_GT(rtf.rfind("\\cols2", two), rtf.find("one"));
    EXPECT_FALSE(Has(rtf.substr(two), "\\cols2"));
    EXPECT_TRUE(Has(rtf.substr(two), "\\sectd"));
}

TEST(RtfExport, Lines_AreDrawingsOnThePage)
{
    OpenControl control;
    control.SetPenColor(0x0000FF);
    control.DrawLine(1000, 2000, 500, 3000);
    const std::string rtf = Exported(control);
    EXPECT_TRUE(Has(rtf, "{\\shp{\\*\\shpinst\\shpleft500\\shptop2000\\shpright1000\\shpbottom3000"));
    EXPECT_TRUE(Has(rtf, "\\shpbxpage"));
    EXPECT_TRUE(
        Has(rtf, "{\\sp{\\sn shapeType}{\\sv 20}}{\\sp{\\sn fFlipH}{\\sv 1}}{\\sp{\\sn fFlipV}{\\sv 0}}"));
    EXPECT_TRUE(Has(rtf, "{\\sp{\\sn lineColor}{\\sv 255}}{\\sp{\\sn lineWidth}{\\sv 6350}}"));
}

TEST(RtfExport, DrawingsOfAPage_AreAnchoredOnIt)
{
    OpenControl control;
    control.Paragraph("one");
    control.NewPage();
    control.DrawLine(1000, 2000, 500, 3000);
    control.NewPage();
    control.Paragraph("three");
    const std::string body = BodyIn(Exported(control));
    const std::size_t line = body.find("{\\shp{");
    EXPECT_LT(body.find("\\pagebb"), line);
    EXPECT_GT(body.rfind("\\pagebb"), line);
}

TEST(RtfExport, TextBoxes_AreDrawingsWithTheirText)
{
    OpenControl control;
    control.SetTextAlign(alignRightBottom);
    control.TextBox(Plain("70% {x}"), 3620, 3000, 1600, 0);
    const std::string rtf = Exported(control);
    EXPECT_TRUE(Has(rtf, "\\shpleft3620\\shptop3000\\shpright5220\\shpbottom3223"));
    EXPECT_TRUE(Has(rtf, "{\\shptxt \\pard\\plain\\f0\\fs20 \\pard\\qr\\sl233\\slmult1 70% \\{x\\}\\par }"));
}

TEST(RtfExport, RawText_GoesInUnchangedAtItsPlace)
{
    const std::string raw =
        "{\\shp{\\shpleft-220\\shptop1280\\shpright280\\shpbottom2280{\\sp{\\sn shapeType}{\\sv 20}}}}";
    OpenControl control;
    control.Paragraph("one");
    control.SetExportRaw(raw);
    control.Paragraph("two");
    const std::string rtf = Exported(control);
    EXPECT_EQ(Count(rtf, raw), 1u);
    EXPECT_GT(rtf.find(raw), rtf.find("one"));
    EXPECT_LT(rtf.find(raw), rtf.find("two"));
    EXPECT_EQ(rich::PlainText(rich::ReadRtf(rtf)), "one\ntwo");
}

TEST(RtfExport, Pictures_AreCarriedByteForByte)
{
    OpenControl control;
    const std::string picture = HexOf(MadePng());
    control.Paragraph(Body("{\\rtf1 {\\pict\\pngblip\\picwgoal300\\pichgoal200 " + picture + "}}"));
    EXPECT_TRUE(Has(Exported(control), "{\\pict\\pngblip\\picwgoal300\\pichgoal200 " + picture + "}"));
}

TEST(RtfExport, DamagedPicture_IsLeftOutAndNothingElse)
{
    OpenControl control;
    control.Paragraph(
        Body("{\\rtf1 before {\\pict\\pngblip 89504e47}{\\pict\\wmetafile8 ffffffff7dff} after}"));
    const std::string rtf = Exported(control);
    EXPECT_FALSE(Has(rtf, "\\pict"));
    EXPECT_EQ(rich::PlainText(rich::ReadRtf(rtf)), "before  after");
}

TEST(RtfExport, Headings_StandInTheOutline)
{
    OpenControl control;
    control.AddBookmark("Decision Tree");
    control.Paragraph("Decision Tree");
    control.Paragraph("text");
    const std::string body = BodyIn(Exported(control));
    EXPECT_EQ(Count(body, "\\s1\\outlinelevel0"), 1u);
    EXPECT_LT(body.find("\\s1\\outlinelevel0"), body.find("Decision Tree"));
}

TEST(RtfExport, EmptyDocument_OpensAsOneEmptyPage)
{
    OpenControl control;
    const std::string rtf = Exported(control);
    EXPECT_EQ(rich::PlainText(rich::ReadRtf(rtf)), "");
    EXPECT_EQ(Count(rtf, "\\sectd"), 1u);
}

TEST(RtfExport, BoxLongerThanItsPage_IsPartedAsThePagesAre)
{
    OpenControl control;
    std::string text;
    for (int i = 100; i < 160; ++i)
        text += (i > 100 ? " word" : "word") + std::to_string(i);
    control.TextBox(Plain(text), 8100, 13000, 1000);
    const std::string rtf = Exported(control);
    EXPECT_EQ(Count(rtf, "\\shptxt"), 2u);
    for (int i = 100; i < 160; ++i)
        EXPECT_EQ(Count(rtf, "word" + std::to_string(i)), 1u) << i;
}

TEST(RtfExport, TextAboveTheTopMargin_MovesTheMarginOfItsPageUp)
{
    OpenControl control;
    control.SetCurrentY(950);
    control.Paragraph("Heading");
    control.SetCurrentY(1440);
    control.Paragraph("text");
    control.NewPage();
    control.Paragraph("next");
    const std::string rtf = RtfOf(Ended(control));
    EXPECT_NE(rtf.find("\\margtsxn950"), std::string::npos);
    EXPECT_NE(rtf.find("\\margtsxn1440"), std::string::npos); // of the next page
}
