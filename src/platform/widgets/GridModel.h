#pragma once

#include "platform/controls/GridContents.h"

#include <QAbstractTableModel>
#include <QColor>

#include <functional>
#include <string>
#include <vector>

namespace platform {

/// What a grid shows, with its looks: a model of the rows below the header rows. Every text is made when it
/// is set, so that a view that draws or reads only fetches it. Rows and columns of the calls below count the
/// header rows too.
class GridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    struct Cell
    {
        QString shown;      // the text in its column's format
        QColor back;        // as told for a light screen; invalid: the grid's own
        double bar = -1.0;  // percent; below 0: none
        bool wraps = false; // too long for its column: shown in several lines
    };
    struct Column
    {
        std::string format;
        bool merged = false;
        bool editable = false;
        int longestEntry = 0; // characters that may be typed; 0: unknown
    };

    explicit GridModel(QObject* parent);

    const GridContents& Contents() const { return m_contents; }
    /// Announces a reset; what `change` throws goes on after it.
    void Change(const std::function<void(GridContents&)>& change);
    void AddItem(const std::string& tabbedTexts);
    void RemoveItem(Long row);
    void SetText(Long row, Long column, const std::string& text);
    void SetRowData(Long row, std::any data) { m_contents.SetRowData(row, std::move(data)); }
    void SetBackColor(Long row, Long column, const QColor& color);
    void SetBar(Long row, Long column, double percent);
    void SetFormat(Long column, const std::string& format);
    /// Brings the rows below the header into this order of their present numbers.
    void Reorder(const std::vector<Long>& order);

    /// Throws OutOfBounds.
    const Cell& CellAt(Long row, Long column) const;
    Cell& CellAt(Long row, Long column);
    /// What was told of a column before there was one is kept.
    Column& ColumnAt(Long column);
    const Column& ColumnAt(Long column) const;
    /// The texts of the header rows above a column, one after the other; equal ones once.
    QString Head(Long column) const;
    QModelIndex IndexOf(Long row, Long column) const;
    Long RowOf(const QModelIndex& index) const { return index.row() + m_contents.FixedRows(); }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    /// Somebody else than the grid, a screen reader or the Edit menu, puts a text into an editable cell.
    void TextGiven(Long row, Long column, const QString& text);

private:
    QString Shown(Long row, Long column) const;
    void ShowAll();
    void Announce(Long row, Long column);

    GridContents m_contents;
    std::vector<std::vector<Cell>> m_cells;
    std::vector<Column> m_columns;
};

} // namespace platform
