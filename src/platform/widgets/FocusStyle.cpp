#include "platform/widgets/FocusStyle.h"

#include "platform/widgets/Theme.h"

#include <QPainter>
#include <QStyleOption>

namespace platform {

namespace {

constexpr int kInset = 3;      // pixels from a button's edge
constexpr double kRound = 2.0; // pixels of a corner

QRect Within(const QRect& button) { return button.adjusted(kInset, kInset, -kInset, -kInset); }

bool ShowsFocus(const QStyleOption& option)
{
    return option.state.testFlag(QStyle::State_HasFocus) &&
           option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

/// What the style gives an edge darker than the ground, which on a dark one nobody sees.
bool DrawsEdge(QStyle::PrimitiveElement element)
{
    return element == QStyle::PE_FrameLineEdit || element == QStyle::PE_IndicatorCheckBox ||
           element == QStyle::PE_IndicatorRadioButton;
}

void PaintEdge(QStyle::PrimitiveElement element, const QStyleOption& option, QPainter& painter)
{
    const QRectF edge = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Theme::Rule(option.palette));
    painter.setBrush(Qt::NoBrush);
    element == QStyle::PE_IndicatorRadioButton ? painter.drawEllipse(edge)
                                               : painter.drawRoundedRect(edge, kRound, kRound);
    painter.restore();
}

} // namespace

void FocusStyle::drawPrimitive(PrimitiveElement element,
                               const QStyleOption* option,
                               QPainter* painter,
                               const QWidget* widget) const
{
    if (element != PE_FrameFocusRect) QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (DrawsEdge(element) && Theme::IsDark(option->palette)) PaintEdge(element, *option, *painter);
    const bool ring = element == PE_FrameFocusRect && option->state.testFlag(State_KeyboardFocusChange);
    const bool box = element == PE_FrameLineEdit && option->state.testFlag(State_HasFocus);
    if (ring || box) Theme::PaintFocusFrame(*painter, option->palette, option->rect);
}

void FocusStyle::drawControl(ControlElement element,
                             const QStyleOption* option,
                             QPainter* painter,
                             const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if ((element == CE_PushButton || element == CE_TabBarTabLabel) && ShowsFocus(*option))
        Theme::PaintFocusFrame(*painter, option->palette, Within(option->rect));
}

void FocusStyle::drawComplexControl(ComplexControl control,
                                    const QStyleOptionComplex* option,
                                    QPainter* painter,
                                    const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox && ShowsFocus(*option))
        Theme::PaintFocusFrame(*painter, option->palette, option->rect);
}

} // namespace platform
