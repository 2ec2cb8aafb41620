#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/RtfReader.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace platform::richtext;

namespace {

RichDocument Read(const std::string& inner, Source source = Source::Body)
{
    RichDocument document = ReadRtf("{\\rtf1\\ansi " + inner + "}", source);
    EXPECT_EQ(rich::BrokenPromise(document), "") << inner;
    return document;
}

std::string TextOf(const std::string& inner, Source source = Source::Body)
{
    return PlainText(Read(inner, source));
}

const Paragraph& ParagraphAt(const RichDocument& document, std::size_t place)
{
    return *document.blocks.at(place).AsParagraph();
}

/// The paragraph of a text that holds one, whole as it is.
Paragraph OneParagraph(const std::string& inner)
{
    const RichDocument document = Read(inner);
    EXPECT_EQ(document.blocks.size(), 1u) << inner;
    return ParagraphAt(document, 0);
}

CharacterFormat FirstLook(const std::string& inner) { return OneParagraph(inner).runs.at(0).format; }

struct TextCase
{
    const char* inner;
    const char* text;
};

void ExpectTexts(const std::vector<TextCase>& cases, Source source = Source::Body)
{
    for (const TextCase& one : cases)
        EXPECT_EQ(TextOf(one.inner, source), one.text) << one.inner;
}

constexpr const char* defaultBody =
    "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
    "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 \\pard \\par }";

} // namespace

TEST(RtfReader, DefaultBody_IsOneEmptyParagraphOfTheDefaultLook)
{
    RichDocument expected;
    expected.blocks.push_back(Block{Paragraph()});
    EXPECT_EQ(ReadRtf(defaultBody), expected);
    EXPECT_EQ(ReadRtf(""), expected);
}

TEST(RtfReader, TextThatDoesNotBeginRich_IsShownAsTyped)
{
    EXPECT_EQ(PlainText(ReadRtf("C:\\burn {old}\r\nnext\rlast\n")), "C:\\burn {old}\nnext\nlast");
    EXPECT_EQ(PlainText(ReadRtf(" {\\rtf1 x}")), " {\\rtf1 x}");
    EXPECT_EQ(RtfToPlainText("a\n\nb"), "a\n\nb");
    EXPECT_EQ(PlainText(ReadRtf("\xFF")), "\uFFFD");
}

TEST(RtfReader, LastPar_OpensNoParagraph)
{
    ExpectTexts({{"a\\par b\\par", "a\nb"}, {"a\\par b", "a\nb"}, {"a\\par\\par", "a\n"}, {"", ""}});
}

TEST(RtfReader, LineEndsInTheSource_AreNothing)
{
    ExpectTexts({{"a\r\nb\nc", "abc"}, {"a\\\r\nb\\\nc", "a\nb\nc"}});
}

TEST(RtfReader, ParagraphProperties_AreThoseInForceAtItsPar)
{
    const RichDocument document = Read("\\qc a\\qr\\par {\\qj b\\par}c\\par");
    EXPECT_EQ(ParagraphAt(document, 0).format.alignment, Alignment::Right);
    EXPECT_EQ(ParagraphAt(document, 1).format.alignment, Alignment::Justify);
    EXPECT_EQ(ParagraphAt(document, 2).format.alignment, Alignment::Right);
}

TEST(RtfReader, ParagraphWords_FillTheFormat)
{
    const Paragraph paragraph =
        OneParagraph("\\pard\\qj\\li720\\fi-360\\ri180\\sb120\\sa60\\sl360\\slmult1\\keep\\keepn"
                     "\\pagebb\\tqr\\tldot\\tx5760\\tx1440 a\\par");
    ParagraphFormat expected;
    expected.alignment = Alignment::Justify;
    expected.indentLeft = 720;
    expected.indentFirst = -360;
    expected.indentRight = 180;
    expected.spaceBefore = 120;
    expected.spaceAfter = 60;
    expected.lineSpacing = {LineSpacingRule::Multiple, 360};
    expected.tabs = {{1440, TabKind::Left, TabLeader::None}, {5760, TabKind::Right, TabLeader::Dots}};
    expected.keepTogether = expected.keepWithNext = expected.pageBreakBefore = true;
    EXPECT_EQ(paragraph.format, expected);
}

