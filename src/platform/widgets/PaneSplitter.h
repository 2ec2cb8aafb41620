#pragma once

#include <QSplitter>

namespace platform {

/// Panes whose divider keys move as well as the mouse: F6 leads from a pane to its divider, further out with
/// each press; there the arrow keys, Home and End move it, and Tab, Enter or Escape lead back. The Tab key
/// alone passes it by, as one who fills in a form wants it to. No pane can be folded away.
class PaneSplitter : public QSplitter
{
    Q_OBJECT

public:
    PaneSplitter(Qt::Orientation orientation, QWidget* parent = nullptr);

protected:
    QSplitterHandle* createHandle() override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace platform
