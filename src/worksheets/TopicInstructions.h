#pragma once

#include "platform/widgets/ReadingArea.h"

class QLabel;

/// The special instructions of a topic, in a quiet tinted panel: as high as its text, and scrolled where that
/// would leave too little room for what stands above.
class TopicInstructions : public platform::ReadingArea
{
    Q_OBJECT

public:
    explicit TopicInstructions(QWidget* parent);

    /// Empty: there are none, and the panel says so.
    void SetText(const QString& text);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    QLabel* m_lblInstructions = nullptr;
    QLabel* m_lblNone = nullptr;
};
