#pragma once

#include "platform/print/PrintControl.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace printed {

using platform::print::Document;
using platform::print::Ink;
using platform::print::Page;
using platform::print::PlacedText;
using platform::print::PrintControl;

/// A control with an open document.
struct OpenControl : PrintControl
{
    OpenControl() { StartDoc(); }
};

/// Ends the document; its pages.
inline const Document& Ended(PrintControl& control)
{
    control.EndDoc();
    return control.Pages();
}

/// The texts of a page, in the order in which they were written.
inline std::vector<std::string> TextsOf(const Page& page)
{
    std::vector<std::string> texts;
    for (const PlacedText& text : page.ink.texts)
        texts.push_back(text.text);
    return texts;
}

/// The first text that begins so, on any page.
inline std::optional<PlacedText> Find(const Document& document, const std::string& beginning)
{
    for (const Page& page : document.pages) {
        for (const PlacedText& text : page.ink.texts) {
            if (text.text.starts_with(beginning)) return text;
        }
    }
    return std::nullopt;
}

inline PlacedText At(const Document& document, const std::string& beginning)
{
    return Find(document, beginning)
        .value_or(PlacedText{-1.0, -1.0, -1.0, 0, false, "not there: " + beginning});
}

/// From 0; -1 when it is on none.
inline int PageOf(const Document& document, const std::string& beginning)
{
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        for (const PlacedText& text : document.pages[i].ink.texts) {
            if (text.text.starts_with(beginning)) return static_cast<int>(i);
        }
    }
    return -1;
}

inline const platform::richtext::CharacterFormat& LookOf(const Document& document,
                                                         const std::string& beginning)
{
    return document.looks.at(static_cast<std::size_t>(At(document, beginning).look));
}

/// All texts of all pages in the order of writing, blanks left out.
inline std::string Letters(const Document& document)
{
    std::string letters;
    for (const Page& page : document.pages) {
        for (const PlacedText& text : page.ink.texts)
            letters += text.text;
    }
    std::erase(letters, ' ');
    return letters;
}

/// The middle and the right edge of a text, in whole twips.
inline long Middle(const PlacedText& text) { return std::lround(text.x + text.width / 2); }
inline long RightEdge(const PlacedText& text) { return std::lround(text.x + text.width); }

inline std::string Repeated(const std::string& text, int count)
{
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

/// A stored body.
inline std::string BodyOf(const std::string& inner)
{
    return "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 "
           "Arial;}{\\f1\\froman\\fcharset0 "
           "Times New Roman;}}{\\colortbl;\\red0\\green0\\blue0;\\red200\\green0\\blue0;}\\plain\\f0\\fs20 "
           "\\pard " +
           inner + "\\par }";
}

/// How high a line of the default font is, and how far its baseline is below its top, in twips.
constexpr double line10 = 223.0;
constexpr double base10 = 181.0;

} // namespace printed
