#include "platform/widgets/GridModel.h"

#include "platform/base/Errors.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

QString InFormat(const std::string& text, const std::string& format)
{
    if (!format.empty() && IsNumeric(text)) {
        try {
            return QString::fromStdString(Format(NumberOf(text), format));
        } catch (const Overflow&) {
            // beyond every format: shown as it is
        }
    }
    return QString::fromStdString(text);
}

Qt::Alignment Horizontal(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Left: return Qt::AlignLeft;
    case Alignment::Center: return Qt::AlignHCenter;
    case Alignment::Right: return Qt::AlignRight;
    }
    return Qt::AlignLeft;
}

QString Percent(double bar) { return QString::fromStdString(TextOf(ToSingle(bar))) + QLatin1String(" %"); }

std::size_t Place(const char* what, Long index, std::size_t count)
{
    if (index < 0 || static_cast<std::size_t>(index) >= count) throw OutOfBounds(what, index);
    return static_cast<std::size_t>(index);
}

/// Puts the row of another grid's contents, of the same columns, into a row.
void CopyRow(const GridContents& source, Long from, GridContents& target, Long to)
{
    for (Long column = 0; column < source.Cols(); ++column) {
        target.SetText(to, column, source.Text(from, column));
        target.SetCellAlignment(to, column, source.CellAlignment(from, column));
    }
    target.SetRowData(to, source.RowData(from));
    target.SetMergeRow(to, source.MergeRow(from));
}

} // namespace

GridModel::GridModel(QObject* parent) : QAbstractTableModel(parent) {}

void GridModel::Change(const std::function<void(GridContents&)>& change)
{
    struct Reset
    {
        GridModel& model;
        explicit Reset(GridModel& changed) : model(changed) { model.beginResetModel(); }
        ~Reset()
        {
            model.ShowAll();
            model.endResetModel();
        }
    };
    const Reset reset(*this);
    change(m_contents);
}

void GridModel::ShowAll()
{
    m_cells.resize(static_cast<std::size_t>(m_contents.Rows()));
    for (Long row = 0; row < m_contents.Rows(); ++row) {
        auto& cells = m_cells[static_cast<std::size_t>(row)];
        cells.resize(static_cast<std::size_t>(m_contents.Cols()));
        for (Long column = 0; column < m_contents.Cols(); ++column)
            cells[static_cast<std::size_t>(column)].shown = Shown(row, column);
    }
}

QString GridModel::Shown(Long row, Long column) const
{
    const std::string& text = m_contents.Text(row, column);
    if (row < m_contents.FixedRows()) return QString::fromStdString(text);
    return InFormat(text, ColumnAt(column).format);
}

void GridModel::AddItem(const std::string& tabbedTexts)
{
    const int below = rowCount();
    const bool header = m_contents.Rows() < m_contents.FixedRows();
    if (header) {
        Change([&](GridContents& contents) { contents.AddItem(tabbedTexts); });
        return;
    }
    beginInsertRows(QModelIndex(), below, below);
    m_contents.AddItem(tabbedTexts);
    std::vector<Cell> cells(static_cast<std::size_t>(m_contents.Cols()));
    for (Long column = 0; column < m_contents.Cols(); ++column)
        cells[static_cast<std::size_t>(column)].shown = Shown(m_contents.Rows() - 1, column);
    m_cells.push_back(std::move(cells));
    endInsertRows();
}

void GridModel::RemoveItem(Long row)
{
    const auto place = static_cast<std::ptrdiff_t>(Place("grid row", row, m_cells.size()));
    const bool header = row < m_contents.FixedRows();
    if (header) {
        beginResetModel();
    } else {
        beginRemoveRows(QModelIndex(), row - m_contents.FixedRows(), row - m_contents.FixedRows());
    }
    m_contents.RemoveItem(row);
    m_cells.erase(m_cells.begin() + place);
    header ? endResetModel() : endRemoveRows();
}

void GridModel::SetText(Long row, Long column, const std::string& text)
{
    Cell& cell = CellAt(row, column);
    m_contents.SetText(row, column, text);
    QString shown = Shown(row, column);
    if (shown == cell.shown) return;
    cell.shown = std::move(shown);
    Announce(row, column);
}

