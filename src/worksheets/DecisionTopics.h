#pragma once

#include "platform/base/Numbers.h"

/// The two topics of the decision summary that every decision has.
enum DecisionTopic : Long { SelectedDescription = 291, SelectionRationale = 292 };
