#include "platform/richtext/RichDocument.h"

namespace platform::richtext {

namespace {

bool SamePicture(const std::shared_ptr<const Picture>& a, const std::shared_ptr<const Picture>& b)
{
    return a == b || (a != nullptr && b != nullptr && *a == *b);
}

} // namespace

bool operator==(const Run& a, const Run& b)
{
    return a.text == b.text && a.format == b.format && SamePicture(a.picture, b.picture);
}

bool operator==(const Block& a, const Block& b) { return a.content == b.content; }

bool operator==(const TableCell& a, const TableCell& b)
{
    return a.width == b.width && a.mergeAcross == b.mergeAcross && a.mergeDown == b.mergeDown &&
           a.alignment == b.alignment && a.top == b.top && a.left == b.left && a.bottom == b.bottom &&
           a.right == b.right && a.background == b.background && a.upward == b.upward && a.blocks == b.blocks;
}

const ListLevel* LevelOf(const RichDocument& document, const ParagraphFormat& format)
{
    if (format.list < 1 || static_cast<std::size_t>(format.list) > document.lists.size()) return nullptr;
    const std::vector<ListLevel>& levels = document.lists[static_cast<std::size_t>(format.list) - 1].levels;
    const bool isThere = format.level >= 0 && static_cast<std::size_t>(format.level) < levels.size();
    return isThere ? &levels[static_cast<std::size_t>(format.level)] : nullptr;
}

void AppendText(Paragraph& paragraph, std::string_view text, const CharacterFormat& format)
{
    if (text.empty()) return;
    std::vector<Run>& runs = paragraph.runs;
    if (!runs.empty() && runs.back().picture == nullptr && runs.back().format == format) {
        runs.back().text += text;
    } else {
        runs.push_back(Run{format, std::string(text), nullptr});
    }
}

} // namespace platform::richtext
