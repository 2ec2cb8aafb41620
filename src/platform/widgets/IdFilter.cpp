#include "platform/widgets/IdFilter.h"

#include <QEvent>
#include <QWidget>

namespace platform {

namespace {

void AppendId(QWidget& widget)
{
    const QString name = widget.objectName();
    if (name.isEmpty() || name.startsWith(QLatin1String("qt_"))) return;
    const QString mark = QLatin1String(" #") + name;
    const QString description = widget.accessibleDescription();
    if (!description.endsWith(mark)) widget.setAccessibleDescription(description + mark);
}

class IdFilter : public QObject
{
public:
    explicit IdFilter(QObject* parent) : QObject(parent) {}
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Polish && watched->isWidgetType())
            AppendId(static_cast<QWidget&>(*watched));
        return false;
    }
};

} // namespace

void InstallIdFilter(QApplication& application)
{
    if (qgetenv("VEXA_IDS") != "1") return;
    application.installEventFilter(new IdFilter(&application));
}

} // namespace platform
