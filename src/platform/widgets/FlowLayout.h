#pragma once

#include <QLayout>

#include <vector>

namespace platform {

/// Widgets side by side, going on in a further line where the room ends: nothing hides.
class FlowLayout : public QLayout
{
public:
    explicit FlowLayout(QWidget* parent);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override { m_items.push_back(item); }
    int count() const override { return static_cast<int>(m_items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return Place(QRect(0, 0, width, 0), false); }
    void setGeometry(const QRect& rect) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;

private:
    /// Returns the height; moves the widgets when told.
    int Place(const QRect& rect, bool move) const;

    std::vector<QLayoutItem*> m_items;
};

} // namespace platform
