#include "platform/richtext/RichDocuments.h"
#include "platform/richtext/RtfLists.h"
#include "platform/richtext/RtfWriter.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

using namespace rich;
using testing::HasSubstr;
using testing::Not;

namespace {

RichDocument WithItem(ListLevel level, ParagraphFormat item = Item(1))
{
    return DocumentOf({Line("x", std::move(item))}, {{{std::move(level)}}});
}

std::size_t CountOf(const std::string& rtf, std::string_view piece)
{
    std::size_t count = 0;
    for (std::size_t at = rtf.find(piece); at != std::string::npos; at = rtf.find(piece, at + 1))
        ++count;
    return count;
}

std::string LevelText(ListLevel level)
{
    const std::string rtf = WriteRtf(WithItem(std::move(level)));
    const std::size_t from = rtf.find("{\\leveltext");
    return rtf.substr(from, rtf.find("\\fi") - from);
}

} // namespace

TEST(RtfLists, FirstListIsOne_AllOthersBeginWithANine)
{
    EXPECT_EQ(RtfListNumber(0), 1);
    EXPECT_EQ(RtfListNumber(1), 901);
    EXPECT_EQ(RtfListNumber(2), 902);
    EXPECT_EQ(RtfListNumber(99), 999);
    EXPECT_EQ(RtfListNumber(100), 9100);
    Long last = 1;
    for (std::size_t place = 1; place < 5000; ++place) {
        const Long number = RtfListNumber(place);
        EXPECT_GT(number, last);
        EXPECT_EQ(std::to_string(number).front(), '9') << place;
        last = number;
    }
}

TEST(RtfLists, Numbers_GoByFirstUseAndUnusedListsAreLeftOut)
{
    const std::string rtf = WriteRtf(DocumentOf({Line("a", Item(3)), Line("b", Item(1)), Line("c", Item(3))},
                                                {{{Bullets(0)}}, {{Bullets(0, "unused")}}, {{Numbers(0)}}}));
    EXPECT_THAT(rtf, HasSubstr(R"({\*\listtable{\list\listtemplateid1\listhybrid{\listlevel\levelnfc0)"));
    EXPECT_THAT(rtf,
                HasSubstr(R"({\listoverride\listid1\listoverridecount0\ls1})"
                          R"({\listoverride\listid901\listoverridecount0\ls901}})"));
    EXPECT_THAT(rtf,
                HasSubstr(R"(\pard {\listtext 1.\tab}\ls1\ilvl0\fi-360\li360\tx360 a\par )"
                          R"(\pard {\listtext \u8226 \tab}\ls901\ilvl0\fi-360\li360\tx360 b\par )"
                          R"(\pard {\listtext 2.\tab}\ls1\ilvl0\fi-360\li360\tx360 c\par )"));
    EXPECT_THAT(rtf, Not(HasSubstr("unused")));
}

// The reports put "\pard\fi-360\li360\tx360" behind the marker: what must survive that stands behind \ilvl.
TEST(RtfLists, LookOfAnItem_StandsBehindItsLevel)
{
    ParagraphFormat format = Item(1);
    format.alignment = Alignment::Right;
    format.indentRight = 100;
    format.spaceAfter = 60;
    format.background = 0x000000;
    format.tabs = {{200}, {1440, TabKind::Right}};
    EXPECT_THAT(WriteRtf(WithItem(Bullets(0), format)),
                HasSubstr(R"(\pard {\listtext \u8226 \tab}\ls1\ilvl0\fi-360\li360\tx200\tx360\tqr\tx1440)"
                          R"(\qr\ri100\sa60\cbpat1 x\par )"));
}

TEST(RtfLists, IndentsOfAnItem_StandEvenWhenNone)
{
    ParagraphFormat flat = Item(1);
    flat.indentLeft = flat.indentFirst = 0;
    EXPECT_THAT(WriteRtf(WithItem(Bullets(0), flat)), HasSubstr(R"(\ls1\ilvl0\fi0\li0 x\par )"));
}

