#pragma once

#include "platform/widgets/Grid.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

/// What a user does on a grid. Rows count the header, as the grid counts them.
class GridHands
{
public:
    explicit GridHands(platform::Grid& grid) : m_grid(grid) {}

    std::string Text(Long row, Long column) const { return m_grid.Text(row, column); }
    /// As displayed, in the column's format.
    std::string Shown(Long row, Long column) const
    {
        return Index(row, column).data(Qt::DisplayRole).toString().toStdString();
    }
    /// What a screen reader says of a bar ("70 %").
    std::string BarSays(Long row, Long column) const
    {
        return Index(row, column).data(Qt::AccessibleTextRole).toString().toStdString();
    }
    /// The texts of a column below the header.
    std::vector<std::string> Column(Long column) const
    {
        std::vector<std::string> texts;
        for (Long row = 1; row < m_grid.Rows(); ++row)
            texts.push_back(Text(row, column));
        return texts;
    }

    QPoint At(Long row, Long column, double place = 0.5) const
    {
        const QRect cell = m_grid.visualRect(Index(row, column));
        const int across = static_cast<int>(std::lround(place * cell.width()));
        return {cell.left() + across, cell.center().y()};
    }
    void Click(Long row, Long column)
    {
        m_grid.scrollTo(Index(row, column));
        QTest::mouseClick(m_grid.viewport(), Qt::LeftButton, {}, At(row, column));
        QCoreApplication::processEvents();
    }
    /// From a place on one cell to a place on another, the button held.
    void Drag(Long row, Long column, double from, double to)
    {
        Drag(At(row, column, from), At(row, column, to));
    }
    void Drag(const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(m_grid.viewport(), Qt::LeftButton, {}, from);
        QTest::mouseMove(m_grid.viewport(), to);
        QTest::mouseRelease(m_grid.viewport(), Qt::LeftButton, {}, to);
        QCoreApplication::processEvents();
    }
    /// Clicks a cell and types over what stands in it; the editor stays open.
    void Type(Long row, Long column, const char* text)
    {
        Click(row, column);
        TypeOver(text);
    }
    /// Types over what stands in the open editor.
    void TypeOver(const char* text)
    {
        ASSERT_TRUE(m_grid.IsEditing());
        Key(Qt::Key_A, Qt::ControlModifier);
        if (*text == '\0') Key(Qt::Key_Delete);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    }
    /// A key for whatever has the focus.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QCoreApplication::processEvents();
    }

private:
    QModelIndex Index(Long row, Long column) const
    {
        return m_grid.model()->index(row - m_grid.Contents().FixedRows(), column);
    }

    platform::Grid& m_grid;
};
