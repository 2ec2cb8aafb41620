#include "reports/AlternativesRtf.h"

#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/richtext/TXTextControl.h"
#include "reports/AlternativeFigures.h"
#include "reports/ReportUtilities.h"

#include <array>
#include <string_view>

namespace ReportSections {

namespace {

using platform::richtext::TXTextControl;

constexpr std::string_view lineEnd = "\r\n";

/// Builds the alternatives in the first of two controls; the second is a scratch area.
class AlternativesBuilder
{
public:
    std::string RtfAlternatives();
    std::string PlainRtf(const std::string& text);

private:
    void RtfAlternative(c51Alternative& alternative);
    void WriteTitle(Integer table, const std::string& label);
    void WriteHeads(Integer table, c51Alternative& alternative);
    void WriteFigures(Integer table, c51Alternative& alternative);
    void RtfOutcomeHead(Integer table, const char* label, const std::string& description, Long column);
    void RtfOutcomeFigures(Integer table, c51Alternative& alternative, Long outcome, Long column);
    void RtfExtremeFigures(Integer table, c51Alternative& alternative, Long column);
    void WriteRich(Integer table, Long row, Long column, const std::string& text);
    void AppendText(std::string_view text);
    void KeepTogether(Integer first, Integer last);

    std::array<TXTextControl, 2> TXTextControl1;
};

std::string AlternativesBuilder::RtfAlternatives()
{
    TXTextControl& document = TXTextControl1[0];
    document.SetText("");
    document.SetTextWidth(ReportUtilities::GetTextWidth());
    for (const auto& alternative : g51Alternatives::AlternativeCollection())
        RtfAlternative(*alternative);
    return document.SaveToMemory(TXTextControl::formatRtf);
}

std::string AlternativesBuilder::PlainRtf(const std::string& text)
{
    TXTextControl& scratch = TXTextControl1[1];
    scratch.LoadFromMemory(text, TXTextControl::formatRtf);
    scratch.SetSelStart(0);
    scratch.SetSelLength(static_cast<Long>(text.size()));
    return scratch.RTFSelText();
}

void AlternativesBuilder::RtfAlternative(c51Alternative& alternative)
{
    constexpr Long atEnd = TXTextControl::endOfText;
    TXTextControl& document = TXTextControl1[0];
    const bool hasFallback = alternative.Outcome(Fallback)->bShow();
    const Integer title = document.TableInsert(2, 1, atEnd);
    WriteTitle(title, alternative.Label());
    WriteRich(title, 2, 1, alternative.Body());
    AppendText(lineEnd);
    const Integer heads = document.TableInsert(2, hasFallback ? 3 : 2, atEnd);
    AppendText(lineEnd);
    const Integer figures = document.TableInsert(4, 6, atEnd);
    WriteHeads(heads, alternative);
    WriteFigures(figures, alternative);
    KeepTogether(title, figures);
    AppendText(lineEnd);
    AppendText(lineEnd);
}

void AlternativesBuilder::WriteTitle(Integer table, const std::string& label)
{
    TXTextControl& document = TXTextControl1[0];
    document.SetTableCellAttribute(table, 1, 1, TXTextControl::ruleAbove, 1);
    document.SetTableCellAttribute(table, 1, 1, TXTextControl::ruleBelow, 1);
    document.SetTableCellText(table, 1, 1, "Alternative " + label);
    document.SetSelStart(document.TableCellStart(table, 1, 1) - 1);
    document.SetSelLength(document.TableCellLength(table, 1, 1) - 1);
    document.SetAlignment(TXTextControl::alignCentre);
    document.SetFontSize(11.0);
    document.SetFontBold(true);
}

void AlternativesBuilder::WriteHeads(Integer table, c51Alternative& alternative)
{
    const bool hasFallback = alternative.Outcome(Fallback)->bShow();
    RtfOutcomeHead(table, "Target Outcome", alternative.Outcome(Target)->Description(), 1);
    if (hasFallback)
        RtfOutcomeHead(table, "Fallback Outcome", alternative.Outcome(Fallback)->Description(), 2);
    RtfOutcomeHead(
        table, "Extreme Outcome", g53Outcomes::ExtremeOutcome()->Description(), hasFallback ? 3 : 2);
}

/// On purpose the Extreme figures keep their columns, also where nothing stands in the two before.
void AlternativesBuilder::WriteFigures(Integer table, c51Alternative& alternative)
{
    RtfOutcomeFigures(table, alternative, Target, 1);
    if (alternative.Outcome(Fallback)->bShow()) RtfOutcomeFigures(table, alternative, Fallback, 3);
    RtfExtremeFigures(table, alternative, 5);
}

void AlternativesBuilder::RtfOutcomeHead(Integer table,
                                         const char* label,
                                         const std::string& description,
                                         Long column)
{
    TXTextControl& document = TXTextControl1[0];
    document.SetTableCellText(table, 1, column, label);
    document.SetSelStart(document.TableCellStart(table, 1, column) - 1);
    document.SetSelLength(document.TableCellLength(table, 1, column) - 1);
    document.SetFontBold(true);
    WriteRich(table, 2, column, description);
}

void AlternativesBuilder::RtfOutcomeFigures(Integer table,
                                            c51Alternative& alternative,
                                            Long outcome,
                                            Long column)
{
    Long row = 1;
    for (const Figure& figure : FiguresOf(alternative, outcome)) {
        TXTextControl1[0].SetTableCellText(table, row, column, figure.caption);
        TXTextControl1[0].SetTableCellText(table, row, column + 1, figure.value);
        ++row;
    }
}

void AlternativesBuilder::RtfExtremeFigures(Integer table, c51Alternative& alternative, Long column)
{
    RtfOutcomeFigures(table, alternative, Extreme, column);
}

/// Rich text reaches a cell by way of a placeholder. It is looked for from the start, and on purpose so: a
/// text before it that holds "###" itself receives what was meant for the cell.
void AlternativesBuilder::WriteRich(Integer table, Long row, Long column, const std::string& text)
{
    constexpr std::string_view placeholder = "###";
    TXTextControl& document = TXTextControl1[0];
    document.SetTableCellText(table, row, column, placeholder);
    document.Find(placeholder, 0, TXTextControl::findQuietly);
    document.SetRTFSelText(PlainRtf(text));
}

void AlternativesBuilder::AppendText(std::string_view text)
{
    TXTextControl& document = TXTextControl1[0];
    document.SetSelStart(TXTextControl::endOfText);
    document.SetSelText(text);
}

/// As in the preview, an alternative stands on one page, where one can hold it.
void AlternativesBuilder::KeepTogether(Integer first, Integer last)
{
    TXTextControl& document = TXTextControl1[0];
    const Long start = document.TableCellStart(first, 1, 1) - 1;
    document.SetSelStart(start);
    document.SetSelLength(document.TableCellStart(last, 1, 1) - start);
    document.SetKeepWithNext(true);
}

} // namespace

std::string RtfAlternatives() { return AlternativesBuilder().RtfAlternatives(); }

std::string PlainRtf(const std::string& text) { return AlternativesBuilder().PlainRtf(text); }

} // namespace ReportSections
