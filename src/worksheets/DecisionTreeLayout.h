#pragma once

#include "worksheets/DecisionTreeDrawing.h"

#include <QFont>
#include <QRectF>
#include <QSizeF>

#include <vector>

class QPainter;

/// How large decision trees are shown: their font, and pixels for each twip. Trees that stand together share
/// one, so that their columns line up.
struct DecisionTreeScale
{
    QFont font;
    double across = 0;
    double down = 0;
};

/// A line's thickness in pixels beside letters of this font.
double LineWidthOf(const QFont& font);

/// What the text's letters cover, in pixels from the surface's corner; empty for a text without ink.
QRectF InkOf(const DecisionTreeDrawing::Text& text, const DecisionTreeScale& scale);
/// How often two texts, or a text and a line, come closer than they may.
int CountTouches(const DecisionTreeDrawing& tree, const DecisionTreeScale& scale);
/// The surface that the tree needs in pixels, with its margins.
QSizeF SizeOf(const DecisionTreeDrawing& tree, const DecisionTreeScale& scale);
/// The least surface that holds each of them.
QSizeF SizeOf(const std::vector<DecisionTreeDrawing>& trees, const DecisionTreeScale& scale);

/// The smallest scale at which every text stands clear in this font, as far as any scale can help it: the
/// first row below a line stands as close to it as the font sets its letters.
DecisionTreeScale ReadableScale(const std::vector<DecisionTreeDrawing>& trees, const QFont& font);
/// The largest readable scale that fits the room, no smaller than in the window's own font (where it then
/// does not fit) and no larger than in twice that.
DecisionTreeScale
FittingScale(const std::vector<DecisionTreeDrawing>& trees, const QFont& windowFont, const QSizeF& room);

/// Lines and texts in the painter's pen, at its origin. The painter's own font is left as it was.
void PaintLines(QPainter& painter, const DecisionTreeDrawing& tree, const DecisionTreeScale& scale);
void PaintTexts(QPainter& painter, const DecisionTreeDrawing& tree, const DecisionTreeScale& scale);
