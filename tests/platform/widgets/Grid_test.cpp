#include "GridFixture.h"
#include "platform/base/Errors.h"
#include "platform/widgets/GridEditor.h"
#include "platform/widgets/GridLooks.h"
#include "platform/widgets/GridModel.h"
#include "platform/widgets/Theme.h"

#include <QAccessible>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>

namespace Theme = platform::Theme;

namespace {

class GridTest : public GridFixture
{
protected:
    using Log = GridFixture::Log;
    QAccessibleTableInterface* Table() const
    {
        return QAccessible::queryAccessibleInterface(grid)->tableInterface();
    }
    QString Read(int row, int column) const
    {
        return Table()->cellAt(row - grid->Contents().FixedRows(), column)->text(QAccessible::Name);
    }
    QString Head(int column) const
    {
        return grid->model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    }
    void TwoHeaderRows()
    {
        grid->Fill([](platform::GridContents& contents) {
            contents.SetRows(0);
            contents.SetCols(3);
            contents.SetFixedRows(2);
            contents.AddItem("Fire size, in acres\tFire size, in acres\tSuppression cost\nper acre");
            contents.AddItem("From\tTo\tSuppression cost\nper acre");
            contents.AddItem("0\t1000\t250");
            contents.SetMergeRow(0, true);
        });
        grid->SetMergeCol(2, true);
    }
};

TEST_F(GridTest, NeighboursOfEqualText_StandAsOneAndEachHoldsTheText)
{
    EXPECT_EQ(grid->rowSpan(0, 0), 2);
    EXPECT_EQ(grid->columnSpan(3, 0), 2);
    EXPECT_EQ(grid->rowSpan(0, 1), 1); // column 1 is not merged
    EXPECT_EQ(Read(1, 0), QStringLiteral("A"));
    EXPECT_EQ(Read(2, 0), QStringLiteral("A"));
    EXPECT_EQ(Read(4, 1), QStringLiteral("Extreme"));
    grid->SetText(2, 0, "B");
    EXPECT_EQ(grid->rowSpan(0, 0), 1);
    EXPECT_EQ(grid->rowSpan(1, 0), 2);
}

TEST_F(GridTest, MergedRow_LeavesFiguresAndEmptyTextsApartAndCountsBlanks)
{
    grid->Fill([](platform::GridContents& contents) {
        contents.SetRows(1);
        contents.AddItem("0\t0\tdry\tdry \t");
        contents.SetMergeRow(1, true);
    });
    for (int column = 0; column < 5; ++column)
        EXPECT_EQ(grid->columnSpan(0, column), 1) << column;
}

TEST_F(GridTest, RowsTakenAway_MergeAnew)
{
    grid->RemoveItem(1);
    EXPECT_EQ(grid->rowSpan(0, 0), 1);
    EXPECT_EQ(grid->columnSpan(2, 0), 2);
    grid->AddItem("B\tFallback\t1\t2\t");
    grid->AddItem("B\tFallback\t1\t2\t");
    EXPECT_EQ(grid->rowSpan(3, 0), 2);
}

TEST_F(GridTest, TwoHeaderRows_AreMergedAcrossAndDown)
{
    TwoHeaderRows();
    EXPECT_EQ(Head(0), QStringLiteral("Fire size, in acres, From"));
    EXPECT_EQ(Head(1), QStringLiteral("Fire size, in acres, To"));
    EXPECT_EQ(Head(2), QStringLiteral("Suppression cost per acre"));
    EXPECT_EQ(grid->model()->rowCount(), 1);
    EXPECT_GE(grid->horizontalHeader()->height(), 2 * grid->fontMetrics().height());
    grid->Select(1, 2); // the second header row
    grid->EditCell();
    Settle();
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 1,2"}));
    grid->setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(grid->Row(), 2);
    Key(Qt::Key_Up);
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(Read(2, 1), QStringLiteral("1000"));
}

TEST_F(GridTest, TwoHeaderRows_ClickIsCountedWithThem)
{
    TwoHeaderRows();
    ClickOn(2, 1);
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 2,1", "Down 2,1", "Up 2,1", "Click"}));
}

TEST_F(GridTest, Heads_BreakBetweenWordsAndAreNeverCut)
{
    grid->SetText(0, 2, "Probability of containment");
    const QFontMetrics metrics = grid->horizontalHeader()->fontMetrics();
    EXPECT_GE(grid->columnWidth(2), metrics.horizontalAdvance(QStringLiteral("containment")));
    EXPECT_LT(grid->columnWidth(2), metrics.horizontalAdvance(QStringLiteral("Probability of containment")));
    EXPECT_GE(grid->horizontalHeader()->height(), 3 * metrics.height());
}

TEST_F(GridTest, ColumnWidths_StartAsToldAndHoldTheLongestFigure)
{
    grid->Fill([](platform::GridContents& contents) {
        contents.SetColWidth(1, 3000);
        contents.SetColWidth(2, 300);
    });
    EXPECT_EQ(grid->columnWidth(1), Theme::Pixels(3000));
    grid->SetText(2, 2, "123,456,789.25");
    EXPECT_GE(grid->columnWidth(2), grid->fontMetrics().horizontalAdvance(QStringLiteral("123,456,789.25")));
}

TEST_F(GridTest, StretchColumn_TakesTheWidthLeftOver)
{
    int width = 0;
    for (int column = 0; column < 5; ++column)
        width += grid->columnWidth(column);
    EXPECT_EQ(width, grid->viewport()->width());
    EXPECT_FALSE(grid->horizontalScrollBar()->isVisible());
    form.resize(200, 400);
    Settle();
    EXPECT_TRUE(grid->horizontalScrollBar()->isVisible());
}

TEST_F(GridTest, NarrowView_SqueezesTextsBeforeItScrolls)
{
    grid->Fill([](platform::GridContents& contents) {
        contents.SetColWidth(0, 3600); // 240 pixels
        contents.SetText(1, 0, "Confine on Wagon Road and Divide Ridge");
    });
    form.resize(420, 400);
    Settle();
    EXPECT_FALSE(grid->horizontalScrollBar()->isVisible());
    EXPECT_LT(grid->columnWidth(0), Theme::Pixels(3600));
    EXPECT_GE(grid->columnWidth(2), grid->fontMetrics().horizontalAdvance(QStringLiteral("400")));
    EXPECT_GT(grid->rowHeight(0), grid->rowHeight(2)) << "the label must break into lines";
    form.resize(900, 400);
    Settle();
    EXPECT_GE(grid->columnWidth(0), Theme::Pixels(3600));
}

TEST_F(GridTest, LabelOf300Characters_IsShownInLinesAndWhole)
{
    const std::string words = [] {
        std::string text;
        while (text.size() < 300)
            text += "hold the ridge ";
        return text;
    }();
    const std::string oneWord(300, 'm');
    const int plain = grid->rowHeight(2);
    grid->SetText(3, 1, words);
    const int inLines = grid->rowHeight(2);
    EXPECT_GT(inLines, 5 * plain);
    EXPECT_LT(grid->columnWidth(1), form.width() / 2);
    grid->SetText(3, 1, oneWord);
    EXPECT_GT(grid->rowHeight(2), plain);
    EXPECT_EQ(Read(3, 1).size(), 300);
    grid->SetText(3, 1, "B");
    EXPECT_EQ(grid->rowHeight(2), plain);
}

TEST_F(GridTest, Formats_ShowFiguresAndLeaveOtherTexts)
{
    grid->SetColFormat(2, "$#,0");
    grid->SetText(1, 2, "1234567.5");
    grid->SetText(2, 2, "-40");
    grid->SetText(3, 2, "none");
    EXPECT_EQ(Read(1, 2), QStringLiteral("$1,234,568"));
    EXPECT_EQ(Read(2, 2), QStringLiteral("-$40"));
    EXPECT_EQ(Read(3, 2), QStringLiteral("none"));
    EXPECT_EQ(grid->Text(1, 2), "1234567.5");
    grid->SetText(1, 2, "9e999");
    EXPECT_EQ(Read(1, 2), QStringLiteral("9e999"));
    grid->SetColFormat(2, "#");
    EXPECT_EQ(Head(2), QStringLiteral("Acres"));
}

TEST_F(GridTest, Value_IsTheNumberTheTextBeginsWith)
{
    const std::vector<std::pair<const char*, Double>> cases = {
        {"$1,234", 1234}, {"12 engines", 12}, {"", 0}, {"many", 0}, {" 7.5", 7.5}, {"-3", -3}, {"9e999", 0}};
    for (const auto& [text, value] : cases) {
        grid->SetText(1, 2, text);
        EXPECT_EQ(grid->Value(1, 2), value) << text;
    }
}

TEST_F(GridTest, SortNumeric_KeepsTheOrderOfEqualOnesAndTheCurrentRow)
{
    grid->SetText(1, 2, "30");
    grid->SetText(2, 2, "4");
    grid->SetText(3, 2, "30");
    grid->SetText(4, 2, "4");
    grid->SetCellBackColor(1, 1, Qt::yellow);
    grid->Select(1, 2);
    Taken();
    grid->SortNumeric(2);
    std::vector<int> objects;
    for (Long row = 1; row <= 4; ++row)
        objects.push_back(*grid->RowObject<std::shared_ptr<int>>(row));
    EXPECT_EQ(objects, (std::vector<int>{2, 4, 1, 3}));
    EXPECT_EQ(grid->Row(), 3);
    EXPECT_EQ(Taken(), Log{});
    EXPECT_EQ(AccessibleText(3, 4), QStringLiteral("50 %"));
    EXPECT_EQ(grid->columnSpan(1, 0), 2); // the merged row went along
    EXPECT_EQ(grid->columnSpan(3, 0), 1);
}

TEST_F(GridTest, RemoveItem_TheRowThatTakesItsPlaceIsCurrent)
{
    grid->Select(2, 1);
    Taken();
    grid->RemoveItem(2);
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(grid->Text(2, 0), "B");
    EXPECT_EQ(grid->currentIndex().row(), 1);
    grid->RemoveItem(1);
    EXPECT_EQ(grid->Row(), 1);
    grid->RemoveItem(2);
    grid->RemoveItem(1);
    EXPECT_EQ(grid->Row(), 0); // the header is left
    EXPECT_EQ(Taken(), Log{});
    EXPECT_THROW(grid->RemoveItem(1), platform::OutOfBounds);
}

TEST_F(GridTest, RemoveItem_TintsAndBarsGoWithTheirRows)
{
    grid->SetCellBackColor(2, 1, Qt::yellow);
    grid->RemoveItem(1);
    EXPECT_EQ(AccessibleText(1, 4), QStringLiteral("60 %"));
    const QImage picture = grid->viewport()->grab().toImage();
    EXPECT_EQ(picture.pixelColor(PointIn(1, 1, 0.95)), QColor(Qt::yellow));
}

TEST_F(GridTest, Fill_KeepsTheCurrentCellWhereThereIsOne)
{
    grid->Select(3, 4);
    Taken();
    grid->Fill([](platform::GridContents& contents) { contents.SetRows(3); });
    EXPECT_EQ(grid->Row(), 2);
    EXPECT_EQ(grid->Col(), 4);
    EXPECT_EQ(grid->currentIndex().row(), 1);
    grid->Fill([](platform::GridContents& contents) { contents.SetRows(1); });
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_FALSE(grid->currentIndex().isValid());
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(GridTest, FillThatThrows_ShowsWhatItDid)
{
    EXPECT_THROW(grid->Fill([](platform::GridContents& contents) {
        contents.SetRows(2);
        throw platform::Overflow("rows");
    }),
                 platform::Overflow);
    EXPECT_EQ(grid->Rows(), 2);
    EXPECT_EQ(grid->model()->rowCount(), 1);
    ClickOn(1, 1);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(GridTest, NoRowsNoColumns_NothingGoesWrong)
{
    platform::Grid empty(QStringLiteral("Grid2"), QStringLiteral("Empty"), nullptr);
    empty.show();
    empty.setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Tab, Qt::Key_F2, Qt::Key_Delete, Qt::Key_5, Qt::Key_End})
        QTest::keyClick(&empty, key);
    QTest::mouseClick(empty.viewport(), Qt::LeftButton, {}, QPoint(5, 5));
    empty.SetStretchCol(2);
    empty.SetEditable(1, true);
    empty.EditCell();
    empty.SortNumeric(0);
    Settle();
    EXPECT_EQ(empty.Row(), 0);
    EXPECT_EQ(empty.EditText(), "");
    empty.Fill([](platform::GridContents& contents) {
        contents.SetCols(2);
        contents.SetFixedRows(1);
        contents.AddItem("Item name\tLoss"); // a header and nothing below
    });
    QTest::keyClick(&empty, Qt::Key_Down);
    QTest::keyClick(&empty, Qt::Key_Tab);
    EXPECT_EQ(empty.Row(), 0);
    EXPECT_FALSE(empty.grab().isNull());
}

TEST_F(GridTest, NoRows_SayInASentenceWhatGoesThere)
{
    const QString sentence = QStringLiteral("No items yet. Add Item makes the first one.");
    grid->SetEmptyText(sentence);
    grid->Fill([](platform::GridContents& contents) { contents.SetRows(1); });
    const QImage withSentence = grid->viewport()->grab().toImage();
    grid->SetEmptyText(QString());
    EXPECT_NE(grid->viewport()->grab().toImage(), withSentence);
    grid->SetEmptyText(sentence);
    EXPECT_EQ(grid->accessibleDescription(), sentence);
}

TEST_F(GridTest, ScreenReader_ReadsWhatIsShown)
{
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(grid);
    EXPECT_EQ(table->text(QAccessible::Name), QStringLiteral("Ratings"));
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_EQ(Table()->rowCount(), 4);
    EXPECT_EQ(Table()->columnDescription(3), QStringLiteral("Score"));
    EXPECT_EQ(Read(3, 2), QStringLiteral("300"));
    grid->Select(2, 1);
    EXPECT_TRUE(Table()->cellAt(1, 1)->state().focusable);
}

TEST_F(GridTest, ScreenReaderMovesTheCurrentCell_TheEventsAreRaised)
{
    grid->setCurrentIndex(grid->model()->index(2, 1));
    EXPECT_EQ(Taken(), (Log{"Leave 0,0", "Enter 3,1"}));
}

TEST_F(GridTest, FocusComesIn_ChoosesNoCell)
{
    grid->setFocus(Qt::TabFocusReason);
    Settle();
    EXPECT_EQ(grid->Row(), 0);
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(GridTest, Tints_AreAsToldOnLightAndReadableOnDark)
{
    const QPalette light(QColor(0xef, 0xef, 0xef));
    const QPalette dark = Theme::DarkPalette();
    const QColor own = platform::GridLooks::Ground(dark, QColor(), false);
    std::vector<QColor> grounds;
    for (const QColor& tint :
         {QColor(192, 255, 192), QColor(255, 255, 224), QColor(255, 255, 0), QColor(192, 192, 192)}) {
        EXPECT_EQ(platform::GridLooks::Ground(light, tint, false), tint);
        EXPECT_GE(Theme::Contrast(platform::GridLooks::TextOn(light, tint, true), tint), 4.5);
        const QColor ground = platform::GridLooks::Ground(dark, tint, false);
        EXPECT_TRUE(Theme::IsDark(QPalette(ground, ground))) << tint.name().toStdString();
        EXPECT_GE(Theme::Contrast(platform::GridLooks::TextOn(dark, ground, true), ground), 4.5);
        EXPECT_GE(Theme::Contrast(ground, own), 1.1) << tint.name().toStdString();
        for (const QColor& other : grounds)
            EXPECT_NE(ground, other);
        grounds.push_back(ground);
    }
    EXPECT_EQ(platform::GridLooks::Ground(dark, Qt::white, false), own);
}

TEST_F(GridTest, Disabled_ReadsFainterButReads)
{
    for (const QPalette& palette : {QPalette(QColor(0xef, 0xef, 0xef)), Theme::DarkPalette()}) {
        const QColor ground = platform::GridLooks::Ground(palette, QColor(192, 255, 192), false);
        const QColor faint = platform::GridLooks::TextOn(palette, ground, false);
        EXPECT_GE(Theme::Contrast(faint, ground), 4.5);
        EXPECT_LT(Theme::Contrast(faint, ground),
                  Theme::Contrast(platform::GridLooks::TextOn(palette, ground, true), ground));
    }
}

TEST_F(GridTest, CurrentRow_IsMarkedWithTheAccent)
{
    const auto mark = [this](Long row) {
        return grid->viewport()->grab().toImage().pixelColor(1, PointIn(row, 0).y());
    };
    grid->Select(2, 1);
    EXPECT_EQ(mark(2), Theme::Accent(grid->palette()));
    EXPECT_NE(mark(3), Theme::Accent(grid->palette()));
    grid->SetRow(0);
    EXPECT_NE(mark(2), Theme::Accent(grid->palette()));
}

TEST_F(GridTest, ManyRows_TheCurrentOneIsScrolledIntoView)
{
    grid->Fill([](platform::GridContents& contents) {
        for (int row = 0; row < 300; ++row)
            contents.AddItem("C\tTarget\t1\t2\t");
    });
    grid->Select(304, 3);
    Settle();
    EXPECT_LT(grid->rowViewportPosition(303), grid->viewport()->height());
    EXPECT_EQ(grid->rowSpan(4, 0), 300);
    EditAt(304, 3);
    EXPECT_TRUE(grid->viewport()->rect().contains(Editor()->geometry()));
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->value() - 5);
    EXPECT_EQ(Editor()->y(), grid->rowViewportPosition(303));
}

TEST_F(GridTest, LargerFont_GrowsRowsHeadsAndColumns)
{
    const int row = grid->rowHeight(0);
    const int head = grid->horizontalHeader()->height();
    grid->SetText(1, 0, "An alternative");
    const int column = grid->columnWidth(0);
    grid->setFont(Theme::Sized(grid->font(), 2));
    Settle();
    EXPECT_GT(grid->columnWidth(0), column);
    EXPECT_GT(grid->rowHeight(0), row);
    EXPECT_GT(grid->horizontalHeader()->height(), head);
}

TEST_F(GridTest, ColumnsToldBeforeTheyAreThere_AreAsTold)
{
    platform::Grid late(QStringLiteral("Grid2"), QStringLiteral("Late"), nullptr);
    late.SetColFormat(1, "$#,0");
    late.SetMergeCol(0, true);
    late.SetEditable(1, true);
    late.Fill([](platform::GridContents& contents) {
        contents.SetCols(2);
        contents.AddItem("A\t1000");
        contents.AddItem("A\t2000");
    });
    EXPECT_EQ(late.rowSpan(0, 0), 2);
    EXPECT_EQ(late.model()->index(0, 1).data().toString(), QStringLiteral("$1,000"));
    EXPECT_TRUE(late.model()->index(0, 1).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(late.model()->index(0, 0).flags().testFlag(Qt::ItemIsEditable));
}

} // namespace
