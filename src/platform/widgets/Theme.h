#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

class QPainter;
class QRect;

/// How every window looks: the desktop's own font and palette, light or dark, with one accent.
namespace platform::Theme {

/// Lengths of the house, in device-independent pixels scaled with the screen's dots per inch.
int Margin();
int Gap();
int GroupGap();

/// Twips are 1440 to the inch of the screen: 15 to a pixel at 96 dots per inch.
int Pixels(int twips);
int Twips(int pixels);

/// The font, so many times as large.
QFont Sized(const QFont& font, double times);
/// The font of a worksheet's title: 1.4 times as large, semi-bold.
QFont TitleFont(const QFont& font);

bool IsDark(const QPalette& palette);
/// The warm ember of the tab shown, the rating bar, the current row and the focus ring. Never the colour of
/// text.
QColor Accent(const QPalette& palette);
/// The text colour of instructions and of tabs not shown: quieter, still 4.5 to 1 against the window and the
/// strip.
QColor QuietText(const QPalette& palette);
/// The ground behind the tab strips, a little off the window's.
QColor StripGround(const QPalette& palette);
/// Thin rules and outlines.
QColor Rule(const QPalette& palette);

/// `over` laid upon `under`, `share` of it between 0 and 1.
QColor Mixed(const QColor& under, const QColor& over, double share);
/// The ring around what keys go to, just within a place.
void PaintFocusFrame(QPainter& painter, const QPalette& palette, const QRect& place);
/// The contrast of two colours, 1 to 21.
double Contrast(const QColor& first, const QColor& second);

/// The palette in use where the desktop asks for dark windows and the toolkit brings none of its own.
QPalette DarkPalette();
/// The palette with the accent as the ground of selections, and with faint text that can be read.
QPalette WithAccent(QPalette palette);
/// Sets the application's palette: the desktop's, or the dark one where the desktop prefers it, with the
/// accent.
void Apply();

} // namespace platform::Theme
