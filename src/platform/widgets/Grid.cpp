#include "platform/widgets/Grid.h"

#include "platform/base/Errors.h"
#include "platform/base/Texts.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/GridDelegate.h"
#include "platform/widgets/GridEditor.h"
#include "platform/widgets/GridHeader.h"
#include "platform/widgets/GridModel.h"

#include <QAccessible>
#include <QItemSelectionModel>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>
#include <numeric>

namespace platform {

namespace {

void CheckPlace(const char* what, Long index, Long count)
{
    if (index < 0 || index >= std::max(count, 1)) throw OutOfBounds(what, index);
}

} // namespace

Grid::Grid(const QString& name, const QString& accessibleName, QWidget* parent)
    : QTableView(parent), m_model(new GridModel(this)), m_header(new GridHeader(*m_model, this)),
      m_editor(new GridEditor(viewport()))
{
    setObjectName(name);
    setAccessibleName(accessibleName);
    setHorizontalHeader(m_header);
    setModel(m_model);
    setItemDelegate(new GridDelegate(*m_model, this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    setEditTriggers(NoEditTriggers); // the cells have an editor of their own
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setCornerButtonEnabled(false);
    setShowGrid(false); // the delegate draws lines that also show on a dark ground
    viewport()->setMouseTracking(true);
    setAttribute(Qt::WA_InputMethodEnabled, false); // a key opens the editor, which has its input method
    ConnectParts();
    Relayout();
}

Grid::~Grid()
{
    m_editing = false;
    disconnect(m_editor, nullptr, this, nullptr); // it goes later than the grid's own part
}

void Grid::ConnectParts()
{
    connect(m_model, &GridModel::modelReset, this, &Grid::Refilled);
    connect(m_model, &GridModel::TextGiven, this, &Grid::Enter);
    connect(m_editor, &GridEditor::Left, this, &Grid::FocusGone);
    connect(m_editor, &GridEditor::Asked, this, [this](GridEditor::Way way) {
        FollowEditor(static_cast<int>(way));
    });
    connect(m_editor, &QLineEdit::textChanged, this, [this] {
        if (m_editing) Raise([this] { Q_EMIT ChangeEdit(); });
    });
    connect(m_editor, &GridEditor::Typed, this, [this](const QString& key, bool& drop) {
        Raise([&] { Q_EMIT KeyPressEdit(key, drop); });
    });
}

bool Grid::Raise(const std::function<void()>& emission)
{
    const QPointer<Grid> here(this);
    bool done = false;
    Guarded([&] {
        emission();
        done = true;
    });
    return done && !here.isNull();
}

const GridContents& Grid::Contents() const { return m_model->Contents(); }
Long Grid::Row() const { return m_row; }
Long Grid::Col() const { return m_column; }
Long Grid::FirstRow() const { return Contents().FixedRows(); }

bool Grid::IsCell(Long row, Long column) const
{
    return row >= FirstRow() && row < Rows() && column >= 0 && column < Cols();
}

void Grid::Select(Long row, Long column)
{
    CheckPlace("grid row", row, Rows());
    CheckPlace("grid column", column, Cols());
    MoveTo(row, column);
}

void Grid::MoveTo(Long row, Long column)
{
    if (row == m_row && column == m_column) return;
    const QPointer<Grid> here(this);
    const int move = ++m_moves;
    FinishEdit();
    if (here.isNull() || m_moves != move) return;
    Raise([this] { Q_EMIT LeaveCell(m_row, m_column); });
    if (here.isNull() || m_moves != move) return;
    PutCurrent(row, column);
    ClampCurrent(); // a handler may have taken rows away
    Raise([this] { Q_EMIT EnterCell(); });
}

void Grid::PutCurrent(Long row, Long column)
{
    const QScopedValueRollback<bool> putting(m_puttingCurrent, true);
    m_row = row;
    m_column = column;
    const QModelIndex index = m_model->IndexOf(row, column);
    if (index.isValid()) {
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        scrollTo(index);
    } else {
        selectionModel()->clear();
    }
    viewport()->update();
}

void Grid::ClampCurrent()
{
    const Long row = std::clamp(m_row, 0, std::max(Rows() - 1, 0));
    const Long column = std::clamp(m_column, 0, std::max(Cols() - 1, 0));
    const bool shown = currentIndex() == m_model->IndexOf(row, column);
    if (row != m_row || column != m_column || !shown) PutCurrent(row, column);
}

void Grid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (!m_puttingCurrent && current.isValid()) MoveTo(m_model->RowOf(current), current.column());
}

/// A screen reader selects a cell and leaves the current one as it was. Later, since the toolkit selects
/// ahead of every move of the current cell.
void Grid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableView::selectionChanged(selected, deselected);
    if (m_puttingCurrent || selected.isEmpty()) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            const QModelIndexList cells = selectedIndexes();
            if (cells.size() == 1 && cells.first() != currentIndex()) setCurrentIndex(cells.first());
        },
        Qt::QueuedConnection);
}

