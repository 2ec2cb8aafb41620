#pragma once

#include <QWidget>

#include <string>
#include <vector>

/// What a person sees cut, covered or out of reach.
namespace WholeControls {

/// One sentence for each control below a window that does not show whole: a text with less room than it
/// takes, a control that reaches beyond what holds it, a column whose head or figures are cut, tabs that need
/// to be scrolled. What lies in an area that scrolls may be out of sight there, and no further.
std::vector<std::string> Complaints(QWidget& window);

} // namespace WholeControls
