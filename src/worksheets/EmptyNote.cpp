#include "worksheets/EmptyNote.h"

#include "platform/widgets/Theme.h"

#include <QAbstractScrollArea>
#include <QEvent>

EmptyNote::EmptyNote(const QString& sentence, QAbstractScrollArea* list)
    : QuietLabel(sentence, list->viewport())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const int margin = platform::Theme::Margin();
    setContentsMargins(margin, margin, margin, margin);
    list->viewport()->installEventFilter(this);
    hide();
}

void EmptyNote::Fit() { setGeometry(parentWidget()->rect()); }

bool EmptyNote::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize) Fit();
    return QuietLabel::eventFilter(watched, event);
}
