// The edit of a grid's current cell: from the wish to the text in the cell.
#include "platform/widgets/Application.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/GridEditor.h"
#include "platform/widgets/GridModel.h"

#include <QPointer>

namespace platform {

bool Grid::MayEdit() const { return !IsBusy() && isVisible() && isEnabled() && IsCell(m_row, m_column); }

void Grid::EditCell()
{
    if (IsBusy() || !IsCell(m_row, m_column)) return;
    m_askedFor = {m_row, m_column, 0.0F};
    if (m_editAsked) return;
    m_editAsked = true;
    // Queued: the press or key that asks for it ends before the editor takes the focus.
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_editAsked = false;
            if (m_askedFor == Spot{m_row, m_column, 0.0F}) OpenEditor();
        },
        Qt::QueuedConnection);
}

bool Grid::OpenEditor()
{
    if (m_editing) return true;
    if (!MayEdit()) return false;
    m_longest = 0;
    bool cancel = false;
    const int move = m_moves;
    if (!Raise([&] { Q_EMIT BeforeEdit(m_row, m_column, cancel); })) return false;
    if (cancel || m_moves != move || !MayEdit()) return false;
    ShowEditor();
    return true;
}

void Grid::ShowEditor()
{
    m_editing = true;
    m_oldText = Text(m_row, m_column);
    const QModelIndex cell = m_model->IndexOf(m_row, m_column);
    m_editor->setAccessibleName(EditorName());
    m_editor->setFont(font());
    m_editor->setAlignment(Qt::Alignment(m_model->data(cell, Qt::TextAlignmentRole).toInt()));
    SetEditMaxLength(m_longest);
    m_editor->Begin(QString::fromStdString(m_oldText), m_longest);
    scrollTo(cell);
    PlaceEditor();
    m_editor->show();
    m_editor->raise();
    m_editor->setFocus(Qt::OtherFocusReason);
    m_editor->selectAll();
}

QString Grid::EditorName() const
{
    QStringList name{m_model->Head(m_column)};
    for (Long column = 0; column < m_column && name.size() < 3; ++column)
        name << m_model->CellAt(m_row, column).shown.simplified();
    name.removeAll(QString());
    return name.isEmpty() ? accessibleName() : name.join(QLatin1String(", "));
}

void Grid::PlaceEditor()
{
    if (!m_editing) return;
    m_editor->setGeometry(columnViewportPosition(m_column),
                          rowViewportPosition(m_row - FirstRow()),
                          columnWidth(m_column) - 1,
                          rowHeight(m_row - FirstRow()) - 1);
}

bool Grid::IsEditing() const { return m_editing; }

std::string Grid::EditText() const
{
    if (m_editing) return m_editor->text().toStdString();
    return m_row < Rows() && m_column < Cols() ? Text(m_row, m_column) : std::string();
}

void Grid::SetEditText(const std::string& text)
{
    if (m_editing) m_editor->setText(QString::fromStdString(text));
}

void Grid::SetEditMaxLength(int characters)
{
    m_longest = characters;
    if (m_editing) m_editor->SetLongest(characters);
    if (characters > m_model->ColumnAt(m_column).longestEntry) SetLongestEntry(m_column, characters);
}

void Grid::FinishEdit()
{
    if (!m_editing) return;
    m_editing = false;
    const Long row = m_row;
    const Long column = m_column;
    SetText(row, column, m_editor->text().toStdString());
    CloseEditor();
    Raise([=, this] { Q_EMIT AfterEdit(row, column); });
}

void Grid::DropEdit()
{
    if (!m_editing) return;
    m_editing = false;
    CloseEditor();
}

void Grid::CloseEditor()
{
    if (m_editor->hasFocus()) setFocus(Qt::OtherFocusReason);
    m_editor->hide();
}

void Grid::Revert()
{
    m_editor->PutBack(QString::fromStdString(m_oldText));
    if (Raise([this] { Q_EMIT ChangeEdit(); })) FinishEdit();
}

void Grid::FollowEditor(int way)
{
    const QPointer<Grid> here(this);
    switch (static_cast<GridEditor::Way>(way)) {
    case GridEditor::Way::Back: return Revert();
    case GridEditor::Way::Up:
        if (m_row > FirstRow()) MoveTo(m_row - 1, m_column);
        return;
    case GridEditor::Way::Down:
        FinishEdit();
        if (!here.isNull() && m_row + 1 < Rows()) MoveTo(m_row + 1, m_column);
        return;
    case GridEditor::Way::Next: return LeaveByTab(true);
    case GridEditor::Way::Previous: return LeaveByTab(false);
    }
}

void Grid::FocusGone(Qt::FocusReason reason)
{
    const bool comesBack = reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
                           reason == Qt::MenuBarFocusReason;
    if (comesBack) return;
    const QWidget* now = QApplication::focusWidget();
    if (now != nullptr && (now == this || isAncestorOf(now))) return;
    const QPointer<Grid> here(this);
    FinishEdit();
    if (!here.isNull()) Raise([this] { Q_EMIT LostFocus(); });
}

void Grid::Enter(Long row, Long column, const QString& text)
{
    const QPointer<Grid> here(this);
    MoveTo(row, column);
    if (here.isNull() || m_row != row || m_column != column || !OpenEditor()) return;
    m_editor->selectAll();
    m_editor->insert(text);
    if (!here.isNull()) FinishEdit();
}

} // namespace platform
