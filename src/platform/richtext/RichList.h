#pragma once

#include "platform/base/Numbers.h"

#include <cstdint>
#include <string>
#include <vector>

namespace platform::richtext {

enum class ListKind : std::uint8_t {
    Bullet,
    Number,
    None // an item without a marker
};

enum class NumberStyle : std::uint8_t { Arabic, UpperRoman, LowerRoman, UpperLetter, LowerLetter };

/// How the items of one level are marked. A marker is `textBefore`, the bullet or number, `textAfter`.
struct ListLevel
{
    ListKind kind = ListKind::Bullet;
    NumberStyle style = NumberStyle::Arabic; // Number only, else Arabic
    Long start = 1;                          // the first item's number, 0 or more; 1 unless Number
    std::string bullet = "\u2022";           // Bullet only, UTF-8; empty otherwise
    std::string textBefore;                  // Number only, UTF-8: "("
    std::string textAfter;                   // Number only, UTF-8: "." or ")"
    Long indentLeft = 0;                     // twips, what a paragraph put on this level gets
    Long indentFirst = 0;

    friend bool operator==(const ListLevel&, const ListLevel&) = default;
};

constexpr Long maxListLevels = 9;

/// A list of up to nine levels. Items of equal list number go on counting through the document.
struct RichList
{
    std::vector<ListLevel> levels; // 1 to 9

    friend bool operator==(const RichList&, const RichList&) = default;
};

/// The usual lists: bullets on each of nine levels, or 1. a. i. and so on, 360 twips further in a level.
RichList BulletList();
RichList NumberList();

} // namespace platform::richtext
