#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/CharacterFormat.h"
#include "platform/richtext/Picture.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// The page record: what stands where on each page of a report. It is made once, by the layout core, at
// printer resolution; the preview, the printer, PDF and PNG draw it (PagePainter.h) and none of them lays
// anything out, so all show the same lines and the same page breaks on any screen.
//
// Every length and position is in twips, 1440 to the inch, from the top left corner of the paper, x to the
// right and y downward. Layers from back to front: fills, pictures, lines, texts; within a layer in order of
// drawing.

namespace platform::print {

/// A stretch of text of one look on one line.
struct PlacedText
{
    Double x = 0.0; // where it begins
    Double y = 0.0; // of its baseline; a raised or lowered text has one of its own
    Double width = 0.0;
    Long look = 0;       // place in Document::looks
    bool upward = false; // turned by a quarter: begins at (x, y), reads upward, the baseline is vertical
    std::string text;    // UTF-8, no tabs and no line ends

    friend bool operator==(const PlacedText&, const PlacedText&) = default;
};

struct PlacedLine
{
    Double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;
    Double width = 0.0;      // of the pen
    std::uint32_t color = 0; // 0xRRGGBB

    friend bool operator==(const PlacedLine&, const PlacedLine&) = default;
};

/// A filled rectangle: the colour behind a text, a paragraph or a cell.
struct PlacedFill
{
    Double x = 0.0, y = 0.0, width = 0.0, height = 0.0;
    std::uint32_t color = 0;

    friend bool operator==(const PlacedFill&, const PlacedFill&) = default;
};

struct PlacedPicture
{
    Double x = 0.0, y = 0.0, width = 0.0, height = 0.0;
    /// Never nothing. What is no PNG, JPEG or bitmap, or is damaged, shows as an empty frame.
    std::shared_ptr<const richtext::Picture> picture;
};

/// Whatever is drawn, in any frame of reference.
struct Ink
{
    std::vector<PlacedFill> fills;
    std::vector<PlacedPicture> pictures;
    std::vector<PlacedLine> lines;
    std::vector<PlacedText> texts;

    /// Adds other ink, moved by (dx, dy).
    void Append(const Ink& other, Double dx, Double dy);
    /// Adds other ink, turned to read upward: its origin comes to (left, bottom), its x runs upward and its y
    /// to the right. Pictures and fills keep their corners turned with it.
    void AppendUpward(const Ink& other, Double left, Double bottom);
};

struct Page
{
    Long number = 0; // as the running header shows it, from 1
    Double width = 0.0, height = 0.0;
    Ink ink; // the running header and its rule come last
};

/// A place that the PDF's outline leads to.
struct Bookmark
{
    std::string title; // UTF-8
    Long page = 0;     // from 0
    Double y = 0.0;    // twips from the top
};

/// A page's lines of text, from top to bottom and left to right: those of one baseline are one line, pieces
/// apart are parted by a blank. For search, for reading aloud and for tests.
std::vector<std::string> LinesOf(const Page& page);

} // namespace platform::print
