#include "platform/richtext/Parser.h"

#include <algorithm>

namespace platform::richtext::reader {

namespace {

template <auto Member> void Switch(Parser& parser, Parameter parameter)
{
    parser.Character().*Member = parameter.IsOn();
}

template <Underline Kind> void SetUnderline(Parser& parser, Parameter parameter)
{
    parser.Character().underline = parameter.IsOn() ? Kind : Underline::None;
}

template <Capitals Kind> void SetCapitals(Parser& parser, Parameter parameter)
{
    parser.Character().capitals = parameter.IsOn() ? Kind : Capitals::AsTyped;
}

template <VerticalPosition Kind> void SetPosition(Parser& parser, Parameter parameter)
{
    parser.Character().position = parameter.IsOn() ? Kind : VerticalPosition::Normal;
}

template <FontClass Kind> void SetFontClass(Parser& parser, Parameter)
{
    parser.Character().fontClass = Kind;
}

void SetFont(Parser& parser, Parameter parameter)
{
    if (parser.Group().destination == Destination::Fonts) parser.Tables().fonts.Begin(parameter.value);
    parser.Character().font = parameter.value;
}

// The fonts of complex scripts are named so too; only the one of \dbch counts.
void SetAssociatedFont(Parser& parser, Parameter parameter)
{
    CharacterState& character = parser.Character();
    if (character.fontClass == FontClass::FarEast) character.farEastFont = parameter.value;
}

void SetSize(Parser& parser, Parameter parameter)
{
    constexpr Long smallest = 2;
    constexpr Long largest = 3276;
    const Long halfPoints = parameter.Or(24);
    if (halfPoints > 0) parser.Character().halfPoints = std::clamp(halfPoints, smallest, largest);
}

template <auto Member> void SetColor(Parser& parser, Parameter parameter)
{
    parser.Character().*Member = parameter.value;
}

// A link is the field's, not the text's.
void Reset(Parser& parser, Parameter) { parser.ResetCharacters(); }

constexpr WordKind property = WordKind::Property;

constexpr ControlWord words[] = {
    {"plain", property, Reset},
    {"f", property, SetFont},
    {"af", property, SetAssociatedFont},
    {"fs", property, SetSize},
    {"b", property, Switch<&CharacterState::bold>},
    {"i", property, Switch<&CharacterState::italic>},
    {"strike", property, Switch<&CharacterState::strike>},
    {"striked", property, Switch<&CharacterState::strike>},
    {"v", property, Switch<&CharacterState::hidden>},
    {"deleted", property, Switch<&CharacterState::deleted>},
    {"ul", property, SetUnderline<Underline::Single>},
    {"uld", property, SetUnderline<Underline::Dotted>},
    {"uldash", property, SetUnderline<Underline::Dash>},
    {"ulldash", property, SetUnderline<Underline::Dash>},
    {"uldashd", property, SetUnderline<Underline::DashDot>},
    {"uldashdd", property, SetUnderline<Underline::DashDotDot>},
    {"uldb", property, SetUnderline<Underline::Double>},
    {"ulw", property, SetUnderline<Underline::Words>},
    {"ulwave", property, SetUnderline<Underline::Wave>},
    {"ulhwave", property, SetUnderline<Underline::Wave>},
    {"ululdbwave", property, SetUnderline<Underline::Wave>},
    {"ulth", property, SetUnderline<Underline::Thick>},
    {"ulthd", property, SetUnderline<Underline::Dotted>},
    {"ulthdash", property, SetUnderline<Underline::Dash>},
    {"ulthldash", property, SetUnderline<Underline::Dash>},
    {"ulthdashd", property, SetUnderline<Underline::DashDot>},
    {"ulthdashdd", property, SetUnderline<Underline::DashDotDot>},
    {"ulnone", property, SetUnderline<Underline::None>},
    {"caps", property, SetCapitals<Capitals::All>},
    {"scaps", property, SetCapitals<Capitals::Small>},
    {"super", property, SetPosition<VerticalPosition::Superscript>},
    {"sub", property, SetPosition<VerticalPosition::Subscript>},
    {"nosupersub", property, SetPosition<VerticalPosition::Normal>},
    {"cf", property, SetColor<&CharacterState::color>},
    {"cb", property, SetColor<&CharacterState::background>},
    {"chcbpat", property, SetColor<&CharacterState::background>},
    {"highlight", property, SetColor<&CharacterState::background>},
    {"loch", property, SetFontClass<FontClass::Western>},
    {"hich", property, SetFontClass<FontClass::Western>},
    {"dbch", property, SetFontClass<FontClass::FarEast>},
    {"ltrch", property, SetFontClass<FontClass::Unsaid>},
    {"rtlch", property, SetFontClass<FontClass::Unsaid>},
};

} // namespace

std::span<const ControlWord> CharacterWords() { return words; }

} // namespace platform::richtext::reader
