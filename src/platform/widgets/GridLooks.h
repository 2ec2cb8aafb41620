#pragma once

#include <QColor>
#include <QPalette>

/// The colours of a grid's cells, light and dark.
namespace platform::GridLooks {

/// The ground of a cell: the tint told for a light screen, darker on a dark one; without a tint the grid's
/// own, with a breath of the accent on the current row.
QColor Ground(const QPalette& palette, const QColor& tint, bool currentRow);
/// The lines between cells.
QColor Line(const QPalette& palette);
/// The colour of text that reads on a ground, at least 4.5 to 1; of a disabled grid fainter, at least 3 to 1.
QColor TextOn(const QPalette& palette, const QColor& ground, bool enabled);

/// The ground and the filled part of a bar.
QColor BarTrack(const QPalette& palette);
QColor BarFill(const QPalette& palette, bool enabled);

} // namespace platform::GridLooks