void Grid::Fill(const std::function<void(GridContents&)>& change)
{
    DropEdit();
    const QScopedValueRollback<bool> putting(m_puttingCurrent, true);
    m_model->Change(change);
}

void Grid::Refilled()
{
    Relayout();
    ClampCurrent();
}

void Grid::SetText(Long row, Long column, const std::string& text)
{
    m_model->SetText(row, column, text);
    if (row < FirstRow()) return Relayout();
    if (m_model->ColumnAt(column).merged || Contents().MergeRow(row)) MergeCells();
    Widen(row, column);
}

Double Grid::Value(Long row, Long column) const
{
    std::string text = Text(row, column);
    text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == ',' || c == '$'; }),
               text.end());
    try {
        return Val(text);
    } catch (const Overflow&) {
        return 0.0;
    }
}

void Grid::SetCellBackColor(Long row, Long column, const QColor& color)
{
    m_model->SetBackColor(row, column, color);
}

void Grid::SetBar(Long row, Long column, double percent)
{
    m_model->SetBar(row, column, percent);
    if (row != m_row || column != m_column || !QAccessible::isActive() || !IsCell(row, column)) return;
    // A screen reader says each step of the bar that one works at.
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(this);
    QAccessibleEvent changed(table->tableInterface()->cellAt(row - FirstRow(), column),
                             QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

void Grid::SetColFormat(Long column, const std::string& format)
{
    m_model->SetFormat(column, format);
    Relayout();
}

void Grid::SetMergeCol(Long column, bool merged)
{
    m_model->ColumnAt(column).merged = merged;
    Relayout();
}

void Grid::SetStretchCol(Long column)
{
    m_stretchColumn = column;
    FitColumns();
}

void Grid::SetEditable(Long column, bool editable) { m_model->ColumnAt(column).editable = editable; }

void Grid::SetLongestEntry(Long column, int characters)
{
    m_model->ColumnAt(column).longestEntry = characters;
    if (column >= Cols()) return; // the column comes later, and its width with it
    ColumnWidth& width = WidthAt(column);
    width.least = std::max(width.least, WidthOfLongestEntry(characters));
    width.open = std::max(width.open, width.least);
    FitColumns();
}

void Grid::SetEmptyText(const QString& text)
{
    m_emptyText = text;
    setAccessibleDescription(text);
    viewport()->update();
}

void Grid::AddItem(const std::string& tabbedTexts)
{
    m_model->AddItem(tabbedTexts);
    if (Rows() <= FirstRow()) return Relayout();
    MergeCells();
    for (Long column = 0; column < Cols(); ++column)
        Widen(Rows() - 1, column);
}

void Grid::SetRowData(Long row, std::any object) { m_model->SetRowData(row, std::move(object)); }

void Grid::RemoveItem(Long row)
{
    if (row == m_row) DropEdit();
    const QScopedValueRollback<bool> putting(m_puttingCurrent, true);
    m_model->RemoveItem(row);
    if (row < m_row) --m_row;
    Relayout();
    ClampCurrent();
}

void Grid::SortNumeric(Long column)
{
    std::vector<Long> order(static_cast<std::size_t>(std::max(Rows() - FirstRow(), 0)));
    std::iota(order.begin(), order.end(), FirstRow());
    std::stable_sort(order.begin(), order.end(), [&](Long first, Long second) {
        return Value(first, column) < Value(second, column);
    });
    DropEdit();
    m_model->Reorder(order);
    Relayout();
    const auto place = std::find(order.begin(), order.end(), m_row);
    if (place != order.end()) PutCurrent(FirstRow() + static_cast<Long>(place - order.begin()), m_column);
}

} // namespace platform
