#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace platform {

/// The key F1 wherever the program has the keys: in every window, dialog, open menu and list. Stands once, as
/// long as the main window.
class HelpKey : public QObject
{
    Q_OBJECT

public:
    /// Called with a topic of the help file, or with HelpTopics::kOnScreen.
    HelpKey(std::function<void(int topic)> show, QObject* parent);

    /// The topic that F1 opens in this window and in what belongs to it.
    static void SetTopic(QWidget& window, int topic);
    /// The topic of the window that a control belongs to, or of the nearest one behind it that has one.
    static int TopicOf(const QWidget* control);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void(int)> m_show;
};

} // namespace platform
