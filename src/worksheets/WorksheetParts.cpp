#include "worksheets/WorksheetParts.h"

#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/Theme.h"

namespace Theme = platform::Theme;

namespace WorksheetParts {

QLabel* Title(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(QStringLiteral("lblTitle"));
    label->setFont(Theme::TitleFont(label->font()));
    return label;
}

QLabel* Instruction(const QString& text, QWidget* parent) { return new platform::QuietLabel(text, parent); }

QVBoxLayout* Column(QWidget* form)
{
    auto* column = new QVBoxLayout(form);
    const int margin = Theme::Margin();
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(Theme::Gap());
    return column;
}

} // namespace WorksheetParts
