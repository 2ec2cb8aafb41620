#include "platform/widgets/EditCommands.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

#include <algorithm>

namespace platform::EditCommands {

namespace {

QString ClipboardText() { return QGuiApplication::clipboard()->text(); }

/// False: there is nothing to put there.
bool ToClipboard(const QString& text)
{
    if (text.isEmpty()) return false;
    QGuiApplication::clipboard()->setText(text);
    return true;
}

QModelIndexList SelectedCells(const QAbstractItemView& grid)
{
    if (grid.selectionModel() == nullptr) return {};
    QModelIndexList cells = grid.selectionModel()->selectedIndexes();
    std::sort(cells.begin(), cells.end()); // by row, then column
    return cells;
}

/// The cells' texts: tabs within a row, line ends between rows.
QString ClipOf(const QAbstractItemView& grid)
{
    QString text;
    int row = -1;
    for (const QModelIndex& cell : SelectedCells(grid)) {
        if (row >= 0) text += QLatin1Char(cell.row() == row ? '\t' : '\n');
        text += cell.data(Qt::DisplayRole).toString();
        row = cell.row();
    }
    return text;
}

void EmptyCells(const QAbstractItemView& grid)
{
    for (const QModelIndex& cell : SelectedCells(grid)) {
        if (cell.flags().testFlag(Qt::ItemIsEditable)) grid.model()->setData(cell, QString());
    }
}

QString SelText(const QPlainTextEdit& box)
{
    return box.textCursor().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

/// The control that counts: a view's viewport stands for its view.
QWidget* ControlOf(QWidget* control)
{
    if (control == nullptr || control->parentWidget() == nullptr) return control;
    auto* area = qobject_cast<QAbstractScrollArea*>(control->parentWidget());
    return area != nullptr && area->viewport() == control ? area : control;
}

} // namespace

void Cut(QWidget* control)
{
    control = ControlOf(control);
    if (auto* line = qobject_cast<QLineEdit*>(control)) {
        if (ToClipboard(line->selectedText()) && !line->isReadOnly()) line->insert(QString());
    } else if (auto* box = qobject_cast<QPlainTextEdit*>(control)) {
        if (ToClipboard(SelText(*box)) && !box->isReadOnly()) box->insertPlainText(QString());
    } else if (auto* rich = qobject_cast<QTextEdit*>(control)) {
        rich->cut();
    } else if (auto* grid = qobject_cast<QAbstractItemView*>(control)) {
        if (ToClipboard(ClipOf(*grid))) EmptyCells(*grid);
    }
}

void Copy(QWidget* control)
{
    control = ControlOf(control);
    if (const auto* line = qobject_cast<QLineEdit*>(control)) {
        ToClipboard(line->selectedText());
    } else if (const auto* box = qobject_cast<QPlainTextEdit*>(control)) {
        ToClipboard(SelText(*box));
    } else if (auto* rich = qobject_cast<QTextEdit*>(control)) {
        rich->copy();
    } else if (const auto* grid = qobject_cast<QAbstractItemView*>(control)) {
        ToClipboard(ClipOf(*grid));
    }
}

void Paste(QWidget* control)
{
    control = ControlOf(control);
    if (auto* line = qobject_cast<QLineEdit*>(control)) {
        if (!line->isReadOnly()) line->insert(ClipboardText());
    } else if (auto* box = qobject_cast<QPlainTextEdit*>(control)) {
        if (!box->isReadOnly()) box->insertPlainText(ClipboardText());
    } else if (auto* rich = qobject_cast<QTextEdit*>(control)) {
        rich->paste();
    }
}

} // namespace platform::EditCommands
