#pragma once

#include "platform/base/Numbers.h"

#include <string>
#include <vector>

class c51Alternative;

/// One alternative's probability tree as a drawing: what is written and ruled where, knowing no screen.
/// All places are twips from the top left corner of the surface; texts are UTF-8 and stand on one line each.
struct DecisionTreeDrawing
{
    struct Text
    {
        Long x = 0; // of the text's top left corner
        Long y = 0;
        std::string text;
        bool operator==(const Text&) const = default;
    };
    struct Line
    {
        Long x1 = 0;
        Long y1 = 0;
        Long x2 = 0;
        Long y2 = 0;
        bool operator==(const Line&) const = default;
    };

    // Each in the order of drawing.
    std::vector<Text> texts;
    std::vector<Line> lines;

    bool IsEmpty() const { return texts.empty() && lines.empty(); }
    /// The texts in order, one a line.
    std::string Words() const;
};

/// Where the lines of a tree with a Fallback end, and as much again as they leave free on the left, in twips.
inline constexpr Long kFullTreeWidth = 9360 + 60;

/// The tree with its figures as the model gives them now. Throws what the model throws for a file that lacks
/// a row or holds a figure out of range.
DecisionTreeDrawing DrawDecisionTree(c51Alternative& alternative);
