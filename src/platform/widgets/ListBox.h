#pragma once

#include "platform/base/Numbers.h"
#include "platform/controls/ListContents.h"

#include <QListWidget>

#include <string>

namespace platform {

/// The list that worksheets pick from: rows of text, each with a number of its own (`ItemData`). Choosing
/// another row raises Click, by mouse, by key or in code.
class ListBox : public QListWidget
{
    Q_OBJECT

public:
    /// The given name, and what a person reads beside it.
    ListBox(const QString& name, const QString& accessibleName, QWidget* parent);

    /// Shows these rows and selects none. Raises nothing.
    void Show(const ListContents& rows);
    void Clear();
    /// Adds a row at the end; selects nothing, raises nothing.
    void AddItem(const std::string& text, Long itemData);
    Long ListCount() const { return count(); }
    /// -1: none.
    Long ListIndex() const { return currentRow(); }
    /// Selects a row and raises Click when it was not the selected one. Throws OutOfBounds.
    void SetListIndex(Long index);
    /// Throw OutOfBounds.
    std::string List(Long index) const;
    void SetList(Long index, const std::string& text);
    Long ItemData(Long index) const;

Q_SIGNALS:
    void Click();
    /// A row was clicked, the selected one too, or Enter or the blank was pressed on it.
    void Picked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void Pick();
    void FollowSelectionLater();
};

} // namespace platform