TEST(RtfLists, StopOfTheMarker_StandsOnce)
{
    ParagraphFormat format = Item(1);
    format.tabs = {{360, TabKind::Center}};
    EXPECT_THAT(WriteRtf(WithItem(Bullets(0), format)), HasSubstr(R"(\fi-360\li360\tqc\tx360 x\par )"));
}

TEST(RtfLists, ItemInACell_StaysInItsCell)
{
    RichDocument document = WithItem(Bullets(0));
    TableRow row;
    row.cells = {CellOf(900, {Line("x", Item(1))})};
    document.blocks = {Block{Table{{row}}}};
    EXPECT_THAT(
        WriteRtf(document),
        HasSubstr(R"(\pard\intbl {\listtext \u8226 \tab}\ls1\ilvl0\intbl\fi-360\li360\tx360 x\cell)"));
}

TEST(RtfLists, ListThatIsNotThere_IsNone)
{
    const std::string rtf = WriteRtf(DocumentOf({Line("x", Item(7))}, {{{Bullets(0)}}}));
    EXPECT_THAT(rtf,
                Not(HasSubstr("\\l"
                              "s")));
    EXPECT_THAT(rtf, HasSubstr(R"(\pard\li360\fi-360 x\par )"));
}

TEST(RtfLists, LevelTexts_CountTheirCharacters)
{
    EXPECT_EQ(LevelText(Bullets(0, "\U0001F525")), R"({\leveltext\'02\u-10179 \u-8923 ;}{\levelnumbers;})");
    EXPECT_EQ(LevelText(Bullets(0, ";")), R"({\leveltext\'01\'3b;}{\levelnumbers;})");
    ListLevel number = Numbers(0, NumberStyle::UpperRoman, 4);
    number.textBefore = "§ (";
    number.textAfter = ")";
    EXPECT_EQ(LevelText(number), R"({\leveltext\'05\'a7 (\'00);}{\levelnumbers\'04;})");
    ListLevel silent = Bullets(0, "");
    silent.kind = ListKind::None;
    EXPECT_EQ(LevelText(silent), R"({\leveltext\'00;}{\levelnumbers;})");
}

TEST(RtfLists, KindsAndStarts_StandInTheirLevel)
{
    EXPECT_THAT(WriteRtf(WithItem(Numbers(0, NumberStyle::UpperRoman, 4))),
                HasSubstr(R"(\levelnfc1\leveljc0\levelfollow0\levelstartat4)"));
    EXPECT_THAT(WriteRtf(WithItem(Numbers(0, NumberStyle::LowerRoman))), HasSubstr(R"(\levelnfc2\)"));
    EXPECT_THAT(WriteRtf(WithItem(Numbers(0, NumberStyle::UpperLetter))), HasSubstr(R"(\levelnfc3\)"));
    EXPECT_THAT(WriteRtf(WithItem(Numbers(0, NumberStyle::LowerLetter))), HasSubstr(R"(\levelnfc4\)"));
    ListLevel silent = Bullets(0, "");
    silent.kind = ListKind::None;
    EXPECT_THAT(WriteRtf(WithItem(silent)), HasSubstr(R"(\levelnfc255\)"));
}

// The reports renumber list 1 by these strings; found in another list they would tear that one apart.
TEST(RtfLists, StringsOfTheFirstList_StandInNoOther)
{
    std::vector<Paragraph> items;
    std::vector<RichList> lists;
    for (Long list = 1; list <= 1200; ++list) {
        items.push_back(Line("x", Item(list)));
        lists.push_back({{Bullets(0)}});
    }
    items.push_back(Line("y", Item(1)));
    const std::string rtf = WriteRtf(DocumentOf(items, lists));
    EXPECT_EQ(CountOf(rtf, "listtemplateid1"), 1U);
    EXPECT_EQ(CountOf(rtf, "listid1"), 2U);
    EXPECT_EQ(CountOf(rtf, R"(\ls1)"), 3U);
    EXPECT_EQ(CountOf(rtf, R"(\tab}\ls1\ilvl0\)"), 2U);
    EXPECT_EQ(CountOf(rtf, R"(\ilvl0\)"), 1201U);
}
