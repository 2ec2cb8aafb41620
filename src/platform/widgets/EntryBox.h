#pragma once

#include <QLineEdit>
#include <QList>

namespace platform {

/// A text box of a form that is filled in from field to field: some keys lead on to a successor, and entering
/// it may select all it holds. Takes texts of any length.
class EntryBox : public QLineEdit
{
    Q_OBJECT

public:
    EntryBox(const QString& name, QWidget* parent);

    /// Each of these keys, pressed alone, moves the focus to the successor and goes no further. Held with
    /// Shift, Control or Alt a key keeps its meaning within the box. The Enter of the number pad is Enter.
    void LeadTo(QWidget* successor, const QList<Qt::Key>& keys);
    /// By key, by mouse or by a call: the whole content is selected when the box is entered. Coming back from
    /// a menu or from another window is no entering.
    void SelectWholeOnEntry() { m_selectsWhole = true; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QWidget* m_successor = nullptr;
    QList<Qt::Key> m_onward;
    bool m_selectsWhole = false;
    bool m_enteredByMouse = false; // the button is still down
};

} // namespace platform
