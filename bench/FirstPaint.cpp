#include "FirstPaint.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <string>

namespace {

class PaintWatch : public QObject
{
public:
    PaintWatch(QObject* parent, const char* name) : QObject(parent), m_name(QString::fromUtf8(name)) {}

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && object->objectName() == m_name) {
            // Behind the flush of this paint.
            QTimer::singleShot(0, qApp, &QApplication::quit);
        }
        return false;
    }

private:
    QString m_name;
};

} // namespace

void QuitAfterFirstPaint(QApplication& application, const char* objectName)
{
    application.installEventFilter(new PaintWatch(&application, objectName));
}
