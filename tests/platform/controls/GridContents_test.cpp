#include "platform/base/Errors.h"
#include "platform/controls/GridContents.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using platform::Alignment;
using platform::GridContents;

namespace {

GridContents Grid(Long columns)
{
    GridContents grid;
    grid.SetCols(columns);
    return grid;
}

} // namespace

TEST(GridContents, AddItem_FillsItsCellsFromTabs)
{
    GridContents grid = Grid(3);
    grid.AddItem("a\tb\tc");
    grid.AddItem("a");
    grid.AddItem("\t\tc");
    grid.AddItem("a\tb\tc\tbeyond");
    grid.AddItem("");
    const char* const expected[][3] = {
        {"a", "b", "c"}, {"a", "", ""}, {"", "", "c"}, {"a", "b", "c"}, {"", "", ""}};
    ASSERT_EQ(grid.Rows(), 5);
    for (Long row = 0; row < 5; ++row) {
        for (Long column = 0; column < 3; ++column) {
            EXPECT_EQ(grid.Text(row, column), expected[row][column]) << row << "," << column;
        }
    }
}

TEST(GridContents, SetRowsAndCols_KeepWhatRemains)
{
    GridContents grid = Grid(2);
    grid.AddItem("a\tb");
    grid.AddItem("c\td");
    grid.SetCols(3);
    EXPECT_EQ(grid.Text(1, 1), "d");
    EXPECT_EQ(grid.Text(1, 2), "");
    grid.SetRows(1);
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(grid.Text(0, 1), "b");
    grid.SetRows(2);
    EXPECT_EQ(grid.Text(1, 1), "") << "a new row is empty";
    grid.SetCols(1);
    EXPECT_THROW(grid.Text(0, 1), platform::OutOfBounds);
    EXPECT_THROW(grid.SetRows(-1), platform::OutOfBounds);
    EXPECT_THROW(grid.SetCols(-1), platform::OutOfBounds);
    EXPECT_THROW(grid.SetFixedRows(-1), platform::OutOfBounds);
}

TEST(GridContents, RemoveItem_MovesTheRowsBehindWithTheirData)
{
    GridContents grid = Grid(1);
    for (const char* name : {"one", "two", "three"}) {
        grid.AddItem(name);
        grid.SetRowData(grid.Rows() - 1, std::make_shared<std::string>(name));
    }
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Text(1, 0), "three");
    EXPECT_EQ(*grid.RowObject<std::shared_ptr<std::string>>(1), "three");
    EXPECT_THROW(grid.RemoveItem(2), platform::OutOfBounds);
    EXPECT_THROW(grid.RemoveItem(-1), platform::OutOfBounds);
}

TEST(GridContents, RowObject_OfAnotherKindOrOfNone_IsNothing)
{
    GridContents grid = Grid(1);
    grid.SetRows(2);
    grid.SetRowData(0, std::make_shared<std::string>("text"));
    EXPECT_EQ(grid.RowObject<std::shared_ptr<int>>(0), nullptr);
    EXPECT_EQ(grid.RowObject<std::shared_ptr<std::string>>(1), nullptr);
}

TEST(GridContents, ACellsOwnAlignment_GoesBeforeItsColumns)
{
    GridContents grid = Grid(2);
    grid.SetRows(2);
    grid.SetColAlignment(1, Alignment::Right);
    grid.SetCellAlignment(0, 1, Alignment::Left);
    EXPECT_EQ(grid.CellAlignment(0, 1), Alignment::Left);
    EXPECT_EQ(grid.CellAlignment(1, 1), Alignment::Right);
    EXPECT_EQ(grid.CellAlignment(0, 0), Alignment::Left);
    grid.SetColAlignment(1, Alignment::Center);
    EXPECT_EQ(grid.CellAlignment(0, 1), Alignment::Left);
    EXPECT_EQ(grid.CellAlignment(1, 1), Alignment::Center);
}

TEST(GridContents, WidthsAndMergedRows_AreKept)
{
    GridContents grid = Grid(2);
    grid.SetRows(1);
    grid.SetFixedRows(1);
    grid.SetColWidth(1, 1440);
    grid.SetMergeRow(0, true);
    EXPECT_EQ(grid.ColWidth(1), 1440);
    EXPECT_EQ(grid.ColWidth(0), 0);
    EXPECT_TRUE(grid.MergeRow(0));
    EXPECT_EQ(grid.FixedRows(), 1);
}

TEST(GridContents, APlaceOutsideTheGrid_Throws)
{
    GridContents grid = Grid(1);
    grid.SetRows(1);
    EXPECT_THROW(grid.Text(1, 0), platform::OutOfBounds);
    EXPECT_THROW(grid.Text(0, -1), platform::OutOfBounds);
    EXPECT_THROW(grid.SetText(-1, 0, "x"), platform::OutOfBounds);
    EXPECT_THROW(grid.RowData(5), platform::OutOfBounds);
    EXPECT_THROW(grid.ColWidth(1), platform::OutOfBounds);
    EXPECT_THROW(grid.SetMergeRow(1, true), platform::OutOfBounds);
}
