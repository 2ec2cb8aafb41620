#include "datafile_builder/Markup.h"

#include "datafile_builder/BuildError.h"
#include "datafile_builder/RtfText.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace datafile_builder {

namespace {

enum class LineKind { plain, bullet, number };

struct Line
{
    LineKind kind = LineKind::plain;
    std::string_view text; // without the marker
    int number = 0;        // of a numbered item
    int list = 0;          // the number that RTF knows the line's list by; 0: in no list
};

constexpr std::string_view fontsAndColours =
    "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
    "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}";
constexpr std::string_view beforeText = "\\plain\\f0\\fs20 ";

std::vector<std::string_view> Split(std::string_view text, std::string_view separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + separator.size());
    }
}

/// The number of "12. text", or none. Three digits at most: a year ends a sentence more often than it counts
/// items.
std::optional<int> ItemNumber(std::string_view line)
{
    constexpr std::size_t mostDigits = 3;
    const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
    if (digits == 0 || digits > mostDigits || line.substr(digits, 2) != ". ") return std::nullopt;
    return std::stoi(std::string(line.substr(0, digits)));
}

Line LineOf(std::string_view text)
{
    if (text.starts_with("- ")) return {LineKind::bullet, text.substr(2)};
    if (const auto number = ItemNumber(text)) {
        return {LineKind::number, text.substr(text.find(". ") + 2), *number};
    }
    return {LineKind::plain, text};
}

/// The first list of a body is number 1, the others 901, 902 and so on: no later number may begin with the
/// digit of the first, or renumbering that one by its text would change them too.
int ListNumber(int position) { return position == 1 ? 1 : 899 + position; }

void CheckNumber(const Line& line, const Line* previous)
{
    const bool goesOn = previous != nullptr && previous->kind == LineKind::number;
    const int due = goesOn ? previous->number + 1 : 1;
    if (line.number == due) return;
    throw BuildError("item " + std::to_string(line.number) + ". stands where " + std::to_string(due) +
                     ". is due");
}

std::vector<Line> LinesOf(std::string_view markup)
{
    std::vector<Line> lines;
    int lists = 0;
    for (const std::string_view text : Split(markup, "\n")) {
        Line line = LineOf(text);
        const Line* previous = lines.empty() ? nullptr : &lines.back();
        if (line.kind == LineKind::number) CheckNumber(line, previous);
        const bool newList = previous == nullptr || previous->kind != line.kind;
        if (line.kind != LineKind::plain) line.list = ListNumber(newList ? ++lists : lists);
        lines.push_back(line);
    }
    return lines;
}

std::string ListDefinition(const Line& line)
{
    const bool bullet = line.kind == LineKind::bullet;
    const std::string number = std::to_string(line.list);
    return "{\\list\\listtemplateid" + number + "\\listhybrid{\\listlevel\\levelnfc" + (bullet ? "23" : "0") +
           "\\leveljc0\\levelfollow0\\levelstartat1\\levelspace0\\levelindent0" +
           (bullet ? "{\\leveltext\\'01\\u8226 ;}{\\levelnumbers;}"
                   : "{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}") +
           "\\fi-360\\li360\\tx360}{\\listname ;}\\listid" + number + "}";
}

std::string ListOverride(const Line& line)
{
    const std::string number = std::to_string(line.list);
    return "{\\listoverride\\listid" + number + "\\listoverridecount0\\ls" + number + "}";
}

std::string ListTables(const std::vector<Line>& lines)
{
    std::string lists, overrides;
    int last = 0;
    for (const Line& line : lines) {
        if (line.list == 0 || line.list == last) continue;
        lists += ListDefinition(line);
        overrides += ListOverride(line);
        last = line.list;
    }
    if (lists.empty()) return {};
    return "{\\*\\listtable" + lists + "}{\\*\\listoverridetable" + overrides + "}";
}

std::string ListMark(const Line& line)
{
    if (line.list == 0) return {};
    const std::string mark = line.kind == LineKind::bullet ? "\\u8226 " : std::to_string(line.number) + ".";
    return "{\\listtext " + mark + "\\tab}\\ls" + std::to_string(line.list) +
           "\\ilvl0\\fi-360\\li360\\tx360 ";
}

/// The text of a line with its bold runs.
std::string Runs(std::string_view text)
{
    const std::vector<std::string_view> parts = Split(text, "**");
    if (parts.size() % 2 == 0)
        throw BuildError("\"**\" without its partner in \"" + std::string(text) + "\"");
    std::string runs;
    bool bold = false;
    bool afterBold = false; // the control word that ended a bold run wants a blank before text
    for (const std::string_view part : parts) {
        if (!part.empty()) {
            runs += bold ? "\\b " : afterBold ? " " : "";
            runs += RtfText(part);
            runs += bold ? "\\b0" : "";
            afterBold = bold;
        }
        bold = !bold;
    }
    return runs;
}

} // namespace

std::string DefaultBody() { return MarkupToRtf(""); }

std::string MarkupToRtf(std::string_view markup)
{
    const std::vector<Line> lines = LinesOf(markup);
    std::string rtf{fontsAndColours};
    rtf.append(ListTables(lines)).append(beforeText);
    for (const Line& line : lines)
        rtf += "\\pard " + ListMark(line) + Runs(line.text) + "\\par ";
    return rtf + "}";
}

} // namespace datafile_builder
