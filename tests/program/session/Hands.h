#pragma once

#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "worksheets/frm0_VEXA.h"

#include <QString>

/// What a user does in the program's window, with mouse and keys. Throws std::logic_error where a control is
/// missing or a key goes nowhere: a script that no longer fits the window is not to pass in silence.
class Hands
{
public:
    static constexpr Long kLastRow = -1;

    explicit Hands(frm0_VEXA& window) : m_window(window) {}

    template <class Control> Control& Find(const char* name)
    {
        auto* found = m_window.findChild<Control*>(QString::fromUtf8(name));
        if (found == nullptr) Missing(name);
        return *found;
    }
    /// By clicks on both strips.
    void GoTo(int section, int worksheet);
    void ClickTab(const char* strip, int number);
    void Press(const char* button);
    void ClickRow(const char* list, int row);
    /// A row as the grid counts it, header rows too; kLastRow: the last one.
    void ClickCell(const char* grid, Long row, Long column);
    /// Clicks a control and types over what it holds.
    void Write(const char* name, const QString& text);
    /// Clicks a cell and types over what it holds; the editor stays open.
    void WriteCell(const char* grid, Long row, Long column, const QString& text);
    /// Types into whatever has the focus.
    static void Type(const QString& text);

private:
    [[noreturn]] static void Missing(const std::string& what);
    void Click(QWidget& control, QPoint place = QPoint());

    frm0_VEXA& m_window;
};
