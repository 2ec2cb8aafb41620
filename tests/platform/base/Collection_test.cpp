#include "platform/base/Collection.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using Names = platform::Collection<std::string>;

Names Filled()
{
    Names names("names");
    names.Add(30, "thirty");
    names.Add(10, "ten");
    names.Add(20, "twenty");
    return names;
}

std::vector<std::string> InOrder(const Names& names) { return {names.begin(), names.end()}; }

} // namespace

TEST(Collection, Members_StandInTheOrderTheyWereAdded)
{
    EXPECT_EQ(InOrder(Filled()), (std::vector<std::string>{"thirty", "ten", "twenty"}));
    EXPECT_EQ(Filled().Count(), 3);
}

TEST(Collection, Member_IsFoundUnderItsKey)
{
    Names names = Filled();
    EXPECT_EQ(names.Member(10), "ten");
    EXPECT_EQ(names.Member(20), "twenty");
    EXPECT_EQ(*names.Find(30), "thirty");
    EXPECT_EQ(names.Find(11), nullptr);
}

TEST(Collection, PositionsCountFromOne)
{
    const Names names = Filled();
    EXPECT_EQ(names.At(1), "thirty");
    EXPECT_EQ(names.At(3), "twenty");
    EXPECT_THROW(names.At(0), platform::OutOfBounds);
    EXPECT_THROW(names.At(4), platform::OutOfBounds);
    EXPECT_THROW(names.At(-1), platform::OutOfBounds);
}

TEST(Collection, AMissingKey_IsNamedInTheError)
{
    Names names = Filled();
    try {
        names.Member(7);
        FAIL();
    } catch (const platform::MissingMember& error) {
        EXPECT_EQ(error.Key(), 7);
        EXPECT_STREQ(error.what(), "No member k7 in names");
    }
    EXPECT_THROW(names.Remove(7), platform::MissingMember);
}

TEST(Collection, AKeyThatIsTaken_IsRefusedAndChangesNothing)
{
    Names names = Filled();
    EXPECT_THROW(names.Add(10, "again"), platform::DuplicateMember);
    EXPECT_EQ(names.Count(), 3);
    EXPECT_EQ(names.Member(10), "ten");
}

TEST(Collection, Remove_ClosesTheGapAndFreesTheKey)
{
    Names names = Filled();
    names.Remove(30);
    EXPECT_EQ(InOrder(names), (std::vector<std::string>{"ten", "twenty"}));
    EXPECT_EQ(names.At(1), "ten");
    EXPECT_EQ(names.Member(20), "twenty");
    EXPECT_EQ(names.Find(30), nullptr);
    names.Add(30, "anew");
    EXPECT_EQ(names.At(3), "anew");
    EXPECT_EQ(names.Member(30), "anew");
}

TEST(Collection, KeysInAnyOrder_StayTrueThroughAddsAndRemoves)
{
    platform::Collection<Long> numbers("numbers");
    for (Long i = 0; i < 200; ++i) {
        const Long key = (i * 73) % 211 - 100; // scattered, negative ones too
        numbers.Add(key, key);
    }
    for (Long i = 0; i < 200; i += 3) {
        numbers.Remove((i * 73) % 211 - 100);
    }
    for (Long i = 0; i < 200; ++i) {
        const Long key = (i * 73) % 211 - 100;
        const Long* found = numbers.Find(key);
        ASSERT_EQ(found != nullptr, i % 3 != 0) << key;
        EXPECT_TRUE(found == nullptr || *found == key) << key;
    }
    EXPECT_EQ(numbers.Count(), 133);
}

TEST(Collection, SharedObjects_OutliveTheirMembership)
{
    platform::Collection<std::shared_ptr<std::string>> shared("shared");
    const auto held = shared.Add(1, std::make_shared<std::string>("held"));
    shared.Remove(1);
    EXPECT_TRUE(shared.IsEmpty());
    EXPECT_EQ(*held, "held");
}
