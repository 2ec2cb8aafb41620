#pragma once

#include <QWidget>

#include <string>
#include <vector>

/// What a person meets who goes through a window with the Tab key.
namespace FocusWalk {

/// The controls that Tab is to reach within a worksheet or dialog: shown, enabled, a stop for the key.
std::vector<QWidget*> Stops(QWidget& place);
/// The controls in the order in which Tab (or Shift+Tab) reaches them, from this one until it comes back to
/// it or leaves the place. Rich text is left with Ctrl. A control that does not let go ends the walk.
std::vector<QWidget*> Walk(QWidget& place, QWidget& first, bool forward);

std::string NameOf(const QWidget* control);
std::vector<std::string> NamesOf(const std::vector<QWidget*>& controls);
/// The steps that lead against the order of reading: back up the same column, or back left along a line.
std::vector<std::string> StepsBack(const std::vector<QWidget*>& walked, const QWidget& window);

/// How many pixels of a control look different while it has the focus, at a contrast of at least 3 to 1
/// against what was there.
int PixelsOfFocus(QWidget& control);

} // namespace FocusWalk