TEST(RtfReader, Pard_ResetsAll)
{
    const RichDocument document = Read("\\qc\\li720\\tx99\\ls1 a\\par\\pard b\\par");
    EXPECT_EQ(ParagraphAt(document, 1).format, ParagraphFormat());
}

TEST(RtfReader, LogicalIndents_OverruleTheOthers)
{
    const ParagraphFormat format = OneParagraph("\\lin360\\li720\\rin90\\ri180 a").format;
    EXPECT_EQ(format.indentLeft, 360);
    EXPECT_EQ(format.indentRight, 90);
}

TEST(RtfReader, LineSpacing_FollowsItsRule)
{
    EXPECT_EQ(OneParagraph("\\sl300 a").format.lineSpacing, (LineSpacing{LineSpacingRule::AtLeast, 300}));
    EXPECT_EQ(OneParagraph("\\sl-300 a").format.lineSpacing, (LineSpacing{LineSpacingRule::Exactly, 300}));
    EXPECT_EQ(OneParagraph("\\sl0\\slmult1 a").format.lineSpacing, LineSpacing());
    EXPECT_EQ(OneParagraph("\\sl360\\slmult1\\slmult0 a").format.lineSpacing,
              (LineSpacing{LineSpacingRule::AtLeast, 360}));
}

TEST(RtfReader, CharacterWords_FillTheLook)
{
    const CharacterFormat look =
        FirstLook("{\\fonttbl{\\f7 Courier New;}}{\\colortbl;\\red192\\green0\\blue1;}"
                  "\\f7\\fs21\\b\\i\\strike\\uldb\\scaps\\super\\cf1\\chcbpat1 a");
    CharacterFormat expected;
    expected.font = "Courier New";
    expected.halfPoints = 21;
    expected.bold = expected.italic = expected.strike = true;
    expected.underline = Underline::Double;
    expected.capitals = Capitals::Small;
    expected.position = VerticalPosition::Superscript;
    expected.color = expected.background = 0xC00001;
    EXPECT_EQ(look, expected);
}

TEST(RtfReader, ParameterZero_TurnsOff)
{
    CharacterFormat expected;
    expected.halfPoints = 24;
    EXPECT_EQ(FirstLook("\\b\\i\\ul\\strike\\caps\\super\\b0\\i0\\ul0\\strike0\\caps0\\super0 a"), expected);
    EXPECT_EQ(FirstLook("\\ul\\ulnone\\sub\\nosupersub a"), expected);
}

TEST(RtfReader, Plain_IsTheDefaultFontAtTwelvePoint)
{
    const CharacterFormat look =
        FirstLook("\\deff1{\\fonttbl{\\f0 Arial;}{\\f1 Georgia;}}\\f0\\fs40\\b\\plain a");
    EXPECT_EQ(look.font, "Georgia");
    EXPECT_EQ(look.halfPoints, 24);
    EXPECT_FALSE(look.bold);
}

TEST(RtfReader, ComplexScriptWords_DoNotChangeTheLook)
{
    CharacterFormat expected;
    expected.halfPoints = 24;
    EXPECT_EQ(FirstLook("\\rtlch\\ab\\ai\\afs40\\af3\\ltrch a"), expected);
}

TEST(RtfReader, FontsAndColorsOutOfRange_AreTheDefault)
{
    const CharacterFormat look = FirstLook("{\\fonttbl{\\f0 Georgia;}}{\\colortbl;}\\f9\\cf77\\cb-1 a");
    EXPECT_EQ(look.font, "Georgia");
    EXPECT_EQ(look.color, Color());
    EXPECT_EQ(look.background, Color());
    EXPECT_EQ(FirstLook("\\f1 a").font, "Arial");
}

TEST(RtfReader, UngroupedFontTable_IsRead)
{
    EXPECT_EQ(FirstLook("{\\fonttbl\\f0\\froman Times;\\f1\\fswiss\\fcharset0 Helvetica;}\\f1 a").font,
              "Helvetica");
}

