#include "platform/widgets/HelpKey.h"

#include "platform/base/HelpTopics.h"
#include "platform/widgets/Application.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVariant>
#include <QWidget>

#include <utility>

namespace platform {

namespace {

constexpr const char* kProperty = "helpContextID";

/// Windows that the toolkit makes for us, and those that know no topic of their own.
struct WindowTopic
{
    const char* className;
    int topic;
};
constexpr WindowTopic kWindows[] = {
    {"platform::SpellDialog", HelpTopics::kSpelling},
    {"QMessageBox", HelpTopics::kMessages},
    {"QFileDialog", HelpTopics::kFiles},
    {"QAbstractPrintDialog", HelpTopics::kPrinterSetup},
    {"QPageSetupDialog", HelpTopics::kPrinterSetup},
};

/// 0 where this widget tells none.
int OwnTopic(const QWidget& widget)
{
    const QVariant set = widget.property(kProperty);
    if (set.isValid()) return set.toInt();
    for (const WindowTopic& window : kWindows) {
        if (widget.inherits(window.className)) return window.topic;
    }
    return 0;
}

bool IsHelpKey(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

} // namespace

HelpKey::HelpKey(std::function<void(int)> show, QObject* parent) : QObject(parent), m_show(std::move(show))
{
    qApp->installEventFilter(this);
}

void HelpKey::SetTopic(QWidget& window, int topic) { window.setProperty(kProperty, topic); }

int HelpKey::TopicOf(const QWidget* control)
{
    for (const QWidget* widget = control; widget != nullptr; widget = widget->parentWidget()) {
        if (const int topic = OwnTopic(*widget); topic != 0) return topic;
    }
    return HelpTopics::kOnScreen;
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType() || !IsHelpKey(*event)) return QObject::eventFilter(watched, event);
    if (static_cast<const QKeyEvent*>(event)->isAutoRepeat()) return true;
    const int topic = TopicOf(static_cast<const QWidget*>(watched));
    // A menu or a list that hangs open keeps the keys from the help.
    while (QWidget* popup = QApplication::activePopupWidget()) {
        if (!popup->close()) break;
    }
    Guarded([this, topic] { m_show(topic); });
    return true;
}

} // namespace platform
