#include "platform/data/DatabaseError.h"
#include "session/SessionState.h"
#include "session/c0Item.h"
#include "session/g0Items.h"
#include "session/g2Situation.h"
#include "session/u11Datafile.h"
#include "support/ChildProcess.h"
#include "support/TestSession.h"

using g0Items::GetItem;

namespace {
class g0ItemsTest : public support::TestSession
{};

constexpr Long kGroup = 9000; // a group that no template has
} // namespace

TEST_F(g0ItemsTest, AMissingRow_ReadsEmptyAndIsAddedByTheFirstSaveAsAFixedItem)
{
    OpenNew("DELETE FROM Items WHERE ItemKey = 52");
    const auto item = GetItem(52);
    EXPECT_EQ(item->ItemKey(), 52);
    EXPECT_EQ(item->ItemName() + item->Heading() + item->Body() + item->ItemText(), "");
    item->SetBody("MT-123");
    item->SaveChanges();
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey = 52"),
              (support::Rows{{"52", "", "", "MT-123", "", "NULL", "NULL"}}));
}

TEST_F(g0ItemsTest, ARow_IsLoadedWithItsFourTexts)
{
    OpenNew("INSERT INTO Items VALUES (9001, 'name', 'heading', 'body', 'text', 9000, 4)");
    const auto item = GetItem(9001);
    EXPECT_EQ(item->ItemName(), "name");
    EXPECT_EQ(item->Heading(), "heading");
    EXPECT_EQ(item->Body(), "body");
    EXPECT_EQ(item->ItemText(), "text");
}

TEST_F(g0ItemsTest, SaveChanges_WritesTheTextsAndLeavesParentAndPlace)
{
    OpenNew("INSERT INTO Items VALUES (9001, 'name', 'heading', 'body', 'text', 9000, 4)");
    GetItem(9001)->SetHeading("changed");
    g0Items::SaveAllItems();
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey = 9001"),
              (support::Rows{{"9001", "name", "changed", "body", "text", "9000", "4"}}));
}

TEST_F(g0ItemsTest, SaveChanges_WithNothingWritten_WritesNothing)
{
    OpenNew("DELETE FROM Items WHERE ItemKey = 52");
    GetItem(52)->SaveChanges();
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey = 52"), support::Rows());
}

TEST_F(g0ItemsTest, AWriteOfAnEqualText_IsAChange)
{
    OpenNew("DELETE FROM Items WHERE ItemKey = 52");
    GetItem(52)->SetBody("");
    GetItem(52)->SaveChanges();
    EXPECT_EQ(Query("SELECT ItemKey FROM Items WHERE ItemKey = 52"), (support::Rows{{"52"}}));
}

TEST_F(g0ItemsTest, AfterASave_TheNextSaveWritesNothing)
{
    OpenNew();
    const auto item = GetItem(g0Items::FireName);
    item->SetBody("Bear Paw");
    item->SaveChanges();
    platform::Recordset rows = OpenDatabase().OpenTable("Items");
    rows.Seek(g0Items::FireName);
    rows.Edit();
    rows.Set("Body", std::string("by another"));
    rows.Update();
    item->SaveChanges();
    rows.Seek(g0Items::FireName);
    EXPECT_EQ(rows.Text("Body"), "by another");
    item->SetBody("Bear Paw");
    item->SaveChanges();
    rows.Seek(g0Items::FireName);
    EXPECT_EQ(rows.Text("Body"), "Bear Paw");
}

TEST_F(g0ItemsTest, ASaveThatFailed_IsMadeGoodByTheNext)
{
    OpenNew();
    const auto item = GetItem(g0Items::FireName);
    item->SetBody("Bear Paw");
    {
        const support::FileSizeLimit full(0);
        EXPECT_THROW(item->SaveChanges(), platform::DatabaseError);
    }
    item->SaveChanges();
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 11"), (support::Rows{{"Bear Paw"}}));
}

TEST_F(g0ItemsTest, GetItem_GivesTheSameObjectUntilTheStoreIsCleared)
{
    OpenNew();
    const auto item = GetItem(11);
    EXPECT_EQ(GetItem(11), item);
    item->SetBody("not saved");
    g0Items::ClearItems();
    EXPECT_NE(GetItem(11), item);
    EXPECT_NE(GetItem(11)->Body(), "not saved");
    EXPECT_EQ(item->Body(), "not saved") << "lives as long as somebody holds it";
}

TEST_F(g0ItemsTest, Children_ComeInChildIndexOrder)
{
    OpenNew("INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES (9001, 'third', 9000, 3), "
            "(9002, 'first', "
            "9000, 1), (9003, 'second', 9000, 2)");
    EXPECT_EQ(g0Items::GetChildKeys(kGroup), (std::vector<Long>{9002, 9003, 9001}));
    EXPECT_EQ(g0Items::CountChildren(kGroup), 3);
    const auto children = g0Items::GetChildren(kGroup);
    ASSERT_EQ(children.size(), 3U);
    EXPECT_EQ(children[0]->ItemName(), "first");
    EXPECT_EQ(children[2], GetItem(9001));
}