TEST(RtfReader, TablesAndHeadsOfTheSource_AreNoText)
{
    ExpectTexts(
        {{"{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1\\green2\\blue3;}{\\stylesheet{\\s0 Normal;}}a", "a"},
         {"{\\*\\generator x {y};}a", "a"},
         {"{\\*\\unheardof \\'7d {\\} } b}a", "a"},
         {"{\\info{\\title t}}{\\header h}{\\footer f}{\\footnote n}a", "a"},
         {"a{\\unheardof b}c", "abc"}});
}

TEST(RtfReader, DestinationWordsBehindText_AreOnlyUnknownWords)
{
    ExpectTexts({{"Map in C:\\info\\header\\pict.doc on {the} server", "Map in C:.doc on the server"},
                 {"\\footer all of it", "all of it"}});
}

TEST(RtfReader, NamedCharacters_AreThemselves)
{
    ExpectTexts({{"\\lquote a\\rquote\\ldblquote b\\rdblquote", "\u2018a\u2019\u201Cb\u201D"},
                 {"a\\emdash b\\endash c\\bullet d", "a\u2014b\u2013c\u2022d"},
                 {"a\\tab b\\line c\\~d\\_e\\-f", "a\tb\nc\u00A0d\u2011e\u00ADf"},
                 {"\\\\ \\{ \\}", "\\ { }"}});
}

TEST(RtfReader, Unicode_PassesOverItsSubstitute)
{
    ExpectTexts({{"\\u8226?a", "\u2022a"},
                 {"\\uc0\\u8226 a", "\u2022a"},
                 {"\\uc2\\u8226 xya", "\u2022a"},
                 {"\\uc2\\u8226\\'41\\'42a", "\u2022a"},
                 {"\\u8226\\b a", "\u2022a"},
                 {"\\uc3\\u8226 x}a", "\u2022"},
                 {"\\uc3{\\u8226 x}a", "\u2022a"},
                 {"{\\uc2\\u8226 xy}\\u8226 xy", "\u2022\u2022y"},
                 {"\\u8226 \u00E9a", "\u2022a"},
                 {"\\uc2\\u8226\\bin3 }{}\\'41a", "\u2022a"},
                 {"\\u-10179?\\u-8704?", "\U0001F600"},
                 {"\\u-10179?a\\u-8704?b", "\uFFFDa\uFFFDb"},
                 {"\\u-10179?", "\uFFFD"}});
}

TEST(RtfReader, CharactersOfABody_AreThemselves)
{
    ExpectTexts({{"caf\u00E9 \u4E00 \U0001F600", "caf\u00E9 \u4E00 \U0001F600"}, {"a\xFFz", "a\uFFFDz"}});
}

TEST(RtfReader, BytesOfAFile_AreOfTheCodePage)
{
    ExpectTexts({{"caf\xE9 \x93x\x94", "caf\u00E9 \u201Cx\u201D"},
                 {"\\ansicpg1251 \xCA\xEE", "\u041A\u043E"},
                 {"\\mac \x8E", "\u00E9"},
                 {"\\ansicpg0 \xE9", "\u00E9"},
                 {"\\ansicpg99999 \xE9", "\u00E9"}},
                Source::Bytes);
}

TEST(RtfReader, EscapedBytes_DecodeByTheFont)
{
    ExpectTexts({{"{\\fonttbl{\\f1\\fcharset204 A;}{\\f2\\fcharset1 B;}}\\f1\\'ca\\f2\\'ca", "\u041A\u00CA"},
                 {"{\\fonttbl{\\f1\\fcharset128 A;}}\\f1\\'93\\'fa\\'96\\'7b", "\u65E5\u672C"},
                 {"{\\fonttbl{\\f1\\fcharset128 A;}}\\f1\\'83v.", "\u30D7."},
                 {"{\\fonttbl{\\f1\\cpg1253 A;}}\\f1\\'e1", "\u03B1"},
                 {"{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset128 B;}}\\dbch\\af1\\f0\\'93\\'fa\\loch\\'e9",
                  "\u65E5\u00E9"},
                 {"{\\fonttbl{\\f1\\fcharset128 A;}}\\f1\\'93}", "\uFFFD"},
                 {"{\\fonttbl{\\f1\\fcharset128 A;}}\\f1\\'93\\par a", "\uFFFD\na"}});
}

