#include "worksheets/WorksheetPanes.h"

#include "platform/widgets/FlowLayout.h"
#include "platform/widgets/PaneSplitter.h"
#include "platform/widgets/Theme.h"

#include <QShortcutEvent>

namespace Theme = platform::Theme;

namespace WorksheetPanes {

namespace {

/// Its letter acts at once. The toolkit's button shows the press first, and what is typed meanwhile is lost
/// or goes into the box that the command is about to leave.
class CommandButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    bool event(QEvent* event) override
    {
        const bool letter = event->type() == QEvent::Shortcut;
        if (!letter || static_cast<QShortcutEvent*>(event)->isAmbiguous()) return QPushButton::event(event);
        setFocus(Qt::ShortcutFocusReason); // as by mouse: an open cell ends its edit
        click();
        return true;
    }
};

} // namespace

QWidget* SideBySide(QWidget* left, QWidget* right, QWidget* parent)
{
    auto* splitter = new platform::PaneSplitter(Qt::Horizontal, parent);
    splitter->setHandleWidth(Theme::GroupGap());
    splitter->addWidget(left);
    splitter->addWidget(right);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 2);
    splitter->setSizes({1000, 2000}); // shares, as there is no width yet
    return splitter;
}

QVBoxLayout* Column(QWidget* pane)
{
    auto* column = new QVBoxLayout(pane);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::Gap());
    return column;
}

QLabel* PlainLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* Heading(const QString& text, QWidget* parent)
{
    QLabel* label = PlainLabel(text, parent);
    QFont font = label->font();
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    return label;
}

QPushButton* Button(const char* name, const char* caption, QWidget* parent)
{
    auto* button = new CommandButton(QString::fromUtf8(caption), parent);
    button->setObjectName(QString::fromUtf8(name));
    return button;
}

QLayout* ButtonRow(const QList<QPushButton*>& buttons)
{
    auto* row = new platform::FlowLayout(nullptr);
    row->setSpacing(Theme::Gap());
    for (QPushButton* button : buttons)
        row->addWidget(button);
    return row;
}

} // namespace WorksheetPanes
