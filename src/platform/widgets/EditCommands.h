#pragma once

#include <QWidget>

/// Cut, Copy and Paste on a control, by its kind. On nothing, or on a control of another kind, they do
/// nothing.
///
/// A text box gives its selected text, and nothing when none is selected. A rich text control does its own
/// clipping. A grid gives the texts of its selected cells; it is pasted into only while one of its cells is
/// edited, and that cell's editor is a text box.
namespace platform::EditCommands {

void Cut(QWidget* control);
void Copy(QWidget* control);
void Paste(QWidget* control);

} // namespace platform::EditCommands
