#include "session/g0Items.h"
#include "support/TestSession.h"
#include "values/g8Summary.h"

#include <gtest/gtest.h>

namespace {

class Summary : public support::TestSession
{};

TEST_F(Summary, NoTopics_GivesNothing)
{
    OpenNew("DELETE FROM Items WHERE ParentKey = 28;");
    EXPECT_TRUE(g8Summary::SummaryItems().empty());
    platform::ListContents list;
    list.AddItem("old");
    g8Summary::AddItem(list);
    EXPECT_EQ(list.ListCount(), 0);
}

TEST_F(Summary, Topics_StandInChildIndexOrder)
{
    OpenNew("DELETE FROM Items WHERE ParentKey = 28;"
            "INSERT INTO Items (ItemKey, ItemName, Heading, ParentKey, ChildIndex) VALUES"
            "(292,'b','Second',28,2),(291,'c','Third',28,3),(105,'a','First',28,1);");
    const auto topics = g8Summary::SummaryItems();
    ASSERT_EQ(topics.size(), 3U);
    EXPECT_EQ(topics[0]->ItemKey(), 105);
    EXPECT_EQ(topics[2]->ItemKey(), 291);
    EXPECT_EQ(topics[1], g8Summary::SummaryItem(292)); // one shared object for each key
    platform::ListContents list;
    g8Summary::AddItem(list);
    ASSERT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.Rows()[0].text, "First"); // the heading, not the name
    EXPECT_EQ(list.ItemData(0), 105);
    EXPECT_EQ(list.Rows()[2].text, "Third");
    EXPECT_EQ(list.ItemData(2), 291);
}

TEST_F(Summary, Template_HoldsDescriptionAndRationale)
{
    OpenNew();
    const auto topics = g8Summary::SummaryItems();
    ASSERT_EQ(topics.size(), 6U);
    EXPECT_EQ(topics[0]->ItemKey(), 291);
    EXPECT_EQ(topics[1]->ItemKey(), 292);
}

TEST_F(Summary, SaveSummaryItems_SavesEveryItemOfTheCache)
{
    OpenNew();
    g8Summary::SummaryItem(291)->SetBody("Chosen");
    g0Items::GetItem(g0Items::FireName)->SetBody("Smith Creek");
    g8Summary::SaveSummaryItems();
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey IN (11, 291) ORDER BY ItemKey"),
              (support::Rows{{"Smith Creek"}, {"Chosen"}}));
}

} // namespace
