#include "platform/widgets/FlowLayout.h"

#include <algorithm>

namespace platform {

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent) {}

FlowLayout::~FlowLayout()
{
    for (QLayoutItem* item : m_items)
        delete item;
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return index < 0 || index >= count() ? nullptr : m_items[static_cast<std::size_t>(index)];
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    QLayoutItem* item = itemAt(index);
    if (item != nullptr) m_items.erase(m_items.begin() + index);
    return item;
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    Place(rect, true);
}

QSize FlowLayout::sizeHint() const
{
    const QMargins margins = contentsMargins();
    int width = margins.left() + margins.right();
    int height = 0;
    for (const QLayoutItem* item : m_items) {
        width += item->sizeHint().width() + spacing();
        height = std::max(height, item->sizeHint().height());
    }
    return {width, height + margins.top() + margins.bottom()};
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* item : m_items)
        size = size.expandedTo(item->minimumSize());
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

int FlowLayout::Place(const QRect& rect, bool move) const
{
    const QMargins margins = contentsMargins();
    const QRect room = rect.marginsRemoved(margins);
    int x = room.x();
    int y = room.y();
    int lineHeight = 0;
    for (QLayoutItem* item : m_items) {
        const QSize size = item->sizeHint();
        if (x > room.x() && x + size.width() > room.right() + 1) {
            x = room.x();
            y += lineHeight + spacing();
            lineHeight = 0;
        }
        if (move) item->setGeometry(QRect(QPoint(x, y), size));
        x += size.width() + spacing();
        lineHeight = std::max(lineHeight, size.height());
    }
    return y + lineHeight - rect.y() + margins.bottom();
}

} // namespace platform
