#include "worksheets/RowKeys.h"

#include "platform/widgets/Application.h"

#include <QKeyEvent>
#include <QWidget>

#include <utility>

namespace {

/// 0: no such key.
Long StepOf(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress) return 0;
    const auto& key = static_cast<const QKeyEvent&>(event);
    if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return 0;
    return key.key() == Qt::Key_Down ? 1 : key.key() == Qt::Key_Up ? -1 : 0;
}

} // namespace

RowKeys::RowKeys(QWidget& box, std::function<void(Long step)> move) : QObject(&box), m_move(std::move(move))
{
    box.installEventFilter(this);
}

bool RowKeys::eventFilter(QObject* watched, QEvent* event)
{
    const Long step = StepOf(*event);
    if (step == 0) return QObject::eventFilter(watched, event);
    platform::Guarded([this, step] { m_move(step); });
    return true;
}
