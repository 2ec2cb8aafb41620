#include "platform/controls/ListContents.h"

#include "platform/base/Errors.h"

namespace platform {

namespace {
std::size_t Checked(Long index, Long count)
{
    if (index < 0 || index >= count) {
        throw OutOfBounds("list row", index);
    }
    return static_cast<std::size_t>(index);
}
} // namespace

void ListContents::Clear() { *this = ListContents(); }

void ListContents::AddItem(const std::string& text)
{
    m_rows.push_back({text, 0});
    m_newIndex = ListCount() - 1;
}

Long ListContents::ItemData(Long index) const { return m_rows[Checked(index, ListCount())].itemData; }

void ListContents::SetItemData(Long index, Long value)
{
    m_rows[Checked(index, ListCount())].itemData = value;
}

void ListContents::SetListIndex(Long index)
{
    if (index != -1) {
        Checked(index, ListCount());
    }
    m_listIndex = index;
}

} // namespace platform
