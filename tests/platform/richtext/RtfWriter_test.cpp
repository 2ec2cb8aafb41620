#include "platform/richtext/NormalizeBody.h"
#include "platform/richtext/RichDocuments.h"
#include "platform/richtext/RtfWriter.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

using namespace rich;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

const std::string head = R"({\rtf1\ansi\ansicpg1252\uc0\deff0{\fonttbl{\f0\fswiss\fcharset0\fprq2 Arial;}})"
                         R"({\colortbl;\red0\green0\blue0;\red255\green255\blue255;})";
const std::string start = R"(\plain\f0\fs20 )";

/// A body of the default fonts and colours.
std::string Body(const std::string& paragraphs) { return head + start + paragraphs + "}"; }

std::string Written(ParagraphFormat format) { return WriteRtf(DocumentOf({Line("x", std::move(format))})); }

std::string Written(std::vector<Run> runs) { return WriteRtf(DocumentOf({ParagraphOf(std::move(runs))})); }

/// What stands behind the tables.
std::string Text(const std::string& rtf) { return rtf.substr(rtf.find(start) + start.size()); }

CharacterFormat Bold()
{
    CharacterFormat format;
    format.bold = true;
    return format;
}

CharacterFormat Marked(std::uint32_t background)
{
    CharacterFormat format;
    format.background = background;
    return format;
}

} // namespace

TEST(RtfWriter, NothingTyped_IsTheEmptyBodyToTheLetter)
{
    const std::string body =
        R"({\rtf1\ansi\ansicpg1252\uc0\deff0{\fonttbl{\f0\fswiss\fcharset0\fprq2 Arial;}})"
        R"({\colortbl;\red0\green0\blue0;\red255\green255\blue255;}\plain\f0\fs20 \pard \par })";
    EXPECT_EQ(WriteRtf(DocumentOf({Paragraph{}})), body);
    EXPECT_EQ(WriteRtf(RichDocument{}), body);
}

TEST(RtfWriter, Paragraphs_EachBeginAnewAndEndWithTheirMark)
{
    EXPECT_EQ(WriteRtf(DocumentOf({Line("One"), Paragraph{}, Line(" Two ")})),
              Body(R"(\pard One\par \pard \par \pard  Two \par )"));
}

TEST(RtfWriter, WholeEnd_LeavesTheRepairNothingToDo)
{
    const std::string rtf = WriteRtf(DocumentOf({Line("One")}));
    EXPECT_THAT(rtf, EndsWith("\\par }"));
    EXPECT_EQ(platform::richtext::NormalizeBody(rtf, "One"), rtf);
}

TEST(RtfWriter, ParagraphLook_StandsInOneFixedOrder)
{
    ParagraphFormat format;
    format.alignment = Alignment::Justify;
    format.indentLeft = 720;
    format.indentFirst = -360;
    format.indentRight = 360;
    format.spaceBefore = 120;
    format.spaceAfter = 60;
    format.lineSpacing.value = 360;
    format.tabs = {{1440}, {5760, TabKind::Right, TabLeader::Dots}, {6000, TabKind::Bar}};
    format.background = 0xFFFFFF;
    format.keepTogether = format.keepWithNext = format.pageBreakBefore = true;
    EXPECT_EQ(Written(format),
              Body(R"(\pard\qj\li720\fi-360\ri360\sb120\sa60\sl360\slmult1\tx1440\tqr\tldot\tx5760\tb6000)"
                   R"(\cbpat2\keep\keepn\pagebb x\par )"));
}

TEST(RtfWriter, LineSpacing_TellsItsRule)
{
    const auto spaced = [](LineSpacingRule rule, Long value) {
        ParagraphFormat format;
        format.lineSpacing = {rule, value};
        return Written(format);
    };
    EXPECT_EQ(spaced(LineSpacingRule::Multiple, 480), Body(R"(\pard\sl480\slmult1 x\par )"));
    EXPECT_EQ(spaced(LineSpacingRule::AtLeast, 240), Body(R"(\pard\sl240\slmult0 x\par )"));
    EXPECT_EQ(spaced(LineSpacingRule::Exactly, 240), Body(R"(\pard\sl-240\slmult0 x\par )"));
    EXPECT_EQ(spaced(LineSpacingRule::Multiple, 240), Body(R"(\pard x\par )"));
}

