#pragma once

#include <QImage>

class c51Alternative;

/// How the percents that the user gives become the chances that are counted: the fork of an alternative with
/// a Fallback on the left, a hundred squares on the right.
QImage ChancePicture(c51Alternative& alternative, bool dark);
