#include "platform/richtext/ListCounter.h"
#include "platform/richtext/RichDocuments.h"

#include <gtest/gtest.h>

using namespace rich;

namespace {

/// The markers of items, each told by its list and level.
std::vector<std::string> Markers(const RichDocument& document,
                                 const std::vector<std::pair<Long, Long>>& items)
{
    ListCounter counter(document);
    std::vector<std::string> markers;
    for (const auto& [list, level] : items)
        markers.push_back(counter.NextMarker(Item(list, level)));
    return markers;
}

RichDocument Lists(std::vector<RichList> lists) { return DocumentOf({}, std::move(lists)); }

using Texts = std::vector<std::string>;

} // namespace

TEST(ListCounter, Numbers_InEveryStyle)
{
    const std::vector<std::tuple<Long, NumberStyle, std::string>> cases{
        {12, NumberStyle::Arabic, "12"},
        {0, NumberStyle::Arabic, "0"},
        {4, NumberStyle::LowerRoman, "iv"},
        {1994, NumberStyle::UpperRoman, "MCMXCIV"},
        {3999, NumberStyle::LowerRoman, "mmmcmxcix"},
        {4000, NumberStyle::UpperRoman, "4000"},
        {0, NumberStyle::UpperRoman, "0"},
        {1, NumberStyle::LowerLetter, "a"},
        {26, NumberStyle::UpperLetter, "Z"},
        {27, NumberStyle::LowerLetter, "aa"},
        {53, NumberStyle::LowerLetter, "aaa"},
        {0, NumberStyle::LowerLetter, "0"},
        {2147483647, NumberStyle::LowerLetter, "2147483647"},
    };
    for (const auto& [number, style, text] : cases)
        EXPECT_EQ(NumberText(number, style), text);
}

TEST(ListCounter, SubItems_StartAnewUnderEachItem)
{
    const RichDocument document = Lists({{{Numbers(0), Numbers(1, NumberStyle::LowerLetter)}}});
    EXPECT_EQ(Markers(document, {{1, 0}, {1, 1}, {1, 1}, {1, 0}, {1, 1}, {1, 0}}),
              (Texts{"1.", "a.", "b.", "2.", "a.", "3."}));
}

TEST(ListCounter, TwoLists_CountEachForItself)
{
    const RichDocument document = Lists({{{Numbers(0)}}, {{Numbers(0, NumberStyle::Arabic, 7)}}});
    EXPECT_EQ(Markers(document, {{1, 0}, {2, 0}, {1, 0}, {2, 0}}), (Texts{"1.", "7.", "2.", "8."}));
}

TEST(ListCounter, BulletsNoMarkerAndNoList)
{
    ListLevel silent = Bullets(0, "");
    silent.kind = ListKind::None;
    const RichDocument document = Lists({{{Bullets(0), Bullets(1, "\u25E6")}}, {{silent}}});
    EXPECT_EQ(Markers(document, {{1, 0}, {1, 1}, {2, 0}, {0, 0}, {9, 0}}), (Texts{"•", "◦", "", "", ""}));
}

TEST(ListCounter, TextAroundTheNumber_StandsInTheMarker)
{
    ListLevel level = Numbers(0, NumberStyle::UpperLetter);
    level.textBefore = "(";
    level.textAfter = ")";
    EXPECT_EQ(Markers(Lists({{{level}}}), {{1, 0}, {1, 0}}), (Texts{"(A)", "(B)"}));
}
