// The keys of a grid whose cell is not being edited.
#include "platform/widgets/Application.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/GridEditor.h"
#include "platform/widgets/GridModel.h"

#include <QKeyEvent>
#include <QPointer>

#include <algorithm>

namespace platform {

namespace {

constexpr int kWholeBar = 10; // steps

} // namespace

bool Grid::HasBar(Long row, Long column) const
{
    return IsCell(row, column) && m_model->CellAt(row, column).bar >= 0.0;
}

bool Grid::HasEditable() const
{
    for (Long column = 0; column < Cols(); ++column) {
        if (m_model->ColumnAt(column).editable) return true;
    }
    return false;
}

bool Grid::event(QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers().testFlag(Qt::ControlModifier) && LeaveByKey(key->key())) return true;
        const bool forward = key->key() == Qt::Key_Tab && key->modifiers() == Qt::NoModifier;
        if ((forward || key->key() == Qt::Key_Backtab) && MoveToEditable(forward)) return true;
    }
    return QTableView::event(event);
}

bool Grid::LeaveByKey(int key)
{
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab) return false;
    const QPointer<Grid> here(this);
    FinishEdit();
    if (!here.isNull()) focusNextPrevChild(key == Qt::Key_Tab);
    return true;
}

void Grid::LeaveByTab(bool forward)
{
    const QPointer<Grid> here(this);
    FinishEdit();
    if (!here.isNull() && !MoveToEditable(forward)) focusNextPrevChild(forward);
}

bool Grid::MoveToEditable(bool forward)
{
    const int step = forward ? 1 : -1;
    const int end = Rows() * Cols();
    int cell = m_row * Cols() + m_column + step;
    if (m_row < FirstRow()) cell = forward ? FirstRow() * Cols() : -1;
    for (; cell >= FirstRow() * Cols() && cell < end; cell += step) {
        if (!m_model->ColumnAt(cell % Cols()).editable) continue;
        MoveTo(cell / Cols(), cell % Cols());
        return true;
    }
    return false;
}

void Grid::keyPressEvent(QKeyEvent* event)
{
    bool swallow = false;
    const QPointer<Grid> here(this);
    Raise([&] { Q_EMIT KeyDown(event->key(), swallow); });
    if (swallow || here.isNull()) return event->accept();
    event->setAccepted(StepBar(event->key()) || MoveByKey(*event) || EditByKey(*event));
}

bool Grid::StepBar(int key)
{
    if (!HasBar(m_row, m_column)) return false;
    int steps = 0;
    switch (key) {
    case Qt::Key_Left: steps = -1; break;
    case Qt::Key_Right: steps = 1; break;
    case Qt::Key_Home: steps = -kWholeBar; break;
    case Qt::Key_End: steps = kWholeBar; break;
    default: return false;
    }
    Raise([&] { Q_EMIT BarStep(steps); });
    return true;
}

bool Grid::MoveByKey(const QKeyEvent& event)
{
    const Long first = FirstRow();
    const Long last = Rows() - 1;
    if (last < first || Cols() == 0) return false;
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const Long page = std::max(1, viewport()->height() / std::max(1, rowHeight(0)) - 1);
    Long row = m_row;
    Long column = m_column;
    switch (event.key()) {
    case Qt::Key_Up: row -= 1; break;
    case Qt::Key_Down: row += 1; break;
    case Qt::Key_PageUp: row -= page; break;
    case Qt::Key_PageDown: row += page; break;
    case Qt::Key_Left: column -= 1; break;
    case Qt::Key_Right: column += 1; break;
    case Qt::Key_Home: control ? row = first : column = 0; break;
    case Qt::Key_End: control ? row = last : column = Cols() - 1; break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!HasEditable()) return false;
        row += 1;
        break;
    default: return false;
    }
    MoveTo(std::clamp(row, first, last), std::clamp(column, 0, Cols() - 1));
    return true;
}

bool Grid::EditByKey(QKeyEvent& event)
{
    const bool erases = event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
    const bool wanted = event.key() == Qt::Key_F2 || erases || TypesText(event);
    if (!wanted || !IsCell(m_row, m_column) || !m_model->ColumnAt(m_column).editable) return false;
    if (event.key() == Qt::Key_Delete) {
        Enter(m_row, m_column, QString());
    } else if (OpenEditor() && event.key() != Qt::Key_F2) {
        QCoreApplication::sendEvent(m_editor, &event);
    }
    return true;
}

} // namespace platform
