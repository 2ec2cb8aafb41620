#pragma once

#include "platform/base/Numbers.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;
namespace platform {
class EntryBox;
}

/// The chances of an outcome that an alternative aims at, and the reasons for them. Lays the controls out;
/// what they do is their form's.
class OutcomeChances : public QWidget
{
    Q_OBJECT

public:
    /// 1 Target, 2 Fallback.
    OutcomeChances(Long index, QWidget* parent);

    platform::EntryBox& txtSuccess() const { return *m_txtSuccess; }
    QLabel& lblFailure() const { return *m_lblFailure; }
    /// The label above the reasons.
    QLabel& lblReasons() const { return *m_lblReasons; }
    QPlainTextEdit& txtRationale() const { return *m_txtRationale; }

private:
    QWidget* BuildPercents(Long index);
    void BuildReasons(Long index);

    platform::EntryBox* m_txtSuccess = nullptr;
    QLabel* m_lblFailure = nullptr;
    QLabel* m_lblReasons = nullptr;
    QPlainTextEdit* m_txtRationale = nullptr;
};
