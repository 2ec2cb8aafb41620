#pragma once

#include <QLineEdit>
#include <QList>
#include <QMap>

#include <limits>

namespace platform {

/// A text box of a form that is filled in from field to field: some keys lead on to another one, and entering
/// it may select what it holds. Takes texts of any length.
class EntryBox : public QLineEdit
{
    Q_OBJECT

public:
    EntryBox(const QString& name, QWidget* parent);

    /// Each of these keys, pressed alone, moves the focus to that widget and goes no further. Held with
    /// Shift, Control or Alt a key keeps its meaning within the box. The Enter of the number pad is Enter.
    /// Called once for each widget that keys lead to.
    void LeadTo(QWidget* successor, const QList<Qt::Key>& keys);
    /// By key, by mouse or by a call: the whole content (its first character) is selected when the box is
    /// entered. Coming back from a menu or from another window is no entering.
    void SelectWholeOnEntry() { m_selectedOnEntry = kWhole; }
    void SelectFirstOnEntry() { m_selectedOnEntry = 1; }
    /// Drops every other character that is typed. Pasting, cutting and control keys pass.
    void TakeOnly(const QString& characters) { m_taken = characters; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    static constexpr int kWhole = std::numeric_limits<int>::max();

    QWidget* SuccessorAt(const QKeyEvent& event) const;
    bool Drops(const QKeyEvent& event) const;
    void SelectOnEntry();

    QMap<Qt::Key, QWidget*> m_successors;
    QString m_taken;               // empty: all that is typed
    int m_selectedOnEntry = 0;     // characters
    bool m_enteredByMouse = false; // the button is still down
};

} // namespace platform
