#pragma once

#include <QLabel>

namespace platform {

/// A plain text in the quieter colour of instructions; follows the palette, breaks its lines.
class QuietLabel : public QLabel
{
    Q_OBJECT

public:
    QuietLabel(const QString& text, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace platform
