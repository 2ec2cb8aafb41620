#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/CharacterFormat.h"

#include <QFont>
#include <QString>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform::print {

/// The font that draws a look where one unit is one twip. It is not hinted, so it measures the same on every
/// device.
QFont FontOf(const richtext::CharacterFormat& look);

/// How far the baseline of a look stands above that of its line, twips; below it negative.
Double RaiseOf(const richtext::CharacterFormat& look);

/// The families that the system serves, among them those it serves by a substitute of equal metrics.
std::vector<std::string> ServedFamilies();

QString FromUtf8(std::string_view text);

/// Numbers the looks of texts as they are first used. What stands behind a text and where it links to is no
/// part of its look.
class LookBook
{
public:
    /// The looks must outlive the book, which alone may add to them.
    explicit LookBook(std::vector<richtext::CharacterFormat>& looks);

    Long Of(richtext::CharacterFormat look);
    const richtext::CharacterFormat& Look(Long number) const;
    const QFont& Font(Long number);
    /// Forgets the looks, which must be empty again.
    void Clear();

private:
    std::vector<richtext::CharacterFormat>& m_looks;
    std::unordered_multimap<std::size_t, Long> m_numbers; // by a hash of the look
    std::vector<QFont> m_fonts;                           // of the looks
};

} // namespace platform::print
