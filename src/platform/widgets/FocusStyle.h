#pragma once

#include <QProxyStyle>

namespace platform {

/// The desktop's own style, but for the mark of the control that keys go to: a ring in the accent that nobody
/// overlooks, and for edges of boxes that show on a dark ground too. As ever the ring of a button shows only
/// once keys have moved the focus. The base of the application's style.
class FocusStyle : public QProxyStyle
{
    Q_OBJECT

public:
    void drawPrimitive(PrimitiveElement element,
                       const QStyleOption* option,
                       QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element,
                     const QStyleOption* option,
                     QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control,
                            const QStyleOptionComplex* option,
                            QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace platform
