#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A word within a text, in bytes of its UTF-8.
struct WordPlace
{
    std::size_t start = 0;
    std::size_t length = 0;
};

/// The words of a text that can be checked: Latin letters, apostrophes and hyphens between them
/// ("firefighters", "can't", "mop-up"). No such word is what holds a digit, an underscore or a letter of
/// another script, nor single letters parted by points ("U.S.", "e.g."), nor any part of an address
/// ("https://...", "www...", "name@host"). Bytes that are no UTF-8 part words.
std::vector<WordPlace> WordsOf(std::string_view text);

/// The parts of a word between its hyphens, as places in the word.
std::vector<WordPlace> PartsOf(std::string_view word);

/// The word as dictionaries write it: straight apostrophes.
std::string PlainWord(std::string_view word);

} // namespace platform
