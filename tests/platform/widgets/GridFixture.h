#pragma once

#include "platform/widgets/Application.h"
#include "platform/widgets/Grid.h"
#include "support/ScriptedDesktop.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// A window with a grid between two boxes. Every event of the grid is logged in its order.
///
///     Label | Name | Acres | Score | Rating      (header row)
///     A     | Target   | 100 | 5 | bar 50 %
///     A     | Fallback | 200 | 6 | bar 60 %
///     B     | Target   | 300 | 7 | bar 70 %
///     Extreme Extreme  | 400 | 8 | bar 80 %      (merged across)
///
/// Column 3 is edited.
class GridFixture : public ::testing::Test
{
protected:
    using Log = std::vector<std::string>;

    GridFixture()
    {
        platform::SetDesktop(&desktop);
        platform::SetErrorGuard({[this](const std::string& cause) { errors.push_back(cause); },
                                 [this] { return busy; },
                                 [this] { busy = false; }});
        auto* column = new QVBoxLayout(&form);
        column->addWidget(before);
        column->addWidget(grid);
        column->addWidget(after);
        grid->SetEditable(3, true);
        grid->SetMergeCol(0, true);
        grid->SetStretchCol(4);
        FillRows();
        for (Long row = 1; row <= 4; ++row)
            grid->SetBar(row, 4, 40 + 10 * row);
        ConnectLog();
        form.resize(640, 400);
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        before->setFocus();
        log.clear();
    }
    ~GridFixture() override
    {
        platform::SetErrorGuard({});
        platform::SetDesktop(nullptr);
        desktop.CheckDone();
    }

    void FillRows()
    {
        grid->Fill([](platform::GridContents& contents) {
            contents.SetRows(0);
            contents.SetCols(5);
            contents.SetFixedRows(1);
            for (const char* row : {"Label\tName\tAcres\tScore\tRating",
                                    "A\tTarget\t100\t5\t",
                                    "A\tFallback\t200\t6\t",
                                    "B\tTarget\t300\t7\t",
                                    "Extreme\tExtreme\t400\t8\t"})
                contents.AddItem(row);
            contents.SetMergeRow(4, true);
            for (Long row = 1; row <= 4; ++row)
                contents.SetRowData(row, std::make_shared<int>(row));
        });
    }

    void ConnectLog()
    {
        using platform::Grid;
        const auto at = [](Long row, Long column) {
            return " " + std::to_string(row) + "," + std::to_string(column);
        };
        QObject::connect(grid, &Grid::EnterCell, [=, this] { Note("Enter" + at(grid->Row(), grid->Col())); });
        QObject::connect(grid, &Grid::LeaveCell, [=, this](Long r, Long c) { Note("Leave" + at(r, c)); });
        QObject::connect(grid, &Grid::BeforeEdit, [=, this](Long r, Long c, bool& cancel) {
            cancel = c != 3;
            grid->SetEditMaxLength(4);
            Note("Before" + at(r, c));
        });
        QObject::connect(grid, &Grid::ChangeEdit, [=, this] { Note("Change " + grid->EditText()); });
        QObject::connect(grid, &Grid::KeyPressEdit, [this](const QString& key, bool& drop) {
            drop = !key.at(0).isDigit() && key != QLatin1String(".");
            if (logsKeys) Note("Key " + key.toStdString());
        });
        QObject::connect(grid, &Grid::AfterEdit, [=, this](Long r, Long c) {
            Note("After" + at(r, c) + " " + grid->Text(r, c));
        });
        QObject::connect(grid, &Grid::Click, [this] { Note("Click"); });
        QObject::connect(grid, &Grid::LostFocus, [this] { Note("LostFocus"); });
        QObject::connect(
            grid, &Grid::MouseDown, [=, this](Long r, Long c, float) { Note("Down" + at(r, c)); });
        QObject::connect(
            grid, &Grid::MouseMove, [=, this](Long r, Long c, float) { Note("Move" + at(r, c)); });
        QObject::connect(grid, &Grid::MouseUp, [=, this](Long r, Long c, float) { Note("Up" + at(r, c)); });
        QObject::connect(grid, &Grid::BarStep, [this](int steps) { Note("Step " + std::to_string(steps)); });
    }

    /// As the worksheets have it: entering column 3 asks for its editor.
    void EditOnEntering()
    {
        QObject::connect(grid, &platform::Grid::EnterCell, [this] {
            if (grid->Col() == 3) grid->EditCell();
        });
    }

    void Note(const std::string& line) { log.push_back(line); }
    Log Taken()
    {
        Log taken;
        taken.swap(log);
        return taken;
    }
    static void Settle() { QCoreApplication::processEvents(); }

    /// The place in a cell at so much of its width.
    QPoint PointIn(Long row, Long column, double place = 0.5) const
    {
        const int first = grid->Contents().FixedRows();
        return {grid->columnViewportPosition(column) + static_cast<int>(grid->columnWidth(column) * place),
                grid->rowViewportPosition(row - first) + grid->rowHeight(row - first) / 2};
    }
    void Press(Long row, Long column, double place = 0.5)
    {
        QTest::mousePress(grid->viewport(), Qt::LeftButton, {}, PointIn(row, column, place));
    }
    void Drag(Long row, Long column, double place)
    {
        QTest::mouseMove(grid->viewport(), PointIn(row, column, place));
    }
    void Release(Long row, Long column, double place = 0.5)
    {
        QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, PointIn(row, column, place));
    }
    void ClickOn(Long row, Long column)
    {
        Press(row, column);
        Release(row, column);
        Settle();
    }
    /// A key to what has the focus.
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        Settle();
    }
    void Type(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
        Settle();
    }
    /// The current cell, its editor open.
    void EditAt(Long row, Long column)
    {
        grid->Select(row, column);
        grid->EditCell();
        Settle();
        EXPECT_TRUE(grid->IsEditing());
        log.clear();
    }
    QLineEdit* Editor() const { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    QString AccessibleText(Long row, Long column) const
    {
        return grid->model()->index(row - 1, column).data(Qt::AccessibleTextRole).toString();
    }

    support::ScriptedDesktop desktop;
    std::vector<std::string> errors;
    bool busy = false;
    bool logsKeys = false;
    Log log;
    QWidget form;
    QLineEdit* before = new QLineEdit(&form);
    platform::Grid* grid = new platform::Grid(QStringLiteral("Grid1"), QStringLiteral("Ratings"), &form);
    QLineEdit* after = new QLineEdit(&form);
};
