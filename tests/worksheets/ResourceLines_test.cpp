#include "platform/base/Errors.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "worksheets/ResourceLines.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace value_rows;

class ResourceLinesTest : public support::TestSession
{
protected:
    ResourceLinesTest()
    {
        OpenNew("DELETE FROM SRTypes;" + Type(1, 1, "time", "100") + Type(2, 2, "item", "100") +
                Type(3, 3, "item", "1234.5678"));
    }
    static c68SRUse Line(Long type, Long quantity, Long periods)
    {
        c68SRUse use;
        use.Initialize(1, 9, 1, type, quantity, periods);
        return use;
    }
};

TEST_F(ResourceLinesTest, RowCost_ItemOfSeveralPeriods_CountsThemUnlikeTheOutcome)
{
    EXPECT_EQ(ResourceLines::RowCost(Line(1, 2, 3)), 600.0);
    EXPECT_EQ(ResourceLines::RowCost(Line(2, 2, 3)), 600.0);
    EXPECT_EQ(Line(2, 2, 3).UseCost(), 200.0F);
    EXPECT_EQ(ResourceLines::RowCost(Line(2, 2, 1)), 200.0);
}

TEST_F(ResourceLinesTest, RowCost_IsTheSinglesValueInDouble)
{
    EXPECT_EQ(ResourceLines::RowCost(Line(3, 2, 1)), 2.0 * Double(1234.5678F));
}

TEST_F(ResourceLinesTest, RowCost_ProductBeyond32Bits_Overflows)
{
    EXPECT_EQ(ResourceLines::RowCost(Line(2, 2147483647, 1)), 214748364700.0);
    EXPECT_THROW(ResourceLines::RowCost(Line(2, 2147483647, 2)), platform::Overflow);
    EXPECT_THROW(ResourceLines::RowCost(Line(1, 65536, 32768)), platform::Overflow);
}

TEST(ResourceLinesRows, RowTyped_NearestRowThereIs)
{
    struct Case
    {
        Double number;
        Long row;
    };
    for (const Case& c :
         std::vector<Case>{{-3, 1}, {0, 1}, {0.4, 1}, {1, 1}, {2.5, 2}, {3.5, 4}, {5, 5}, {6, 5}, {9e99, 5}})
        EXPECT_EQ(ResourceLines::RowTyped(c.number, 5), c.row) << c.number;
}

std::string RoomOf(Long from, Long to, Long lines)
{
    const ResourceLines::Renumbering room = ResourceLines::MakeRoom(from, to, lines);
    if (room.first > room.last) return "none";
    return std::to_string(room.first) + ".." + std::to_string(room.last) + (room.shift > 0 ? " up" : " down");
}

TEST(ResourceLinesRows, MakeRoom_TheRowsBetween)
{
    EXPECT_EQ(RoomOf(4, 2, 5), "2..3 up");
    EXPECT_EQ(RoomOf(2, 4, 5), "3..4 down");
    EXPECT_EQ(RoomOf(3, 3, 5), "none");
    EXPECT_EQ(RoomOf(5, 1, 5), "1..4 up");
}

TEST(ResourceLinesRows, MakeRoom_NumberThatIsNoRow_StaysWithinTheList)
{
    EXPECT_EQ(RoomOf(9, 2, 5), "2..5 up");
    EXPECT_EQ(RoomOf(0, 3, 5), "1..3 down");
    EXPECT_EQ(RoomOf(-2147483647 - 1, 3, 5), "1..3 down");
    EXPECT_EQ(RoomOf(2147483647, 5, 5), "5..5 up");
}

} // namespace
