#include "platform/richtext/RtfParagraphWords.h"

#include "platform/richtext/RtfOutput.h"

namespace platform::richtext {

namespace {

void AppendUnlessZero(std::string& rtf, std::string_view word, Long number)
{
    if (number != 0) AppendWord(rtf, word, number);
}

std::string_view AlignmentWord(Alignment alignment)
{
    switch (alignment) {
    case Alignment::Center: return "\\qc";
    case Alignment::Right: return "\\qr";
    case Alignment::Justify: return "\\qj";
    case Alignment::Left: break;
    }
    return "";
}

std::string_view KindWord(TabKind kind)
{
    switch (kind) {
    case TabKind::Right: return "\\tqr";
    case TabKind::Center: return "\\tqc";
    case TabKind::Decimal: return "\\tqdec";
    case TabKind::Left:
    case TabKind::Bar: break;
    }
    return "";
}

std::string_view LeaderWord(TabLeader leader)
{
    switch (leader) {
    case TabLeader::Dots: return "\\tldot";
    case TabLeader::MiddleDots: return "\\tlmdot";
    case TabLeader::Hyphens: return "\\tlhyph";
    case TabLeader::Underline: return "\\tlul";
    case TabLeader::Thick: return "\\tlth";
    case TabLeader::Equals: return "\\tleq";
    case TabLeader::None: break;
    }
    return "";
}

void AppendTab(std::string& rtf, const TabStop& tab)
{
    rtf.append(KindWord(tab.kind)).append(LeaderWord(tab.leader));
    AppendWord(rtf, tab.kind == TabKind::Bar ? "\\tb" : "\\tx", tab.position);
}

void AppendTabs(std::string& rtf, const std::vector<TabStop>& tabs)
{
    for (const TabStop& tab : tabs)
        AppendTab(rtf, tab);
}

/// The stop that the marker ends at, unless the paragraph has one there, among the others by position.
void AppendItemTabs(std::string& rtf, const ParagraphFormat& format)
{
    bool due = format.indentFirst < 0 && format.indentLeft > 0;
    for (const TabStop& tab : format.tabs) {
        if (due && tab.position > format.indentLeft) AppendWord(rtf, "\\tx", format.indentLeft);
        if (tab.position >= format.indentLeft) due = false;
        AppendTab(rtf, tab);
    }
    if (due) AppendWord(rtf, "\\tx", format.indentLeft);
}

void AppendSpaces(std::string& rtf, const ParagraphFormat& format)
{
    AppendUnlessZero(rtf, "\\ri", format.indentRight);
    AppendUnlessZero(rtf, "\\sb", format.spaceBefore);
    AppendUnlessZero(rtf, "\\sa", format.spaceAfter);
    if (format.lineSpacing == LineSpacing{}) return;
    const bool exactly = format.lineSpacing.rule == LineSpacingRule::Exactly;
    AppendWord(rtf, "\\sl", exactly ? -format.lineSpacing.value : format.lineSpacing.value);
    rtf += format.lineSpacing.rule == LineSpacingRule::Multiple ? "\\slmult1" : "\\slmult0";
}

void AppendRest(std::string& rtf, const ParagraphFormat& format, RtfTables& tables)
{
    if (format.background) AppendWord(rtf, "\\cbpat", tables.ColorOf(format.background));
    if (format.keepTogether) rtf += "\\keep";
    if (format.keepWithNext) rtf += "\\keepn";
    if (format.pageBreakBefore) rtf += "\\pagebb";
}

} // namespace

void AppendParagraphWords(std::string& rtf, const ParagraphFormat& format, RtfTables& tables)
{
    rtf += AlignmentWord(format.alignment);
    AppendUnlessZero(rtf, "\\li", format.indentLeft);
    AppendUnlessZero(rtf, "\\fi", format.indentFirst);
    AppendSpaces(rtf, format);
    AppendTabs(rtf, format.tabs);
    AppendRest(rtf, format, tables);
}

void AppendItemWords(std::string& rtf, const ParagraphFormat& format, RtfTables& tables)
{
    AppendWord(rtf, "\\fi", format.indentFirst);
    AppendWord(rtf, "\\li", format.indentLeft);
    AppendItemTabs(rtf, format);
    rtf += AlignmentWord(format.alignment);
    AppendSpaces(rtf, format);
    AppendRest(rtf, format, tables);
}

} // namespace platform::richtext
