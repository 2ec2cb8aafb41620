#include "platform/richtext/Parser.h"

#include <algorithm>

namespace platform::richtext::reader {

namespace {

template <Destination Where> void Redirect(Parser& parser, Parameter)
{
    const bool counts = parser.WantsLooks() && parser.Group().destination == Destination::Text;
    counts ? void(parser.Group().destination = Where) : parser.SkipGroup();
}

template <Destination Where> bool IsIn(Parser& parser) { return parser.Group().destination == Where; }

void BeginList(Parser& parser, Parameter)
{
    if (IsIn<Destination::Lists>(parser)) parser.Tables().lists.BeginList();
}

void SetListId(Parser& parser, Parameter parameter)
{
    if (IsIn<Destination::Lists>(parser)) parser.Tables().lists.SetListId(parameter.value);
    if (IsIn<Destination::Overrides>(parser)) parser.Tables().lists.SetOverriddenId(parameter.value);
}

void BeginLevel(Parser& parser, Parameter)
{
    if (!IsIn<Destination::Lists>(parser) && !IsIn<Destination::Overrides>(parser)) return parser.SkipGroup();
    parser.Group().destination = Destination::ListLevel;
    parser.Properties() = ParagraphState();
    parser.Character() = CharacterState();
    parser.Level() = LevelEntry();
}

void BeginLevelText(Parser& parser, Parameter)
{
    if (!IsIn<Destination::ListLevel>(parser)) return parser.SkipGroup();
    parser.Group().destination = Destination::ListLevelText;
}

void SetLevelKind(Parser& parser, Parameter parameter)
{
    if (IsIn<Destination::ListLevel>(parser)) parser.Level().numberKind = parameter.value;
}

void SetLevelStart(Parser& parser, Parameter parameter)
{
    if (IsIn<Destination::ListLevel>(parser)) parser.Level().start = parameter.value;
    if (IsIn<Destination::Overrides>(parser)) parser.Tables().lists.SetOverrideStart(parameter.value);
}

void BeginOverride(Parser& parser, Parameter)
{
    if (IsIn<Destination::Overrides>(parser)) parser.Tables().lists.BeginOverride();
}

void BeginOverrideLevel(Parser& parser, Parameter)
{
    if (IsIn<Destination::Overrides>(parser)) parser.Tables().lists.BeginOverrideLevel();
}

// In the override table it tells the number, elsewhere it uses it.
void SetList(Parser& parser, Parameter parameter)
{
    if (IsIn<Destination::Overrides>(parser)) return parser.Tables().lists.SetOverrideNumber(parameter.value);
    parser.Properties().list = parameter.value;
}

void BeginOldList(Parser& parser, Parameter)
{
    parser.WantsLooks() ? parser.BeginOldList() : parser.SkipGroup();
}

void SetOldPlace(Parser& parser, Parameter parameter)
{
    if (!IsIn<Destination::OldList>(parser)) return;
    parser.BegunOldList().place = std::clamp<Long>(parameter.value, 1, maxListLevels) - 1;
    parser.BegunOldList().level.kind = ListKind::Number;
}

template <ListKind Kind> void SetOldKind(Parser& parser, Parameter)
{
    if (IsIn<Destination::OldList>(parser)) parser.BegunOldList().level.kind = Kind;
}

template <Long NumberKind> void SetOldStyle(Parser& parser, Parameter)
{
    if (IsIn<Destination::OldList>(parser)) parser.BegunOldList().level.style = StyleOf(NumberKind);
}

void SetOldStart(Parser& parser, Parameter parameter)
{
    constexpr Long largest = 32767;
    if (IsIn<Destination::OldList>(parser)) {
        parser.BegunOldList().level.start = std::clamp<Long>(parameter.Or(1), 0, largest);
    }
}

void SetOldFont(Parser& parser, Parameter parameter)
{
    if (IsIn<Destination::OldList>(parser)) parser.Character().font = parameter.value;
}

template <Destination Where> void BeginOldText(Parser& parser, Parameter)
{
    if (!IsIn<Destination::OldList>(parser)) return parser.SkipGroup();
    parser.Group().destination = Where;
}

constexpr WordKind property = WordKind::Property;
constexpr WordKind destination = WordKind::Destination;

constexpr ControlWord words[] = {
    {"listtable", destination, Redirect<Destination::Lists>},
    {"list", property, BeginList},
    {"listid", property, SetListId},
    {"listlevel", destination, BeginLevel},
    {"levelnfc", property, SetLevelKind},
    {"levelnfcn", property, SetLevelKind},
    {"levelstartat", property, SetLevelStart},
    {"leveltext", destination, BeginLevelText},
    {"levelnumbers", WordKind::Skipped, nullptr},
    {"listname", WordKind::Skipped, nullptr},
    {"listpicture", WordKind::Skipped, nullptr},
    {"listoverridetable", destination, Redirect<Destination::Overrides>},
    {"listoverride", property, BeginOverride},
    {"lfolevel", property, BeginOverrideLevel},
    {"ls", property, SetList},
    {"listtext", destination, Redirect<Destination::Marker>},
    {"pntext", destination, Redirect<Destination::Marker>},
    {"pn", destination, BeginOldList},
    {"pnlvlblt", property, SetOldKind<ListKind::Bullet>},
    {"pnlvlbody", property, SetOldKind<ListKind::Number>},
    {"pnlvlcont", property, SetOldKind<ListKind::None>},
    {"pnlvl", property, SetOldPlace},
    {"pndec", property, SetOldStyle<0>},
    {"pncard", property, SetOldStyle<0>},
    {"pnord", property, SetOldStyle<0>},
    {"pnordt", property, SetOldStyle<0>},
    {"pnucrm", property, SetOldStyle<1>},
    {"pnlcrm", property, SetOldStyle<2>},
    {"pnucltr", property, SetOldStyle<3>},
    {"pnlcltr", property, SetOldStyle<4>},
    {"pnstart", property, SetOldStart},
    {"pnf", property, SetOldFont},
    {"pntxtb", destination, BeginOldText<Destination::OldListBefore>},
    {"pntxta", destination, BeginOldText<Destination::OldListAfter>},
};

} // namespace

std::span<const ControlWord> ListWords() { return words; }

} // namespace platform::richtext::reader
