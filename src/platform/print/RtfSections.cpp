#include "platform/print/RtfSections.h"

#include "platform/print/HeaderLayout.h"
#include "platform/print/PrintSettings.h"
#include "platform/richtext/RtfOutput.h"

#include <algorithm>
#include <cmath>

namespace platform::print {

namespace {

using richtext::AppendRtfText;
using richtext::AppendWord;

std::int64_t Whole(Double value) { return std::llround(value); }

/// "%d" becomes the page field, so that a word processor counts.
void AppendField(std::string& rtf, const HeaderField& field)
{
    std::string_view text = field.text;
    for (std::size_t place = text.find("%d"); field.numbered && place != std::string_view::npos;
         place = text.find("%d")) {
        AppendRtfText(rtf, text.substr(0, place));
        rtf += "{\\field{\\*\\fldinst{PAGE}}{\\fldrslt{1}}}";
        text.remove_prefix(place + 2);
    }
    AppendRtfText(rtf, text);
}

/// The header stands at the same place whatever the margins of the section are.
void AppendPlace(std::string& rtf, const RtfSection& section, Double pageWidth)
{
    AppendWord(rtf, "\\li", Whole(headerEdge - section.marginLeft));
    AppendWord(rtf, "\\ri", Whole(headerEdge - section.marginRight));
    AppendWord(rtf, "\\tqc\\tx", Whole(pageWidth / 2.0 - section.marginLeft));
    AppendWord(rtf, "\\tqr\\tx", Whole(pageWidth - headerEdge - section.marginLeft));
}

void AppendHeader(std::string& rtf,
                  std::string_view word,
                  const PageHeader& header,
                  const RtfSection& section,
                  Double pageWidth,
                  richtext::RtfTables& tables)
{
    rtf.append("{").append(word).append("\\pard\\plain");
    AppendPlace(rtf, section, pageWidth);
    if (header.ruled) AppendWord(rtf, "\\brdrb\\brdrs\\brdrw10\\brsp", Whole(headerRuleGap));
    const richtext::CharacterFormat look = PrintFont{header.font, header.size, header.bold, false}.Look();
    AppendWord(rtf, "\\f", tables.FontOf(look.font).number);
    AppendWord(rtf, "\\fs", look.halfPoints);
    rtf += look.bold ? "\\b " : " ";
    AppendField(rtf, header.fields[0]);
    rtf += "\\tab ";
    AppendField(rtf, header.fields[1]);
    rtf += "\\tab ";
    AppendField(rtf, header.fields[2]);
    rtf += "\\par}";
}

void AppendMargins(std::string& rtf, const RtfSection& section, const Document& document)
{
    AppendWord(rtf, "\\pgwsxn", Whole(document.pageWidth));
    AppendWord(rtf, "\\pghsxn", Whole(document.pageHeight));
    AppendWord(rtf, "\\marglsxn", Whole(section.marginLeft));
    AppendWord(rtf, "\\margrsxn", Whole(section.marginRight));
    AppendWord(rtf, "\\margtsxn", Whole(section.marginTop));
    AppendWord(rtf, "\\margbsxn", Whole(section.marginBottom));
    AppendWord(rtf, "\\headery", Whole(headerTop));
}

} // namespace

bool operator==(const PageHeader& a, const PageHeader& b)
{
    const auto sameField = [](const HeaderField& x, const HeaderField& y) {
        return x.text == y.text && x.numbered == y.numbered;
    };
    return std::equal(a.fields.begin(), a.fields.end(), b.fields.begin(), sameField) && a.font == b.font &&
           a.size == b.size && a.bold == b.bold && a.ruled == b.ruled;
}

bool RtfSection::HasOwnFirstPage() const { return !(first == rest); }

bool operator==(const RtfSection& a, const RtfSection& b)
{
    return a.marginLeft == b.marginLeft && a.marginTop == b.marginTop && a.marginRight == b.marginRight &&
           a.marginBottom == b.marginBottom && a.columns == b.columns && a.first == b.first &&
           a.rest == b.rest;
}

void AppendSection(std::string& rtf,
                   const RtfSection& section,
                   const Document& document,
                   bool goesOn,
                   richtext::RtfTables& tables)
{
    rtf += goesOn ? "\\sectd\\sbknone" : "\\sectd\\sbkpage";
    AppendMargins(rtf, section, document);
    if (section.columns > 1) {
        AppendWord(rtf, "\\cols", section.columns);
        AppendWord(rtf, "\\colsx", Whole(section.columnGap));
    }
    if (section.HasOwnFirstPage()) {
        rtf += "\\titlepg";
        AppendHeader(rtf, "\\headerf", section.first, section, document.pageWidth, tables);
    }
    AppendHeader(rtf, "\\header", section.rest, section, document.pageWidth, tables);
}

} // namespace platform::print
