#pragma once

#include "platform/base/Numbers.h"

/// The columns of grdSRList, the lines of an outcome's resource list.
namespace SRUseColumns {

enum Column : Long { Position = 0, Quantity = 1, Name = 2, Time = 3, Units = 4, Cost = 5, Count = 6 };

} // namespace SRUseColumns