void GridModel::SetBackColor(Long row, Long column, const QColor& color)
{
    Cell& cell = CellAt(row, column);
    if (cell.back == color) return;
    cell.back = color;
    Announce(row, column);
}

void GridModel::SetBar(Long row, Long column, double percent)
{
    Cell& cell = CellAt(row, column);
    const double bar = percent < 0.0 ? -1.0 : std::min(percent, 100.0);
    if (cell.bar == bar) return;
    cell.bar = bar;
    Announce(row, column);
}

void GridModel::SetFormat(Long column, const std::string& format)
{
    ColumnAt(column).format = format;
    if (column >= m_contents.Cols()) return;
    for (Long row = m_contents.FixedRows(); row < m_contents.Rows(); ++row) {
        CellAt(row, column).shown = Shown(row, column);
        Announce(row, column);
    }
}

void GridModel::Announce(Long row, Long column)
{
    const QModelIndex index = IndexOf(row, column);
    if (index.isValid()) {
        Q_EMIT dataChanged(index, index);
    } else {
        Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
    }
}

void GridModel::Reorder(const std::vector<Long>& order)
{
    const GridContents before = m_contents;
    const std::vector<std::vector<Cell>> looks = m_cells;
    Long to = m_contents.FixedRows();
    for (const Long from : order) {
        CopyRow(before, from, m_contents, to);
        m_cells[static_cast<std::size_t>(to)] = looks[static_cast<std::size_t>(from)];
        ++to;
    }
    if (rowCount() > 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

const GridModel::Cell& GridModel::CellAt(Long row, Long column) const
{
    const auto& cells = m_cells[Place("grid row", row, m_cells.size())];
    return cells[Place("grid column", column, cells.size())];
}

GridModel::Cell& GridModel::CellAt(Long row, Long column)
{
    auto& cells = m_cells[Place("grid row", row, m_cells.size())];
    return cells[Place("grid column", column, cells.size())];
}

GridModel::Column& GridModel::ColumnAt(Long column)
{
    const std::size_t wanted = static_cast<std::size_t>(std::max(column, 0)) + 1;
    if (m_columns.size() < wanted) m_columns.resize(wanted);
    return m_columns[Place("grid column", column, m_columns.size())];
}

const GridModel::Column& GridModel::ColumnAt(Long column) const
{
    static const Column plain;
    const bool told = column >= 0 && static_cast<std::size_t>(column) < m_columns.size();
    return told ? m_columns[static_cast<std::size_t>(column)] : plain;
}

QString GridModel::Head(Long column) const
{
    QStringList heads;
    for (Long row = 0; row < std::min(m_contents.FixedRows(), m_contents.Rows()); ++row) {
        const QString head = CellAt(row, column).shown.simplified();
        if (!head.isEmpty() && !heads.contains(head)) heads << head;
    }
    return heads.join(QLatin1String(", "));
}

QModelIndex GridModel::IndexOf(Long row, Long column) const
{
    return row < m_contents.FixedRows() ? QModelIndex() : index(row - m_contents.FixedRows(), column);
}

int GridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : std::max(0, m_contents.Rows() - m_contents.FixedRows());
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_contents.Cols();
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) return {};
    const Cell& cell = CellAt(RowOf(index), index.column());
    switch (role) {
    case Qt::DisplayRole: return cell.shown;
    case Qt::EditRole: return QString::fromStdString(m_contents.Text(RowOf(index), index.column()));
    case Qt::AccessibleTextRole: return cell.bar < 0.0 ? QVariant() : QVariant(Percent(cell.bar));
    case Qt::TextAlignmentRole:
        return static_cast<int>(Horizontal(m_contents.CellAlignment(RowOf(index), index.column())) |
                                Qt::AlignVCenter);
    default: return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_contents.Cols()) return {};
    if (role == Qt::DisplayRole) return Head(section);
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) return Qt::NoItemFlags;
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return ColumnAt(index.column()).editable ? plain | Qt::ItemIsEditable : plain;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
    Q_EMIT TextGiven(RowOf(index), index.column(), value.toString());
    return true;
}

} // namespace platform