TEST(RtfReader, SymbolFont_IsMappedToUnicode)
{
    const std::string fonts = "{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset2 Symbol;}{\\f2\\fcharset2 Wingdings;}}";
    EXPECT_EQ(TextOf(fonts + "\\f1 ab\\'b7\\f0 ab"), "\u03B1\u03B2\u2022ab");
    EXPECT_EQ(TextOf(fonts + "\\f1\\u-3913?\\u-3999?\\u97?"), "\u2022\u03B1a");
    EXPECT_EQ(TextOf(fonts + "\\f2\\'a7l"), "\uF0A7\uF06C");
    EXPECT_EQ(FirstLook(fonts + "\\f1 a").font, "Symbol");
}

TEST(RtfReader, SymbolField_ShowsItsSignWhereItHasNoResult)
{
    ExpectTexts({{"{\\field{\\*\\fldinst SYMBOL 97 \\\\f \"Symbol\" \\\\s 12}{\\fldrslt\\fs24}}b", "\u03B1b"},
                 {"{\\field{\\*\\fldinst SYMBOL 97 \\\\f \"Symbol\"}{\\fldrslt a}}b", "ab"},
                 {"{\\field{\\*\\fldinst SYMBOL 167 \\\\f Wingdings}{\\fldrslt}}b", "\uF0A7b"}});
}

TEST(RtfReader, UnicodeHalfOfUpr_IsTheOneRead)
{
    ExpectTexts({{"a{\\upr{b}{\\*\\ud{\\u8226?c}}}d", "a\u2022cd"}});
}

TEST(RtfReader, HiddenAndDeletedText_IsLeftOut) { ExpectTexts({{"a{\\v b}c{\\deleted d}e", "ace"}}); }

TEST(RtfReader, Hyperlinks_KeepHarmlessAddressesOnly)
{
    const auto link = [](const std::string& instruction) {
        const RichDocument document =
            Read("{\\field{\\*\\fldinst{" + instruction + "}}{\\fldrslt{\\ul link}}}");
        return ParagraphAt(document, 0).runs.at(0).format.href;
    };
    EXPECT_EQ(link("HYPERLINK \"https://example.org/a\""), "https://example.org/a");
    EXPECT_EQ(link("HYPERLINK \\\\o \"tip\" \"HTTP://example.org\""), "HTTP://example.org");
    EXPECT_EQ(link("HYPERLINK http://example.org"), "http://example.org");
    EXPECT_EQ(link("HYPERLINK \"mailto:a@example.org\""), "mailto:a@example.org");
    EXPECT_EQ(link("HYPERLINK \"#place\""), "#place");
    for (const char* refused : {"HYPERLINK \"javascript:alert(1)\"",
                                "HYPERLINK \"file:///etc/passwd\"",
                                "HYPERLINK \"C:\\\\\\\\run.exe\"",
                                "INCLUDETEXT \"http://example.org\"",
                                "HYPERLINK",
                                "HYPERLINK \\\\l",
                                "HYPERLINK \"ftp://example.org\""})
        EXPECT_EQ(link(refused), "") << refused;
}

TEST(RtfReader, LinkEndsWithItsField)
{
    const Paragraph paragraph =
        OneParagraph("{\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt b\\plain c}}d");
    ASSERT_EQ(paragraph.runs.size(), 2u);
    EXPECT_EQ(paragraph.runs[0].text, "bc");
    EXPECT_EQ(paragraph.runs[0].format.href, "http://a");
    EXPECT_EQ(paragraph.runs[1].format.href, "");
}

