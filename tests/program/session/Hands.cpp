#include "program/session/Hands.h"

#include "platform/widgets/TabStrip.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <stdexcept>

namespace {

QWidget& Focused()
{
    QWidget* focused = QApplication::focusWidget();
    if (focused == nullptr) throw std::logic_error("nothing has the focus");
    return *focused;
}

} // namespace

void Hands::Missing(const std::string& what) { throw std::logic_error("there is no " + what); }

void Hands::Click(QWidget& control, QPoint place)
{
    // No window manager gives the keys back here when a box is closed.
    if (!m_window.isActiveWindow()) {
        m_window.activateWindow();
        if (!QTest::qWaitForWindowActive(&m_window)) throw std::logic_error("the window does not come up");
    }
    QTest::mouseClick(&control, Qt::LeftButton, {}, place);
    QCoreApplication::processEvents();
}

void Hands::ClickTab(const char* strip, int number)
{
    auto& tabs = Find<platform::TabStrip>(strip);
    const int index = tabs.IndexOf(number);
    if (index < 0) Missing(std::string(strip) + " " + std::to_string(number));
    Click(tabs, tabs.tabRect(index).center());
}

void Hands::GoTo(int section, int worksheet)
{
    ClickTab("vsTab1", section);
    ClickTab("vsTab2", worksheet);
}

void Hands::Press(const char* button) { Click(Find<QPushButton>(button)); }

void Hands::ClickRow(const char* list, int row)
{
    auto& box = Find<platform::ListBox>(list);
    QListWidgetItem* item = box.item(row);
    if (item == nullptr) Missing(std::string(list) + " " + std::to_string(row));
    box.scrollToItem(item);
    Click(*box.viewport(), box.visualItemRect(item).center());
}

void Hands::ClickCell(const char* grid, Long row, Long column)
{
    auto& cells = Find<platform::Grid>(grid);
    const Long place = row == kLastRow ? cells.Rows() - 1 : row;
    const QModelIndex index = cells.model()->index(place - cells.Contents().FixedRows(), column);
    if (!index.isValid()) Missing(std::string(grid) + " " + std::to_string(row));
    cells.scrollTo(index);
    Click(*cells.viewport(), cells.visualRect(index).center());
}

void Hands::Type(const QString& text)
{
    QTest::keyClick(&Focused(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&Focused(), text);
    QCoreApplication::processEvents();
}

void Hands::Write(const char* name, const QString& text)
{
    auto& control = Find<QWidget>(name);
    auto* area = qobject_cast<QAbstractScrollArea*>(&control);
    Click(area == nullptr ? control : *area->viewport());
    if (!control.hasFocus()) throw std::logic_error(std::string(name) + " takes no keys");
    Type(text);
}

void Hands::WriteCell(const char* grid, Long row, Long column, const QString& text)
{
    ClickCell(grid, row, column);
    if (!Find<platform::Grid>(grid).IsEditing()) throw std::logic_error(std::string(grid) + " edits no cell");
    Type(text);
}
