#pragma once

#include <QScrollArea>

namespace platform {

/// Text to be read, on a quiet tint: scrolled where there is too little room for it, and only then a stop of
/// the Tab key, with a frame that shows where keys go. Give it its widget by setWidget.
class ReadingArea : public QScrollArea
{
    Q_OBJECT

public:
    /// The given name, and what a person reads above the text.
    ReadingArea(const QString& name, const QString& accessibleName, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
};

} // namespace platform
