#pragma once

#include <QLabel>
#include <QVBoxLayout>

/// What every worksheet is laid out with.
namespace WorksheetParts {

/// The title of a worksheet.
QLabel* Title(const QString& text, QWidget* parent);
/// The instruction below it, in the quieter text colour; breaks its lines.
QLabel* Instruction(const QString& text, QWidget* parent);
/// The column of a worksheet, with the house's margins and gaps, set as the form's layout.
QVBoxLayout* Column(QWidget* form);

} // namespace WorksheetParts
