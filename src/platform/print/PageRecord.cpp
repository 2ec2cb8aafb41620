#include "platform/print/PageRecord.h"

#include <algorithm>
#include <cmath>

namespace platform::print {

namespace {

/// Two baselines nearer than this are one line: a raised figure belongs to its line.
constexpr Double sameLine = 100.0;
/// Texts of one line that are further apart than this are parted by a blank.
constexpr Double apart = 20.0;

bool ReadsBefore(const PlacedText* a, const PlacedText* b)
{
    if (a->y != b->y) return a->y < b->y;
    return a->x < b->x;
}

std::vector<const PlacedText*> Sorted(const Page& page)
{
    std::vector<const PlacedText*> texts;
    for (const PlacedText& text : page.ink.texts)
        texts.push_back(&text);
    std::stable_sort(texts.begin(), texts.end(), ReadsBefore);
    return texts;
}

std::string Joined(std::vector<const PlacedText*> line)
{
    std::stable_sort(line.begin(), line.end(), [](const auto* a, const auto* b) { return a->x < b->x; });
    std::string text;
    Double end = 0.0;
    for (const PlacedText* piece : line) {
        if (!text.empty() && piece->x - end > apart && text.back() != ' ') text += ' ';
        text += piece->text;
        end = piece->x + piece->width;
    }
    return text;
}

} // namespace

void Ink::Append(const Ink& other, Double dx, Double dy)
{
    for (PlacedFill fill : other.fills) {
        fill.x += dx;
        fill.y += dy;
        fills.push_back(fill);
    }
    for (PlacedPicture picture : other.pictures) {
        picture.x += dx;
        picture.y += dy;
        pictures.push_back(std::move(picture));
    }
    for (const PlacedLine& line : other.lines)
        lines.push_back({line.x1 + dx, line.y1 + dy, line.x2 + dx, line.y2 + dy, line.width, line.color});
    for (PlacedText text : other.texts) {
        text.x += dx;
        text.y += dy;
        texts.push_back(std::move(text));
    }
}

void Ink::AppendUpward(const Ink& other, Double left, Double bottom)
{
    for (const PlacedFill& fill : other.fills)
        fills.push_back({left + fill.y, bottom - fill.x - fill.width, fill.height, fill.width, fill.color});
    for (const PlacedPicture& one : other.pictures)
        pictures.push_back({left + one.y, bottom - one.x - one.width, one.height, one.width, one.picture});
    for (const PlacedLine& line : other.lines)
        lines.push_back(
            {left + line.y1, bottom - line.x1, left + line.y2, bottom - line.x2, line.width, line.color});
    for (PlacedText text : other.texts) {
        const Double x = text.x;
        text.x = left + text.y;
        text.y = bottom - x;
        text.upward = true;
        texts.push_back(std::move(text));
    }
}

std::vector<std::string> LinesOf(const Page& page)
{
    std::vector<std::string> lines;
    std::vector<const PlacedText*> line;
    const auto endLine = [&] {
        if (!line.empty()) lines.push_back(Joined(std::move(line)));
        line.clear();
    };
    for (const PlacedText* text : Sorted(page)) {
        const bool isAlone = text->upward || (!line.empty() && line.back()->upward);
        if (isAlone || (!line.empty() && text->y - line.front()->y >= sameLine)) endLine();
        line.push_back(text);
    }
    endLine();
    return lines;
}

} // namespace platform::print
