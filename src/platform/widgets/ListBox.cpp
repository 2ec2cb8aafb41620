#include "platform/widgets/ListBox.h"

#include "platform/base/Errors.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>

namespace platform {

namespace {

constexpr int kItemData = Qt::UserRole;

QListWidgetItem& RowAt(const ListBox& list, Long index)
{
    if (index < 0 || index >= list.ListCount()) throw OutOfBounds("list row", index);
    return *list.item(index);
}

void Append(ListBox& list, const std::string& text, Long itemData)
{
    auto* row = new QListWidgetItem(QString::fromStdString(text), &list);
    row->setData(kItemData, itemData);
}

} // namespace

ListBox::ListBox(const QString& name, const QString& accessibleName, QWidget* parent) : QListWidget(parent)
{
    setObjectName(name);
    setAccessibleName(accessibleName);
    // Long rows are read whole, on more than one line.
    setWordWrap(true);
    setTextElideMode(Qt::ElideNone);
    setSpacing(Theme::Gap() / 4);
    setResizeMode(Adjust);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) Guarded([this] { Q_EMIT Click(); });
    });
    connect(this, &QListWidget::itemSelectionChanged, this, &ListBox::FollowSelectionLater);
    connect(this, &QListWidget::itemClicked, this, [this] { Pick(); });
}

/// A screen reader selects a row and leaves the current one as it was. Later, since the toolkit selects ahead
/// of every move of the current row.
void ListBox::FollowSelectionLater()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            const QList<QListWidgetItem*> selected = selectedItems();
            if (!selected.isEmpty() && selected.first() != currentItem()) setCurrentItem(selected.first());
        },
        Qt::QueuedConnection);
}

void ListBox::Pick()
{
    if (ListIndex() >= 0) Guarded([this] { Q_EMIT Picked(); });
}

/// A frame says that keys go here: the row chosen looks the same without the focus.
void ListBox::paintEvent(QPaintEvent* event)
{
    QListWidget::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(viewport());
    Theme::PaintFocusFrame(painter, palette(), viewport()->rect());
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    const bool picks =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (!picks || event->modifiers().testFlag(Qt::ControlModifier)) return QListWidget::keyPressEvent(event);
    Pick();
}

void ListBox::focusInEvent(QFocusEvent* event)
{
    // Not the view's own, which would choose a row.
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void ListBox::Show(const ListContents& rows)
{
    Clear();
    const QSignalBlocker quiet(this);
    for (const ListContents::Row& row : rows.Rows())
        Append(*this, row.text, row.itemData);
    setCurrentRow(-1);
}

void ListBox::Clear()
{
    const QSignalBlocker quiet(this);
    clear();
}

void ListBox::AddItem(const std::string& text, Long itemData)
{
    const QSignalBlocker quiet(this);
    Append(*this, text, itemData);
}

void ListBox::SetListIndex(Long index)
{
    RowAt(*this, index);
    setCurrentRow(index);
}

std::string ListBox::List(Long index) const { return RowAt(*this, index).text().toStdString(); }

void ListBox::SetList(Long index, const std::string& text)
{
    RowAt(*this, index).setText(QString::fromStdString(text));
}

Long ListBox::ItemData(Long index) const { return RowAt(*this, index).data(kItemData).toInt(); }

} // namespace platform
