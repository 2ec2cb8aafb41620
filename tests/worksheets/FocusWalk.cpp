#include "worksheets/FocusWalk.h"

#include "platform/widgets/Grid.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/Theme.h"

#include <QApplication>
#include <QImage>
#include <QRadioButton>
#include <QTest>

#include <algorithm>

namespace FocusWalk {

namespace {

constexpr int kSlack = 4;        // pixels
constexpr int kMostCells = 2000; // of one grid
constexpr int kMostStops = 200;
constexpr double kVisible = 3.0; // the least contrast of a focus ring

void Press(QWidget& control, bool forward)
{
    const auto* text = qobject_cast<platform::RichTextEdit*>(&control);
    const bool keepsTab = text != nullptr && !text->isReadOnly();
    QTest::keyClick(&control,
                    forward ? Qt::Key_Tab : Qt::Key_Backtab,
                    (keepsTab ? Qt::ControlModifier : Qt::NoModifier) |
                        (forward ? Qt::NoModifier : Qt::ShiftModifier));
    QCoreApplication::processEvents();
}

/// The control that the focus is in: a cell's editor counts as its grid.
QWidget* Focused()
{
    QWidget* focused = QApplication::focusWidget();
    for (QWidget* at = focused; at != nullptr; at = at->parentWidget()) {
        if (qobject_cast<platform::Grid*>(at) != nullptr) return at;
    }
    return focused;
}

/// On to another control, through the cells of a grid where there are any.
QWidget* Next(QWidget& control, bool forward)
{
    for (int key = 0; key < kMostCells && Focused() == &control; ++key)
        Press(*QApplication::focusWidget(), forward);
    return Focused();
}

QRect PlaceOf(const QWidget& control, const QWidget& window)
{
    return {control.mapTo(&window, QPoint()), control.size()};
}

QImage Picture(QWidget& control)
{
    QCoreApplication::processEvents();
    const QRect place = QRect(control.mapTo(control.window(), QPoint()), control.size());
    control.window()->setAttribute(Qt::WA_KeyboardFocusChange); // as after a press of Tab
    return control.window()
        ->grab(place.adjusted(-3, -3, 3, 3))
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

/// Options that exclude each other are one stop, whichever of them it is: the arrow keys reach the others.
QWidget* StopOf(QWidget* control)
{
    if (qobject_cast<QRadioButton*>(control) == nullptr) return control;
    return control->parentWidget()->findChild<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

std::vector<QWidget*> Stops(QWidget& place)
{
    std::vector<QWidget*> stops;
    for (QWidget* widget : place.findChildren<QWidget*>()) {
        const bool stop = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
        if (stop && StopOf(widget) == widget && widget->isVisible() && widget->isEnabled() &&
            widget->window() == place.window())
            stops.push_back(widget);
    }
    return stops;
}

std::vector<QWidget*> Walk(QWidget& place, QWidget& first, bool forward)
{
    first.setFocus(Qt::TabFocusReason);
    std::vector<QWidget*> walked;
    for (QWidget* at = Focused(); at != nullptr && place.isAncestorOf(at) && walked.size() < kMostStops;) {
        walked.push_back(StopOf(at));
        QWidget* next = Next(*at, forward);
        if (next == at || next == &first) break;
        at = next;
    }
    return walked;
}

std::string NameOf(const QWidget* control)
{
    if (control == nullptr) return "nothing";
    const QString name = control->objectName();
    return name.isEmpty() ? control->metaObject()->className() : name.toStdString();
}

std::vector<std::string> NamesOf(const std::vector<QWidget*>& controls)
{
    std::vector<std::string> names;
    std::transform(controls.begin(), controls.end(), std::back_inserter(names), NameOf);
    return names;
}

std::vector<std::string> StepsBack(const std::vector<QWidget*>& walked, const QWidget& window)
{
    std::vector<std::string> steps;
    for (std::size_t i = 1; i < walked.size(); ++i) {
        const QRect from = PlaceOf(*walked[i - 1], window);
        const QRect to = PlaceOf(*walked[i], window);
        const bool up = to.bottom() < from.top() + kSlack && to.left() < from.right() - kSlack;
        const bool left = to.right() < from.left() + kSlack && to.top() < from.bottom() - kSlack;
        if (up || left) steps.push_back(NameOf(walked[i - 1]) + " to " + NameOf(walked[i]));
    }
    return steps;
}

int PixelsOfFocus(QWidget& control)
{
    control.setFocus(Qt::TabFocusReason);
    const QImage with = Picture(control);
    QWidget* focused = QApplication::focusWidget();
    if (focused != nullptr) focused->clearFocus();
    const QImage without = Picture(control);
    int pixels = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            const QColor now = with.pixelColor(x, y);
            if (platform::Theme::Contrast(now, without.pixelColor(x, y)) >= kVisible) ++pixels;
        }
    }
    return pixels;
}

} // namespace FocusWalk
