#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

/// How a worksheet is parted: what one picks from on the left, what one fills in on the right.
namespace WorksheetPanes {

/// Left and right with a handle between them; the left takes about a third. Neither is ever hidden.
QWidget* SideBySide(QWidget* left, QWidget* right, QWidget* parent);
/// The column of a pane, which has no margins of its own, set as its layout.
QVBoxLayout* Column(QWidget* pane);
/// A label that takes its text as it is.
QLabel* PlainLabel(const QString& text, QWidget* parent);
/// The heading of a panel, semi-bold.
QLabel* Heading(const QString& text, QWidget* parent);
/// A button by its given name and caption.
QPushButton* Button(const char* name, const char* caption, QWidget* parent);
/// Buttons below the list that they act on, in one line where they fit.
QLayout* ButtonRow(const QList<QPushButton*>& buttons);

} // namespace WorksheetPanes
