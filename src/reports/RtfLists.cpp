#include "platform/base/Texts.h"
#include "reports/ReportState.h"

#include <string_view>

namespace ReportUtilities {

namespace {

constexpr std::string_view itemStart = "\\tab}\\ls1\\ilvl0";
constexpr std::string_view indentedItem = "\\tab}\\pard\\fi-360\\li360\\tx360\\ls1\\ilvl0";

void IndentItems(std::string& rtf)
{
    for (std::size_t place = rtf.find(itemStart); place != std::string::npos;
         place = rtf.find(itemStart, place + indentedItem.size()))
        rtf.replace(place, itemStart.size(), indentedItem);
}

/// Puts the number in the place of the 1 that ends a word, which is looked for from `from` on. Moves `from`
/// behind the number: from the tenth list on, a search from the word itself would find "listid1" in the
/// "listid10" just written, and the override would be left without its number. Tells whether the word is
/// there.
bool Renumber(std::string& rtf, std::size_t& from, std::string_view word, std::size_t digit)
{
    const std::size_t place = rtf.find(word, from);
    if (place == std::string::npos) return false;
    const std::string number = platform::TextOf(Long{nRtfLists()});
    rtf.replace(place + digit, 1, number);
    from = place + digit + number.size();
    return true;
}

/// The same for words that end in their 1.
bool Renumber(std::string& rtf, std::size_t& from, std::string_view word)
{
    return Renumber(rtf, from, word, word.size() - 1);
}

} // namespace

std::string FixRtfList(std::string rtf)
{
    constexpr std::string_view listTemplate = "listtemplateid1";
    constexpr std::string_view listId = "listid1"; // in the list table, then in the override table
    constexpr std::string_view use = "\\ls1";
    constexpr std::string_view laterUse = "\\ls1\\"; // on purpose not the last one, where nothing follows
    IndentItems(rtf);
    std::size_t place = rtf.find(listTemplate);
    if (place == std::string::npos) return rtf;
    if (++State().rtfLists < 2) return rtf;
    Renumber(rtf, place, listTemplate);
    if (Renumber(rtf, place, listId)) Renumber(rtf, place, listId);
    bool found = Renumber(rtf, place, use);
    while (found)
        found = Renumber(rtf, place, laterUse, use.size() - 1);
    return rtf;
}

std::string TrimRight(std::string text)
{
    text.erase(text.find_last_not_of(" \r\n") + 1);
    return text;
}

} // namespace ReportUtilities
