#pragma once

#include "platform/base/Numbers.h"

#include <QObject>

#include <functional>

/// Lets Up and Down, pressed alone in a text box beside a list, lead from row to row: where every new row
/// puts the focus into the box, the list's own keys are out of reach.
class RowKeys : public QObject
{
    Q_OBJECT

public:
    /// `move` is told -1 or 1. The box owns this.
    RowKeys(QWidget& box, std::function<void(Long step)> move);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(Long)> m_move;
};