TEST(RtfWriter, DefaultTab_StandsWhereItDiffers)
{
    RichDocument document = DocumentOf({Paragraph{}});
    document.defaultTab = 1134;
    EXPECT_EQ(WriteRtf(document), head + R"(\deftab1134\plain\f0\fs20 \pard \par })");
}

TEST(RtfWriter, Runs_SwitchOnAndOffWhatDiffers)
{
    CharacterFormat all = Bold();
    all.italic = all.strike = true;
    all.underline = Underline::Single;
    all.position = VerticalPosition::Superscript;
    all.capitals = Capitals::Small;
    all.halfPoints = 28;
    EXPECT_EQ(Text(Written({TextRun("a"), TextRun("b", Bold()), TextRun("c", all), TextRun(" d")})),
              R"(\pard a\b b\i\ul\strike\super\scaps\fs28 c)"
              R"(\b0\i0\ulnone\strike0\nosupersub\scaps0\fs20  d\par })");
}

TEST(RtfWriter, RunToTheEndOfItsParagraph_IsOffBeforeTheMark)
{
    EXPECT_EQ(WriteRtf(DocumentOf({ParagraphOf({TextRun("a", Bold())}), Line("b")})),
              Body(R"(\pard \b a\b0\par \pard b\par )"));
}

TEST(RtfWriter, CapitalsAndUnderlines_ChangeFromOneKindToTheNext)
{
    CharacterFormat first, second;
    first.capitals = Capitals::All;
    first.underline = Underline::Double;
    second.capitals = Capitals::Small;
    second.underline = Underline::Wave;
    EXPECT_EQ(Written({TextRun("a", first), TextRun("b", second)}),
              Body(R"(\pard \uldb\caps a\ulwave\caps0\scaps b\ulnone\scaps0\par )"));
}

TEST(RtfWriter, FontsAndColors_AreNumberedByFirstUse)
{
    CharacterFormat times, red, both;
    times.font = "Times New Roman";
    red.color = 0xC00000;
    both.font = "Müller; Sans";
    both.color = 0x000000;
    const std::string rtf =
        Written({TextRun("a", red), TextRun("b", both), TextRun("c", times), TextRun("d", red)});
    EXPECT_THAT(rtf,
                HasSubstr(R"( Arial;}{\f1\fnil\fcharset0\fprq2 M\'fcller Sans;})"
                          R"({\f2\froman\fcharset0\fprq2 Times New Roman;}}{\colortbl;\red0\green0\blue0;)"
                          R"(\red255\green255\blue255;\red192\green0\blue0;}\plain)"));
    EXPECT_EQ(Text(rtf), R"(\pard \cf3 a\f1\cf1 b\f2\cf0 c\f0\cf3 d\cf0\par })");
}

TEST(RtfWriter, SymbolFont_GoesByNumbersAndOnlyThere)
{
    CharacterFormat symbol;
    symbol.font = "Wingdings";
    EXPECT_EQ(Text(Written({TextRun("a", symbol), TextRun("b")})), R"(\pard \f1 \u97 \f0 b\par })");
}

TEST(RtfWriter, Background_IsAGroup)
{
    CharacterFormat bold = Marked(0xFFFF00);
    bold.bold = true;
    EXPECT_EQ(
        Text(Written({TextRun("a"), TextRun("b", Marked(0xFFFF00)), TextRun("c", bold), TextRun(" d")})),
        R"(\pard a{\chshdng0\chcbpat3\cb3 b\b c} d\par })");
    EXPECT_EQ(Text(Written({TextRun("a", bold), TextRun("b", Marked(0xFFFFFF))})),
              R"(\pard \b{\chshdng0\chcbpat3\cb3 a}\b0{\chshdng0\chcbpat2\cb2 b}\par })");
}

TEST(RtfWriter, LookOfAnEmptyParagraph_HoldsToTheNextText)
{
    Paragraph empty;
    empty.emptyFormat = Marked(0xFFFF00);
    empty.emptyFormat.bold = true;
    EXPECT_EQ(Text(WriteRtf(DocumentOf({empty, empty, Line("x")}))),
              R"(\pard \b\chshdng0\chcbpat3\cb3\par \pard \par \pard \chshdng0\chcbpat0\cb0\b0 x\par })");
}

