#include "platform/richtext/RichList.h"

namespace platform::richtext {

namespace {

constexpr Long indentPerLevel = 360; // twips

RichList ListOf(ListLevel (*levelOf)(Long))
{
    RichList list;
    for (Long level = 0; level < maxListLevels; ++level) {
        ListLevel made = levelOf(level);
        made.indentLeft = indentPerLevel * (level + 1);
        made.indentFirst = -indentPerLevel;
        list.levels.push_back(std::move(made));
    }
    return list;
}

} // namespace

RichList BulletList()
{
    return ListOf([](Long level) {
        constexpr const char* bullets[] = {"\u2022", "\u25E6", "\u25AA"};
        ListLevel made;
        made.bullet = bullets[level % 3];
        return made;
    });
}

RichList NumberList()
{
    return ListOf([](Long level) {
        constexpr NumberStyle styles[] = {
            NumberStyle::Arabic, NumberStyle::LowerLetter, NumberStyle::LowerRoman};
        ListLevel made;
        made.kind = ListKind::Number;
        made.style = styles[level % 3];
        made.bullet.clear();
        made.textAfter = ".";
        return made;
    });
}

} // namespace platform::richtext
