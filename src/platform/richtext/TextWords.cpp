#include "platform/richtext/Parser.h"

#include <algorithm>

namespace platform::richtext::reader {

namespace {

template <char32_t Character> void Add(Parser& parser, Parameter)
{
    std::string text;
    AppendUtf8(text, Character);
    parser.Deliver(text);
}

void AddUnit(Parser& parser, Parameter parameter)
{
    if (parameter.given) parser.DeliverUnit(parameter.value);
}

void SetUnicodeSkip(Parser& parser, Parameter parameter)
{
    parser.Group().unicodeSkip = std::max<Long>(0, parameter.Or(1));
}

void EndParagraph(Parser& parser, Parameter) { parser.EndParagraph(); }

void EndSection(Parser& parser, Parameter) { parser.EndOpenParagraph(); }

void EndPage(Parser& parser, Parameter)
{
    parser.EndOpenParagraph();
    if (parser.Group().destination == Destination::Text) parser.Builder().BreakPage();
}

constexpr WordKind text = WordKind::Text;

constexpr ControlWord words[] = {
    {"par", text, EndParagraph},
    {"sect", text, EndSection},
    {"page", text, EndPage},
    {"line", text, Add<U'\n'>},
    {"softline", text, Add<U'\n'>},
    {"lbr", text, Add<U'\n'>},
    {"tab", text, Add<U'\t'>},
    {"nestedtab", text, Add<U'\t'>},
    {"lquote", text, Add<U'\u2018'>},
    {"rquote", text, Add<U'\u2019'>},
    {"ldblquote", text, Add<U'\u201C'>},
    {"rdblquote", text, Add<U'\u201D'>},
    {"emdash", text, Add<U'\u2014'>},
    {"endash", text, Add<U'\u2013'>},
    {"bullet", text, Add<U'\u2022'>},
    {"emspace", text, Add<U'\u2003'>},
    {"enspace", text, Add<U'\u2002'>},
    {"qmspace", text, Add<U'\u2005'>},
    {"zwj", text, Add<U'\u200D'>},
    {"zwnj", text, Add<U'\u200C'>},
    {"zwbo", text, Add<U'\u200B'>},
    {"zwnbo", text, Add<U'\u2060'>},
    {"ltrmark", text, Add<U'\u200E'>},
    {"rtlmark", text, Add<U'\u200F'>},
    {"u", text, AddUnit},
    {"uc", WordKind::Property, SetUnicodeSkip},
};

} // namespace

std::span<const ControlWord> TextWords() { return words; }

} // namespace platform::richtext::reader
