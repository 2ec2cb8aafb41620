#include "worksheets/ValueLine.h"

#include <QHBoxLayout>
#include <QLabel>

ValueLine MakeValueLine(const QString& caption, const QString& name, QWidget* parent)
{
    auto* label = new QLabel(caption, parent);
    auto* value = new QLabel(parent);
    value->setObjectName(name);
    value->setTextFormat(Qt::PlainText);
    value->setWordWrap(true);
    label->setBuddy(value);
    auto* line = new QHBoxLayout;
    line->addWidget(label, 0, Qt::AlignTop);
    line->addWidget(value, 1);
    return {line, value};
}
