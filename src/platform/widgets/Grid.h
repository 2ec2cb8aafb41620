#pragma once

#include "platform/base/Numbers.h"
#include "platform/controls/GridContents.h"

#include <QTableView>

#include <functional>
#include <string>
#include <vector>

namespace platform {

class GridEditor;
class GridHeader;
class GridModel;
struct GridBlock;

/// The grid that worksheets show rows in and edit them: header rows, texts, row data, tints, bars and formats
/// by cell or column, neighbours of equal text merged, cells edited in place. Rows and columns count from 0
/// and the header rows count too, so row 0 is a header and, as the current row, stands for none.
///
/// The order of events: leaving a cell ends its edit (AfterEdit), then LeaveCell, then EnterCell of the new
/// one. A press raises EnterCell of its cell, then MouseDown. Moving the current cell in code raises the
/// same. While the program is busy no editor opens; the events are raised all the same.
///
/// Tab leads through the cells that can be edited and then on; Ctrl+Tab leads on at once.
class Grid : public QTableView
{
    Q_OBJECT

public:
    /// The given name, and what a person reads beside it.
    Grid(const QString& name, const QString& accessibleName, QWidget* parent);
    ~Grid() override;

    /// What it shows; change it through the calls below.
    const GridContents& Contents() const;
    /// Changes rows, columns, texts in one go, and shows the result once. An open edit is dropped. The
    /// current cell stays where there still is one, else it becomes the last row that is; no event is raised.
    /// Tints and bars stay with their row numbers. What `change` throws goes on after the grid shows what it
    /// did.
    void Fill(const std::function<void(GridContents&)>& change);

    Long Rows() const { return Contents().Rows(); }
    Long Cols() const { return Contents().Cols(); }
    /// The current cell; row 0: none.
    Long Row() const;
    Long Col() const;
    /// Moves the current cell. Raises LeaveCell and EnterCell when it moves; for a header row too. A handler
    /// of these or of AfterEdit that moves it again has the last word. Throws OutOfBounds.
    void SetRow(Long row) { Select(row, Col()); }
    void SetCol(Long column) { Select(Row(), column); }
    void Select(Long row, Long column);

    const std::string& Text(Long row, Long column) const { return Contents().Text(row, column); }
    void SetText(Long row, Long column, const std::string& text);
    /// The number that the cell's text begins with, commas and a "$" apart; 0 where there is none.
    Double Value(Long row, Long column) const;
    /// The row's object, or nothing where there is none of that kind.
    template <class Pointer> Pointer RowObject(Long row) const { return Contents().RowObject<Pointer>(row); }

    /// The ground of a cell as told for a light screen; a dark one shows it darker, at the same contrast. An
    /// invalid colour is the grid's own.
    void SetCellBackColor(Long row, Long column, const QColor& color);
    /// How much of a cell its bar fills, percent from 0 to 100; below 0: no bar.
    void SetBar(Long row, Long column, double percent);
    /// Shows numeric texts of a column in this format ("$#,0"); the text itself stays as it was set.
    void SetColFormat(Long column, const std::string& format);
    /// Neighbours of equal text in a column stand as one cell.
    void SetMergeCol(Long column, bool merged);
    /// The column that takes the width left over; -1: none. Widths in twips are starting widths.
    void SetStretchCol(Long column);
    /// Which columns are ever edited: told by a screen reader, and by Enter, Tab, F2 and typing.
    void SetEditable(Long column, bool editable);
    /// How many characters an entry of a column may have: the column opens wide enough for them. Without it
    /// the column widens at the first edit with a limit.
    void SetLongestEntry(Long column, int characters);
    /// A sentence that stands where rows will, while there are none.
    void SetEmptyText(const QString& text);

    /// Adds a row at the end, its texts parted by tabs. Raises nothing.
    void AddItem(const std::string& tabbedTexts);
    void SetRowData(Long row, std::any object);
    /// Removes a row; when it was the current one the row that takes its place becomes current. Raises
    /// nothing. The cell's edit is dropped.
    void RemoveItem(Long row);
    /// Sorts the rows below the header by the numbers of a column, rising; equal ones keep their order. The
    /// current cell stays with its row. Raises nothing.
    void SortNumeric(Long column);

    /// Opens the editor of the current cell, once the event at hand is done. Nothing while busy, on a header
    /// row, or when BeforeEdit refuses.
    void EditCell();
    bool IsEditing() const;
    /// What stands in the open editor; else the current cell's text.
    std::string EditText() const;
    void SetEditText(const std::string& text);
    /// The most characters that the editor takes; set it in BeforeEdit. 0: no limit.
    void SetEditMaxLength(int characters);
    /// Ends an open edit as leaving its cell does.
    void FinishEdit();

