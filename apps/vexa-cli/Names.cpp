#include "vexa-cli/Names.h"

#include <algorithm>

namespace vexa_cli {

namespace {
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
} // namespace

bool SameName(std::string_view a, std::string_view b)
{
    return std::equal(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lower(x) == Lower(y); });
}

bool NameBefore(std::string_view a, std::string_view b)
{
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lower(x) < Lower(y); });
}

} // namespace vexa_cli