TEST_F(g0ItemsTest, AGroupWithNoRows_HasNoChildren)
{
    OpenNew();
    EXPECT_TRUE(g0Items::GetChildren(kGroup).empty());
    EXPECT_EQ(g0Items::CountChildren(kGroup), 0);
}

TEST_F(g0ItemsTest, NewItem_StandsBehindItsSiblingsWithTheDefaultBody)
{
    OpenNew("INSERT INTO Items (ItemKey, ParentKey, ChildIndex) VALUES (9001, 9000, 1)");
    const Long last = g0Items::LastItemKey();
    const Long key = g0Items::NewItem("Weather", kGroup);
    EXPECT_EQ(key, last + 1);
    EXPECT_EQ(g0Items::LastItemKey(), key);
    EXPECT_EQ(
        GetItem(key)->Body(),
        "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}{"
        "\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 \\pard \\par }");
    EXPECT_EQ(Query("SELECT ItemName, Heading, ItemText, ParentKey, ChildIndex FROM Items WHERE ItemKey = " +
                    std::to_string(key)),
              (support::Rows{{"Weather", "NULL", "NULL", "9000", "2"}}));
}

TEST_F(g0ItemsTest, NewItemAfterADeletion_TakesThePlaceOfTheCountNotOfTheHighestIndex)
{
    OpenNew("INSERT INTO Items (ItemKey, ParentKey, ChildIndex) VALUES (8001, 9000, 1), (8002, 9000, 2), "
            "(8003, 9000, 3)");
    g0Items::DeleteItem(8001);
    const Long key = g0Items::NewItem("again 3", kGroup);
    EXPECT_EQ(Query("SELECT ItemKey, ChildIndex FROM Items WHERE ParentKey = 9000 ORDER BY ItemKey = " +
                    std::to_string(key) + ", ItemKey"),
              (support::Rows{{"8002", "2"}, {"8003", "3"}, {std::to_string(key), "3"}}));
}

TEST_F(g0ItemsTest, DeleteItem_TakesObjectAndRow)
{
    OpenNew("INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES (9001, 'gone', 9000, 1)");
    const auto held = GetItem(9001);
    g0Items::DeleteItem(9001);
    EXPECT_NE(GetItem(9001), held);
    EXPECT_EQ(GetItem(9001)->ItemName(), "");
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey = 9001"), support::Rows());
}

TEST_F(g0ItemsTest, DeleteItem_OfAKeyThatIsNotInTheCollection_StillDeletesTheRow)
{
    OpenNew("INSERT INTO Items (ItemKey, ParentKey, ChildIndex) VALUES (9001, 9000, 1)");
    g0Items::DeleteItem(9001);
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey = 9001"), support::Rows());
}

TEST_F(g0ItemsTest, DeleteItem_OfWhatIsNotThere_IsNoError)
{
    OpenNew();
    g0Items::DeleteItem(987654);
    GetItem(987655);
    g0Items::DeleteItem(987655);
}

TEST_F(g0ItemsTest, TheLastKey_IsNotForgottenWithTheFileAndCanCollideInAnother)
{
    OpenNew();
    const Long first = g0Items::NewItem("in the first file", kGroup);
    Open(MakeFile("INSERT INTO Items (ItemKey) VALUES (" + std::to_string(first + 1) + "), (" +
                      std::to_string(first + 500) + ")",
                  "Second.qel"));
    EXPECT_EQ(g0Items::LastItemKey(), first);
    EXPECT_THROW(g0Items::NewItem("collides", kGroup), platform::DatabaseError);
    EXPECT_EQ(g0Items::NewItem("the next try", kGroup), first + 2) << "takes the next key";
    EXPECT_EQ(g0Items::CountChildren(kGroup), 1);
}

TEST_F(g0ItemsTest, TheSituationsTopics_AreTheChildrenOf22)
{
    OpenNew("DELETE FROM Items WHERE ParentKey = 22");
    const Long key = g2Situation::NewSituationTopic("Weather");
    const auto topics = g2Situation::GetSituationTopics();
    ASSERT_EQ(topics.size(), 1U);
    EXPECT_EQ(topics[0]->ItemKey(), key);
    EXPECT_EQ(g2Situation::GetItem(key), topics[0]);
    topics[0]->SetItemName("Fuel");
    g2Situation::SaveAllItems();
    EXPECT_EQ(Query("SELECT ItemName FROM Items WHERE ParentKey = 22"), (support::Rows{{"Fuel"}}));
}

TEST_F(g0ItemsTest, WithNoFileOpen_Throws)
{
    EXPECT_THROW(GetItem(11), platform::DatabaseError);
    EXPECT_THROW(g0Items::CountChildren(22), platform::DatabaseError);
    EXPECT_THROW(u11Datafile::LastKeyInTable("Items", "ItemKey"), platform::DatabaseError);
}
