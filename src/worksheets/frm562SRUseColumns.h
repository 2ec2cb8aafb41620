#pragma once

#include "platform/base/Numbers.h"
#include "values/c68SRUse.h"

#include <QColor>

/// The columns of grdSRList, the lines of an outcome's resource list, and what its files share.
namespace SRUseColumns {

enum Column : Long { Position = 0, Quantity = 1, Name = 2, Time = 3, Units = 4, Cost = 5, Count = 6 };

/// The ground of names and units; of the current line's name.
inline const QColor kPale(255, 255, 224);
inline const QColor kYellow(255, 255, 0);

/// Whether the line has no periods to fill in.
inline bool IsItem(const c68SRUse& use) { return use.SRType()->UnitType() == "item"; }

/// The numbers of a line.
inline bool IsEdited(Long column) { return column == Position || column == Quantity || column == Time; }

} // namespace SRUseColumns
