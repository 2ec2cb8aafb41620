#pragma once

#include "platform/base/Numbers.h"

#include <string>
#include <vector>

namespace platform {

/// What a list or combo box shows: rows of text, each with a number of its own (`ItemData`), and which one is
/// selected (-1: none). A store fills it, a widget shows it.
class ListContents
{
public:
    struct Row
    {
        std::string text;
        Long itemData = 0;
    };

    void Clear();
    /// Adds a row at the end; its place from 0 is the NewIndex.
    void AddItem(const std::string& text);
    /// The place of the row added last; -1 after Clear.
    Long NewIndex() const { return m_newIndex; }
    Long ItemData(Long index) const;
    void SetItemData(Long index, Long value);
    Long ListCount() const { return static_cast<Long>(m_rows.size()); }
    Long ListIndex() const { return m_listIndex; }
    /// Throws OutOfBounds for a row that is not there; -1 selects none.
    void SetListIndex(Long index);
    const std::vector<Row>& Rows() const { return m_rows; }

private:
    std::vector<Row> m_rows;
    Long m_newIndex = -1;
    Long m_listIndex = -1;
};

} // namespace platform
