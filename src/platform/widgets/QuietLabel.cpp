#include "platform/widgets/QuietLabel.h"

#include "platform/widgets/Theme.h"

#include <QPainter>

namespace platform {

QuietLabel::QuietLabel(const QString& text, QWidget* parent) : QLabel(text, parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void QuietLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Theme::QuietText(palette()));
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextWordWrap, text());
}

} // namespace platform
