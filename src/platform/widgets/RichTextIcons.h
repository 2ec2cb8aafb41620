#pragma once

#include <QIcon>
#include <QString>

/// The signs on the buttons of a rich text's bar, drawn in the colour of button texts, light or dark.
namespace platform::RichTextIcons {

/// "bold", "italic", "underline", "left", "center", "right", "justify", "bullets", "numbers", "less", "more",
/// "undo", "redo", "picture", "clear", "paste", "find", "color", "up", "down", "close".
QIcon Of(const QString& name);
/// A square of a colour.
QIcon Swatch(const QColor& color);

} // namespace platform::RichTextIcons