TEST(RtfWriter, Link_IsAFieldOfItsAddress)
{
    CharacterFormat link;
    link.href = "https://example.org/a\"b";
    CharacterFormat boldLink = link;
    boldLink.bold = true;
    EXPECT_EQ(Written({TextRun("See "), TextRun("the ", link), TextRun("map", boldLink), TextRun(".")}),
              Body(R"(\pard See {\field{\*\fldinst{HYPERLINK "https://example.org/a%22b"}})"
                   R"({\fldrslt{the \b map}}}.\par )"));
}

TEST(RtfWriter, AddressInItsField_KeepsBackslashesAndHasNoQuote)
{
    CharacterFormat link;
    link.href = "http://example.org/a\\b\"{ü}";
    EXPECT_THAT(Written({TextRun("x", link)}),
                HasSubstr(R"(HYPERLINK "http://example.org/a\\\\b%22\{\'fc\}"}})"));
}

TEST(RtfWriter, LinkThatIsNotFollowed_IsPlainText)
{
    for (const std::string address :
         {"file:///etc/passwd", "javascript:x", "C:\\fires\\map", "https", "http://a\nb"}) {
        CharacterFormat link;
        link.href = address;
        EXPECT_EQ(Written({TextRun("See ", link), TextRun("it")}), Body(R"(\pard See it\par )")) << address;
    }
}

TEST(RtfWriter, LinkInABackground_KeepsBoth)
{
    CharacterFormat link = Marked(0xFFFF00);
    link.href = "mailto:a@example.org";
    EXPECT_EQ(Text(Written({TextRun("a", Marked(0xFFFF00)), TextRun("b", link)})),
              R"(\pard {\chshdng0\chcbpat3\cb3 a}{\field{\*\fldinst{HYPERLINK "mailto:a@example.org"}})"
              R"({\fldrslt{{\chshdng0\chcbpat3\cb3 b}}}}\par })");
}

TEST(RtfWriter, Pictures_GoByteForByteWithSizesAndScales)
{
    const auto written = [](Picture picture) {
        return Text(Written({TextRun("a"), PictureRun(picture), TextRun("b")}));
    };
    EXPECT_EQ(written({PictureKind::Png, "\x89P", 16, 8, 240, 120, 50, 100}),
              R"(\pard a{\pict\pngblip\picw16\pich8\picwgoal240\pichgoal120\picscalex50 8950}b\par })");
    EXPECT_EQ(written({PictureKind::Jpeg, "\xFF"}), R"(\pard a{\pict\jpegblip ff}b\par })");
    EXPECT_EQ(written({PictureKind::Wmf, "\x01", 5, 0, 0, 7}),
              R"(\pard a{\pict\wmetafile8\picw5\pichgoal7 01}b\par })");
    EXPECT_EQ(written({PictureKind::Emf, ""}), R"(\pard a{\pict\emfblip }b\par })");
    EXPECT_EQ(written({PictureKind::Pict, "z"}), R"(\pard a{\pict\macpict 7a}b\par })");
    EXPECT_EQ(written({PictureKind::Bmp, "BM345678901234(rest"}), // without the 14 bytes of its file header
              R"(\pard a{\pict\dibitmap0 2872657374}b\par })");
    EXPECT_EQ(written({PictureKind::Bmp, "BM"}), R"(\pard a{\pict\dibitmap0 }b\par })");
}

// Read again, a picture has no look but its link: the text must not change by that.
TEST(RtfWriter, PictureAmongMarkedText_ChangesNoLook)
{
    CharacterFormat bold = Marked(0xFFFF00);
    bold.bold = true;
    const Picture picture{PictureKind::Jpeg, "\xFF"};
    EXPECT_EQ(Text(Written({TextRun("a", Bold()), PictureRun(picture, bold), TextRun("b", Bold())})),
              R"(\pard \b a{\pict\jpegblip ff}b\b0\par })");
    EXPECT_EQ(Text(Written({TextRun("a", bold), PictureRun(picture, bold), TextRun("b", bold)})),
              R"(\pard \b{\chshdng0\chcbpat3\cb3 a}{\pict\jpegblip ff}{\chshdng0\chcbpat3\cb3 b}\b0\par })");
    EXPECT_EQ(Text(Written({PictureRun(picture, bold)})), R"(\pard {\pict\jpegblip ff}\par })");
}

TEST(RtfWriter, Rows_TellCellsThatAreJoinedAndHowTheyLook)
{
    TableRow row;
    row.cells = {CellOf(1000, {Line("a")}), CellOf(500, {Paragraph{}}), CellOf(500, {Line("c"), Line("d")})};
    row.cells[0].mergeAcross = CellMerge::First;
    row.cells[1].mergeAcross = CellMerge::Continued;
    row.cells[2].mergeDown = CellMerge::First;
    row.cells[2].alignment = CellAlignment::Center;
    row.cells[2].bottom = {BorderStyle::Double, 20, 0xFFFFFF};
    row.cells[2].background = 0x000000;
    row.left = -70;
    row.height = -300;
    row.alignment = Alignment::Center;
    row.heading = row.keepTogether = true;
    TableRow second;
    second.cells = {CellOf(700, {Line("e")})};
    second.cells[0].mergeDown = CellMerge::Continued;
    second.cells[0].alignment = CellAlignment::Bottom;
    RichDocument document = DocumentOf({});
    document.blocks.push_back(Block{Table{{row, second}}});
    EXPECT_EQ(WriteRtf(document),
              Body(R"(\trowd\trgaph0\trleft-70\trrh-300\trqc\trhdr\trkeep\clmgf\cellx930\clmrg\cellx1430)"
                   R"(\clvmgf\clvertalc\clbrdrb\brdrdb\brdrw20\brdrcf2\clcbpat1\cellx1930)"
                   R"(\pard\intbl a\cell\pard\intbl \cell\pard\intbl c\par \pard\intbl d\cell\row)"
                   R"(\trowd\trgaph0\trleft0\clvmrg\clvertalb\cellx700\pard\intbl e\cell\row\pard \par )"));
}

TEST(RtfWriter, TableAtTheEnd_IsFollowedByAnEmptyParagraph)
{
    RichDocument document = DocumentOf({Line("a")});
    document.blocks.push_back(Block{Table{{TableRow{{CellOf(700, {Line("b")})}}}}});
    EXPECT_THAT(WriteRtf(document), EndsWith(R"(b\cell\row\pard \par })"));
}

TEST(RtfWriter, TableInACell_TellsItsRowsAtTheirEnds)
{
    TableCell outer = CellOf(2000, {Line("before")});
    outer.blocks.push_back(Block{Table{{TableRow{{CellOf(700, {Line("in")})}}}}});
    outer.blocks.push_back(Block{Line("after")});
    RichDocument document = DocumentOf({});
    document.blocks.push_back(Block{Table{{TableRow{{outer}}}}});
    EXPECT_EQ(
        WriteRtf(document),
        Body(R"(\trowd\trgaph0\trleft0\cellx2000\pard\intbl before\par )"
             R"(\pard\intbl\itap2 in\nestcell{\nonesttables\par}{\*\nesttableprops\trowd\trgaph0\trleft0)"
             R"(\cellx700\nestrow}{\nonesttables\par}\pard\intbl after\cell\row\pard \par )"));
}

TEST(RtfWriter, CellThatEndsInATable_GetsAnEmptyParagraph)
{
    TableCell outer = CellOf(2000, {});
    outer.blocks.push_back(Block{Table{{TableRow{{CellOf(700, {Line("in")})}}}}});
    RichDocument document = DocumentOf({});
    document.blocks.push_back(Block{Table{{TableRow{{outer, CellOf(5, {})}}}}});
    EXPECT_THAT(WriteRtf(document),
                HasSubstr(R"({\nonesttables\par}\pard\intbl \cell\pard\intbl \cell\row)"));
}

TEST(RtfWriter, RowWithoutCells_IsLeftOut)
{
    RichDocument document = DocumentOf({});
    document.blocks.push_back(Block{Table{{TableRow{}}}});
    document.blocks.push_back(Block{Line("x")});
    EXPECT_EQ(WriteRtf(document), Body(R"(\pard x\par )"));
}

// Everything that an editor makes, in the one form that it is stored in.
TEST(RtfWriter, WholeForm_IsWrittenToTheLetter)
{
    CharacterFormat title, italic, under, strike, red, marked, sub, super, times, link;
    title.bold = true;
    title.halfPoints = 28;
    italic.italic = true;
    under.underline = Underline::Single;
    strike.strike = true;
    red.color = 0xC00000;
    marked.background = 0xFFFF00;
    sub.position = VerticalPosition::Subscript;
    super.position = VerticalPosition::Superscript;
    times.font = "Times New Roman";
    times.halfPoints = 24;
    link = under;
    link.color = 0xC00000;
    link.href = "https://example.org/plan";

    ParagraphFormat center, right, justify, indented;
    center.alignment = Alignment::Center;
    right.alignment = Alignment::Right;
    justify.alignment = Alignment::Justify;
    indented.indentLeft = 720;
    indented.indentFirst = -360;
    indented.indentRight = 360;
    indented.spaceBefore = 120;
    indented.spaceAfter = 60;
    indented.lineSpacing.value = 360;
    indented.tabs = {{1440}, {5760, TabKind::Right}};

    RichDocument document = DocumentOf(
        {ParagraphOf({TextRun("Strategy for Alternative A", title)}, center),
         ParagraphOf({TextRun("Confine the fire "),
                      TextRun("within", Bold()),
                      TextRun(" the "),
                      TextRun("planned", italic),
                      TextRun(" perimeter; "),
                      TextRun("underlined", under),
                      TextRun(", "),
                      TextRun("struck", strike),
                      TextRun(", "),
                      TextRun("red", red),
                      TextRun(", "),
                      TextRun("marked", marked),
                      TextRun(", H"),
                      TextRun("2", sub),
                      TextRun("O, 10"),
                      TextRun("3", super),
                      TextRun(" acres, "),
                      TextRun("Times twelve", times),
                      TextRun(".")}),
         Line("Right-aligned line", right),
         Line("Justified line with café, 50° slope, €100, “quoted”, dash — and face \U0001F600.", justify),
         Line("Indented\ttab stop\tright stop", indented),
         Line("Braces {typed} and a backslash C:\\fires\\map stay as typed.\nSecond line of the same "
              "paragraph."),
         Line("Hold the ridge road", Item(1)),
         ParagraphOf({TextRun("Protect "), TextRun("structures", Bold())}, Item(1)),
         Line("on the north side", Item(1, 1)),
         Line("Steps in order:"),
         Line("Scout the line", Item(2)),
         Line("Build the line", Item(2)),
         Line("from the creek", Item(2, 1)),
         ParagraphOf({TextRun("See "), TextRun("the map sheet", link), TextRun(".")})},
        {{{Bullets(0), Bullets(1, "\u25E6")}}, {{Numbers(0), Numbers(1, NumberStyle::LowerLetter)}}});

    const Border thin{BorderStyle::Single, 10, std::nullopt};
    TableRow first;
    first.cellGap = 70;
    first.cells = {CellOf(2880, {ParagraphOf({TextRun("Resource", Bold())})}),
                   CellOf(2880, {Line("Count", right)})};
    TableRow second = first;
    for (TableCell& cell : first.cells)
        cell.top = cell.left = cell.bottom = cell.right = thin;
    second.cells[0].blocks = {Block{Line("Engines")}};
    second.cells[1].blocks = {Block{Line("4", right)}};
    document.blocks.push_back(Block{Table{{first, second}}});
    const Picture picture{PictureKind::Png, "\x89PNG", 16, 8, 240, 120};
    document.blocks.push_back(Block{ParagraphOf({PictureRun(picture)})});

    const std::string border =
        R"(\clbrdrt\brdrs\brdrw10\clbrdrl\brdrs\brdrw10\clbrdrb\brdrs\brdrw10\clbrdrr\brdrs\brdrw10)";
    const std::string expected =
        R"({\rtf1\ansi\ansicpg1252\uc0\deff0{\fonttbl{\f0\fswiss\fcharset0\fprq2 Arial;})"
        R"({\f1\froman\fcharset0\fprq2 Times New Roman;}}{\colortbl;\red0\green0\blue0;)"
        R"(\red255\green255\blue255;\red192\green0\blue0;\red255\green255\blue0;})"
        R"({\*\listtable{\list\listtemplateid1\listhybrid{\listlevel\levelnfc23\leveljc0\levelfollow0)"
        R"(\levelstartat1\levelspace0\levelindent0{\leveltext\'01\u8226 ;}{\levelnumbers;})"
        R"(\fi-360\li360\tx360}{\listlevel\levelnfc23\leveljc0\levelfollow0\levelstartat1\levelspace0)"
        R"(\levelindent0{\leveltext\'01\u9702 ;}{\levelnumbers;}\fi-360\li720\tx720}{\listname ;})"
        R"(\listid1}{\list\listtemplateid901\listhybrid{\listlevel\levelnfc0\leveljc0\levelfollow0)"
        R"(\levelstartat1\levelspace0\levelindent0{\leveltext\'02\'00.;}{\levelnumbers\'01;})"
        R"(\fi-360\li360\tx360}{\listlevel\levelnfc4\leveljc0\levelfollow0\levelstartat1\levelspace0)"
        R"(\levelindent0{\leveltext\'02\'01.;}{\levelnumbers\'01;}\fi-360\li720\tx720}{\listname ;})"
        R"(\listid901}}{\*\listoverridetable{\listoverride\listid1\listoverridecount0\ls1})"
        R"({\listoverride\listid901\listoverridecount0\ls901}}\plain\f0\fs20 )"
        R"(\pard\qc \b\fs28 Strategy for Alternative A\b0\fs20\par )"
        R"(\pard Confine the fire \b within\b0  the \i planned\i0  perimeter; \ul underlined\ulnone , )"
        R"(\strike struck\strike0 , \cf3 red\cf0 , {\chshdng0\chcbpat4\cb4 marked}, H\sub 2\nosupersub O, )"
        R"(10\super 3\nosupersub  acres, \f1\fs24 Times twelve\f0\fs20 .\par )"
        R"(\pard\qr Right-aligned line\par )"
        R"(\pard\qj Justified line with caf\'e9, 50\'b0 slope, \u8364 100, \ldblquote quoted\rdblquote , )"
        R"(dash \emdash  and face \u-10179 \u-8704 .\par )"
        R"(\pard\li720\fi-360\ri360\sb120\sa60\sl360\slmult1\tx1440\tqr\tx5760 )"
        R"(Indented\tab tab stop\tab right stop\par )"
        R"(\pard Braces \{typed\} and a backslash C:\\fires\\map stay as typed.)"
        R"(\line Second line of the same paragraph.\par )"
        R"(\pard {\listtext \u8226 \tab}\ls1\ilvl0\fi-360\li360\tx360 Hold the ridge road\par )"
        R"(\pard {\listtext \u8226 \tab}\ls1\ilvl0\fi-360\li360\tx360 Protect \b structures\b0\par )"
        R"(\pard {\listtext \u9702 \tab}\ls1\ilvl1\fi-360\li720\tx720 on the north side\par )"
        R"(\pard Steps in order:\par )"
        R"(\pard {\listtext 1.\tab}\ls901\ilvl0\fi-360\li360\tx360 Scout the line\par )"
        R"(\pard {\listtext 2.\tab}\ls901\ilvl0\fi-360\li360\tx360 Build the line\par )"
        R"(\pard {\listtext a.\tab}\ls901\ilvl1\fi-360\li720\tx720 from the creek\par )"
        R"(\pard See {\field{\*\fldinst{HYPERLINK "https://example.org/plan"}})"
        R"({\fldrslt{\ul\cf3 the map sheet}}}.\par )"
        R"(\trowd\trgaph70\trleft0)" +
        border + R"(\cellx2880)" + border +
        R"(\cellx5760\pard\intbl \b Resource\b0\cell\pard\intbl\qr Count\cell\row)"
        R"(\trowd\trgaph70\trleft0\cellx2880\cellx5760\pard\intbl Engines\cell\pard\intbl\qr 4\cell\row)"
        R"(\pard {\pict\pngblip\picw16\pich8\picwgoal240\pichgoal120 89504e47}\par })";
    EXPECT_EQ(WriteRtf(document), expected);
}