    QSize sizeHint() const override;

Q_SIGNALS:
    void EnterCell();
    /// The cell that is left is still the current one.
    void LeaveCell(Long row, Long column);
    void BeforeEdit(Long row, Long column, bool& cancel);
    /// At every change of the editor's text; Escape raises it with the old text.
    void ChangeEdit();
    /// A printable key typed into the editor, before it goes in.
    void KeyPressEdit(const QString& key, bool& drop);
    /// The edit has ended and the cell holds the editor's text.
    void AfterEdit(Long row, Long column);
    void Click();
    void LostFocus();
    /// A key pressed while no cell is edited; a swallowed one goes no further.
    void KeyDown(int key, bool& swallow);
    /// The left button; row and column under the pointer (-1: none), and the pointer's place in that cell: 0
    /// at its left edge, 1 at its right one, beyond them outside. Between press and release all moves are
    /// told.
    void MouseDown(Long row, Long column, float place);
    void MouseMove(Long row, Long column, float place);
    void MouseUp(Long row, Long column, float place);
    /// An arrow key on a cell with a bar: one step down or up.
    void BarStep(int steps);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

private:
    struct Spot
    {
        Long row = -1;
        Long column = -1;
        float place = 0.0F;
        bool operator==(const Spot& other) const { return row == other.row && column == other.column; }
    };

    /// What a column opens with, and what it is squeezed to where a narrow view has no room for all.
    struct ColumnWidth
    {
        int open = 0;
        int least = 0;
    };
    /// A cell whose text takes more width than its column has at the least.
    struct LongText
    {
        Long row = 0;
        Long column = 0;
        int width = 0;
    };

    // Grid.cpp
    void ConnectParts();
    void MoveTo(Long row, Long column);
    void PutCurrent(Long row, Long column);
    void ClampCurrent();
    void Refilled();
    /// Runs a handler; false: it threw, or the grid is gone.
    bool Raise(const std::function<void()>& emission);
    Long FirstRow() const;
    bool IsCell(Long row, Long column) const;

    // GridEditing.cpp
    bool OpenEditor();
    bool MayEdit() const;
    void ShowEditor();
    void CloseEditor();
    void DropEdit();
    void PlaceEditor();
    QString EditorName() const;
    void Revert();
    void FocusGone(Qt::FocusReason reason);
    void Enter(Long row, Long column, const QString& text);
    void FollowEditor(int way);

    // GridKeys.cpp
    bool HasBar(Long row, Long column) const;
    bool StepBar(int key);
    bool MoveByKey(const QKeyEvent& event);
    bool EditByKey(QKeyEvent& event);
    bool MoveToEditable(bool forward);
    bool HasEditable() const;
    void LeaveByTab(bool forward);
    bool LeaveByKey(int key);

    // GridMouse.cpp
    Spot SpotAt(const QPoint& point) const;
    void ShowPointer(const QPoint& point);

    // GridSizes.cpp
    void Relayout();
    void MergeCells();
    ColumnWidth EmptyWidth(Long column) const;
    ColumnWidth& WidthAt(Long column) { return m_widths[static_cast<std::size_t>(column)]; }
    int WidthIn(int room, Long column) const;
    void Measure(Long row, Long column);
    void Widen(Long row, Long column);
    void FitColumns();
    void PutWidths(int room);
    void FitRows();
    int WidthOfLongestEntry(int characters) const;
    int WrapWidth(Long column) const;
    void PaintEmptyText();
    void PaintCurrent();

    GridModel* m_model = nullptr;
    GridHeader* m_header = nullptr;
    GridEditor* m_editor = nullptr;

    Long m_row = 0;
    Long m_column = 0;
    int m_moves = 0;               // tells a handler's own move from the one that called it
    bool m_puttingCurrent = false; // the view follows the grid, not the other way

    bool m_editing = false; // the current cell
    bool m_editAsked = false;
    Spot m_askedFor;
    int m_longest = 0;
    std::string m_oldText;

    Spot m_pressed;
    bool m_pressedBar = false;

    QString m_emptyText;
    Long m_stretchColumn = -1;
    bool m_fitting = false;
    std::vector<ColumnWidth> m_widths;
    std::vector<GridBlock> m_spans;
    std::vector<LongText> m_longTexts;
};

} // namespace platform
