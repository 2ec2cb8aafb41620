#pragma once

class QHBoxLayout;
class QLabel;
class QString;
class QWidget;

/// A caption and behind it a label that shows a value as it was typed, in several lines where it is long.
struct ValueLine
{
    QHBoxLayout* layout;
    QLabel* value;
};
ValueLine MakeValueLine(const QString& caption, const QString& name, QWidget* parent);