TEST(RtfReader, Objects_ShowTheirResultOnly)
{
    ExpectTexts({{"a{\\object\\objemb{\\*\\objclass P}{\\*\\objdata 4d5a}{\\result b}}c", "abc"},
                 {"a{\\object\\objemb x{\\*\\objdata 4d5a}}c", "ac"}});
}

TEST(RtfReader, DefaultTab_IsThatOfTheFirstDocument)
{
    EXPECT_EQ(Read("\\deftab1134 a").defaultTab, 1134);
    EXPECT_EQ(Read("\\deftab0 a").defaultTab, RichDocument::defaultTabTwips);
    EXPECT_EQ(ReadRtf("{\\rtf1 a\\par}{\\rtf1\\deftab99 b\\par}").defaultTab, RichDocument::defaultTabTwips);
}

TEST(RtfReader, JoinedDocuments_EachBeginAnew)
{
    const RichDocument document =
        ReadRtf("{\\rtf1\\uc0{\\fonttbl{\\f0 Georgia;}}{\\colortbl;\\red255;}\\cf1\\b\\qc a}\r\n"
                "{\\rtf1{\\fonttbl{\\f0 Verdana;}}{\\colortbl;\\blue255;}\\cf1 b\\u8226?\\par}");
    ASSERT_EQ(document.blocks.size(), 2u);
    EXPECT_EQ(ParagraphAt(document, 0).format.alignment, Alignment::Center);
    EXPECT_EQ(ParagraphAt(document, 1).format, ParagraphFormat());
    const CharacterFormat look = ParagraphAt(document, 1).runs.at(0).format;
    EXPECT_EQ(look.font, "Verdana");
    EXPECT_EQ(look.color, Color(0x0000FF));
    EXPECT_FALSE(look.bold);
    EXPECT_EQ(PlainText(document), "a\nb\u2022");
}

TEST(RtfReader, DocumentInDocument_IsReadTheSameAndTheOuterGoesOn)
{
    const RichDocument document =
        Read("{\\colortbl;\\red255;}\\cf1 a{\\rtf1{\\colortbl;\\blue255;}\\cf1 b\\par}c\\par");
    EXPECT_EQ(PlainText(document), "ab\nc");
    EXPECT_EQ(ParagraphAt(document, 0).runs.at(1).format.color, Color(0x0000FF));
    EXPECT_EQ(ParagraphAt(document, 1).runs.at(0).format.color, Color(0xFF0000));
}

TEST(RtfReader, BareTextBehindABody_IsDropped)
{
    EXPECT_EQ(PlainText(ReadRtf("{\\rtf1 a\\par }\r\n\0 junk")), "a");
}

TEST(RtfReader, StrayClosingBrace_IsPassedOver)
{
    const RichDocument document = ReadRtf("{\\rtf1\\b a}b\\par c}{d}");
    EXPECT_EQ(PlainText(document), "ab\ncd");
    EXPECT_TRUE(ParagraphAt(document, 1).runs.at(0).format.bold);
}

TEST(RtfReader, Page_BeginsAParagraphOnANewPage)
{
    const RichDocument document = Read("a\\page b\\par\\page c\\par");
    EXPECT_EQ(PlainText(document), "a\nb\nc");
    EXPECT_FALSE(ParagraphAt(document, 0).format.pageBreakBefore);
    EXPECT_TRUE(ParagraphAt(document, 1).format.pageBreakBefore);
    EXPECT_TRUE(ParagraphAt(document, 2).format.pageBreakBefore);
}

TEST(RtfReader, EmptyParagraph_KeepsItsLook)
{
    const Paragraph paragraph = OneParagraph("\\fs28\\b\\par");
    EXPECT_TRUE(paragraph.emptyFormat.bold);
    EXPECT_EQ(paragraph.emptyFormat.halfPoints, 28);
    EXPECT_EQ(OneParagraph("\\b a\\par").emptyFormat, CharacterFormat());
}

TEST(RtfReader, PlainTextRoad_GivesTheTextOfTheDocument)
{
    const std::string text = support::ReadFile(support::DataFile("rtf/made-writer-target.rtf"));
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(RtfToPlainText(text), PlainText(ReadRtf(text)));
}
