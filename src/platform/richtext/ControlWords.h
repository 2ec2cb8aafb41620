#pragma once

#include "platform/base/Numbers.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace platform::richtext::reader {

class Parser;

/// The number behind a control word.
struct Parameter
{
    Long value = 0;
    bool given = false;

    /// The number, or what the word alone means.
    Long Or(Long other) const { return given ? value : other; }
    /// Off is 0 and nothing else.
    bool IsOn() const { return !given || value != 0; }
};

enum class WordKind : std::uint8_t {
    Property,    // changes what the group holds; does nothing in groups nested too deep
    Shared,      // changes what is no group's own; counts only where text is shown
    Text,        // stands for text or ends a piece of it
    Destination, // sends the group's text elsewhere
    Skipped      // nothing of the group counts
};

/// A control word and what it does.
struct ControlWord
{
    std::string_view name;
    WordKind kind;
    void (*apply)(Parser& parser, Parameter parameter); // nothing for Skipped
};

/// The words by what they are about.
std::span<const ControlWord> CharacterWords();
std::span<const ControlWord> ParagraphWords();
std::span<const ControlWord> TableWords();
std::span<const ControlWord> ListWords();
std::span<const ControlWord> PictureWords();
std::span<const ControlWord> TextWords();
std::span<const ControlWord> DocumentWords();

/// The word of that name; nothing if it is unknown.
const ControlWord* FindWord(std::string_view name);

} // namespace platform::richtext::reader
