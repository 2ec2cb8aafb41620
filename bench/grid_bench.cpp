// What a key costs in an edited cell of the grid, whose handler sets a bar and a text at each key, against
// the same key in an edited cell of a bare table of that size; and what filling the grid costs, its bars and
// merged neighbours too, against filling the bare table. Both get the same by turns, each with the drawing
// that follows.

#include "Measure.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/Grid.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableWidget>

#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int kRows = 81;
constexpr int kColumns = 5;
constexpr int kKeys = 400;
constexpr int kFills = 60;
constexpr double kKeyAllowed = 2.0;
constexpr double kFillAllowed = 3.0;

std::string TextAt(int row, int column)
{
    switch (column) {
    case 0: return "Alternative " + std::to_string(row / 2);
    case 1: return row % 2 == 0 ? "Target" : "Fallback";
    case 2: return std::to_string(100 * row);
    case 3: return std::to_string(row % 10);
    default: return {};
    }
}

void Fill(platform::Grid& grid)
{
    grid.Fill([](platform::GridContents& contents) {
        contents.SetRows(0);
        contents.SetCols(kColumns);
        contents.SetFixedRows(1);
        contents.AddItem("Alternative\tOutcome\tAcres\tScore\tRating");
        for (int row = 0; row < kRows; ++row) {
            std::string texts;
            for (int column = 0; column < kColumns; ++column)
                texts += (column == 0 ? "" : "\t") + TextAt(row, column);
            contents.AddItem(texts);
        }
    });
    for (int row = 1; row <= kRows; ++row)
        grid.SetBar(row, 4, 10 * (row % 10));
}

void Fill(QTableWidget& table)
{
    table.clearContents();
    table.setRowCount(0);
    table.setColumnCount(kColumns);
    table.setRowCount(kRows);
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column)
            table.setItem(row, column, new QTableWidgetItem(QString::fromStdString(TextAt(row, column))));
    }
}

/// The layout that waits for a timer, the drawing that waits for the layout.
void Settle()
{
    for (int round = 0; round < 3; ++round)
        QApplication::processEvents();
}

double CostOf(const std::function<void()>& work)
{
    return bench::Milliseconds([&] {
        work();
        Settle();
    });
}

/// A drawing that waited for a timer would fall into the other table's turn.
void DrawAtOnce(QTableView& table)
{
    table.horizontalHeader()->viewport()->repaint();
    table.viewport()->repaint();
}

/// Digits by turns with the key that takes them away again.
void Key(QWidget* edit, int number)
{
    const bool digit = number % 2 == 0;
    const int key = digit ? Qt::Key_7 : Qt::Key_Backspace;
    const QString text = digit ? QStringLiteral("7") : QString();
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(edit, &press);
    QApplication::sendEvent(edit, &release);
}

void Compare(const char* what,
             int times,
             double allowed,
             const std::function<void(int)>& ours,
             const std::function<void(int)>& bare)
{
    std::vector<double> oursCosts;
    std::vector<double> bareCosts;
    for (int turn = 0; turn < times; ++turn) {
        bareCosts.push_back(CostOf([&] { bare(turn); }));
        oursCosts.push_back(CostOf([&] { ours(turn); }));
    }
    bench::PrintMedians(what, oursCosts, bareCosts, allowed);
}

QLineEdit* OpenEditor(QTableWidget& table, int row, int column)
{
    table.setCurrentCell(row, column);
    table.editItem(table.item(row, column));
    QApplication::processEvents();
    return table.viewport()->findChild<QLineEdit*>();
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int toolkitArguments = std::min(argc, 1);
    platform::Application application(toolkitArguments, argv);
    platform::Grid grid(QStringLiteral("Grid1"), QStringLiteral("Ratings"), nullptr);
    grid.SetMergeCol(0, true);
    grid.SetStretchCol(4);
    grid.SetEditable(3, true);
    grid.SetLongestEntry(3, 4);
    int changes = 0;
    QObject::connect(&grid, &platform::Grid::ChangeEdit, [&] {
        const std::string text = grid.EditText();
        grid.SetBar(grid.Row(), 4, 10.0 * double(text.size()));
        grid.SetText(grid.Row(), 2, text);
        ++changes;
    });
    QTableWidget table;
    table.horizontalHeader()->setStretchLastSection(true);
    for (QWidget* window : {static_cast<QWidget*>(&grid), static_cast<QWidget*>(&table)}) {
        window->resize(640, 500);
        window->show();
    }
    const auto fillOurs = [&](int) {
        Fill(grid);
        DrawAtOnce(grid);
    };
    const auto fillBare = [&](int) {
        Fill(table);
        DrawAtOnce(table);
    };
    Compare("filling a grid of 81 rows / bare table", kFills, kFillAllowed, fillOurs, fillBare);

    QLineEdit* bare = OpenEditor(table, 4, 3);
    grid.Select(5, 3);
    grid.EditCell();
    QApplication::processEvents();
    auto* ours = grid.viewport()->findChild<QLineEdit*>();
    if (bare == nullptr || ours == nullptr || !grid.IsEditing()) return 1;
    Compare(
        "key in a grid of 81 rows / bare table",
        kKeys,
        kKeyAllowed,
        [&](int turn) { Key(ours, turn); },
        [&](int turn) { Key(bare, turn); });
    return changes == kKeys && grid.rowSpan(0, 0) == 2 ? 0 : 1;
}
