#include "platform/richtext/Parser.h"

#include <algorithm>

namespace platform::richtext::reader {

namespace {

void BeginDocument(Parser& parser, Parameter) { parser.BeginDocument(); }

template <Destination Where> void Redirect(Parser& parser, Parameter)
{
    if (parser.Group().destination != Destination::Text) return parser.SkipGroup();
    parser.Group().destination = Where;
}

template <int Shift> void SetColorPart(Parser& parser, Parameter parameter)
{
    if (parser.Group().destination != Destination::Colors) return;
    parser.Tables().colors.SetPart(Shift, parameter.value);
}

void SetCharset(Parser& parser, Parameter parameter)
{
    if (parser.Group().destination == Destination::Fonts) parser.Tables().fonts.SetCharset(parameter.value);
}

void SetFontPage(Parser& parser, Parameter parameter)
{
    if (parser.Group().destination == Destination::Fonts) parser.Tables().fonts.SetPage(parameter.value);
}

template <Long Page> void SetCharacterSet(Parser& parser, Parameter)
{
    parser.Tables().characterSet = Page;
    parser.ForgetLooks();
}

void SetAnsiPage(Parser& parser, Parameter parameter)
{
    parser.Tables().ansiPage = KnownPage(parameter.value);
    parser.ForgetLooks();
}

void SetDefaultFont(Parser& parser, Parameter parameter)
{
    parser.Tables().defaultFontNumber = parameter.value;
    parser.ForgetLooks();
}

// Of joined documents the first one's counts.
void SetDefaultTab(Parser& parser, Parameter parameter)
{
    constexpr Long largest = 31680; // twips
    const bool isFirst = parser.Tables().serial == 1 && parser.Group().isDocument;
    if (isFirst && parameter.value > 0)
        parser.Builder().Document().defaultTab = std::min(parameter.value, largest);
}

void BeginField(Parser& parser, Parameter) { parser.Group().isField = true; }

void BeginInstruction(Parser& parser, Parameter) { parser.BeginInstruction(); }

void Drop(Parser& parser, Parameter)
{
    if (parser.Group().destination != Destination::Text) return;
    parser.Group().outer = Destination::Text;
    parser.Group().destination = Destination::Nowhere;
}

// What stands for an object, or the Unicode half of a text: inside of what is dropped it counts again.
void Show(Parser& parser, Parameter)
{
    if (parser.Group().destination == Destination::Nowhere) parser.Group().destination = parser.Group().outer;
}

void BeginNestedRow(Parser& parser, Parameter) { parser.Group().isNestedRow = true; }

constexpr WordKind property = WordKind::Property;
constexpr WordKind shared = WordKind::Shared;
constexpr WordKind destination = WordKind::Destination;
constexpr WordKind skipped = WordKind::Skipped;

constexpr ControlWord words[] = {
    {"rtf", destination, BeginDocument},
    {"fonttbl", destination, Redirect<Destination::Fonts>},
    {"colortbl", destination, Redirect<Destination::Colors>},
    {"red", property, SetColorPart<16>},
    {"green", property, SetColorPart<8>},
    {"blue", property, SetColorPart<0>},
    {"fcharset", property, SetCharset},
    {"cpg", property, SetFontPage},
    {"ansi", shared, SetCharacterSet<westernPage>},
    {"mac", shared, SetCharacterSet<10000>},
    {"pc", shared, SetCharacterSet<437>},
    {"pca", shared, SetCharacterSet<850>},
    {"ansicpg", shared, SetAnsiPage},
    {"deff", shared, SetDefaultFont},
    {"deftab", shared, SetDefaultTab},
    {"field", destination, BeginField},
    {"fldinst", destination, BeginInstruction},
    {"fldrslt", destination, [](Parser&, Parameter) {}},
    {"object", destination, Drop},
    {"result", destination, Show},
    {"upr", destination, Drop},
    {"ud", destination, Show},
    {"nesttableprops", destination, BeginNestedRow},
    {"nonesttables", skipped, nullptr},
    {"stylesheet", skipped, nullptr},
    {"info", skipped, nullptr},
    {"header", skipped, nullptr},
    {"headerl", skipped, nullptr},
    {"headerr", skipped, nullptr},
    {"headerf", skipped, nullptr},
    {"footer", skipped, nullptr},
    {"footerl", skipped, nullptr},
    {"footerr", skipped, nullptr},
    {"footerf", skipped, nullptr},
    {"footnote", skipped, nullptr},
    {"annotation", skipped, nullptr},
    {"atnid", skipped, nullptr},
    {"atnauthor", skipped, nullptr},
    {"ftnsep", skipped, nullptr},
    {"ftnsepc", skipped, nullptr},
    {"ftncn", skipped, nullptr},
    {"aftnsep", skipped, nullptr},
    {"aftnsepc", skipped, nullptr},
    {"aftncn", skipped, nullptr},
    {"filetbl", skipped, nullptr},
    {"revtbl", skipped, nullptr},
    {"rsidtbl", skipped, nullptr},
    {"falt", skipped, nullptr},
    {"fontemb", skipped, nullptr},
    {"fontfile", skipped, nullptr},
    {"panose", skipped, nullptr},
    {"objdata", skipped, nullptr},
    {"objclass", skipped, nullptr},
    {"objname", skipped, nullptr},
    {"template", skipped, nullptr},
    {"private", skipped, nullptr},
    {"xe", skipped, nullptr},
    {"tc", skipped, nullptr},
    {"tcn", skipped, nullptr},
    {"txe", skipped, nullptr},
    {"rxe", skipped, nullptr},
    {"do", skipped, nullptr},
    {"shp", skipped, nullptr},
    {"shpgrp", skipped, nullptr},
    {"shptxt", skipped, nullptr},
    {"shprslt", skipped, nullptr},
    {"pnseclvl", skipped, nullptr},
    {"picprop", skipped, nullptr},
    {"blipuid", skipped, nullptr},
};

} // namespace

std::span<const ControlWord> DocumentWords() { return words; }

} // namespace platform::richtext::reader
