#pragma once

#include "platform/base/Numbers.h"

#include <QFrame>

class QGridLayout;
class QLabel;
class c53Outcome;

/// What is predicted of one outcome, to be read: its size and its times.
class OutcomePanel : public QFrame
{
    Q_OBJECT

public:
    /// The title, and the number behind the given names of the panel and its labels.
    OutcomePanel(const QString& title, Long index, QWidget* parent);

    /// A time of 0 is empty.
    void ShowOutcome(const c53Outcome& outcome);
    void Clear();

private:
    /// A line of the panel: caption, value, unit. The label of the value is given back.
    QLabel* AddValue(QGridLayout& grid, const char* name, Long index, const char* caption, const char* unit);

    QLabel* m_lblSize = nullptr;
    QLabel* m_lblContain = nullptr;
    QLabel* m_lblControl = nullptr;
};
