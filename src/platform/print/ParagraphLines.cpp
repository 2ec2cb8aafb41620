#include "platform/print/ParagraphLayout.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <utility>

// The lines of a paragraph, taken from what the toolkit has broken.

namespace platform::print {

namespace {

using richtext::TabLeader;
using richtext::TabStop;

constexpr QChar softHyphen(0x00AD);

QChar LeaderOf(TabLeader leader)
{
    switch (leader) {
    case TabLeader::Dots: return u'.';
    case TabLeader::MiddleDots: return QChar(0x00B7);
    case TabLeader::Hyphens: return u'-';
    case TabLeader::Underline:
    case TabLeader::Thick: return u'_';
    case TabLeader::Equals: return u'=';
    case TabLeader::None: break;
    }
    return QChar();
}

} // namespace

Double ParagraphLayout::PlaceOf(const QTextLine& line, int sign) const
{
    return line.cursorToX(sign) - m_shift;
}

ParagraphLayout::Metrics ParagraphLayout::MetricsOf(const QTextLine& line) const
{
    Double ascent = std::round(line.ascent());
    for (const Stretch& stretch : m_stretches) {
        const bool isHere = stretch.picture && stretch.start >= line.textStart() &&
                            stretch.start < line.textStart() + line.textLength();
        if (isHere) ascent = std::max(ascent, stretch.pictureHeight);
    }
    return Spaced(ascent, line.descent());
}

ParagraphLayout::Metrics ParagraphLayout::Spaced(Double ascent, Double descent) const
{
    const Double natural = std::round(ascent + descent);
    const Double value = m_paragraph.format.lineSpacing.value;
    Double height = natural;
    switch (m_paragraph.format.lineSpacing.rule) {
    case richtext::LineSpacingRule::Multiple: height = std::round(natural * value / 240.0); break;
    case richtext::LineSpacingRule::AtLeast: height = std::max(natural, value); break;
    case richtext::LineSpacingRule::Exactly: height = value; break;
    }
    return {ascent + height - natural, std::max(1.0, height)};
}

LaidLine ParagraphLayout::LineOf(const QTextLine& line, bool isFirst, bool isLast)
{
    LaidLine laid;
    const Metrics metrics = MetricsOf(line);
    const richtext::ParagraphFormat& format = m_paragraph.format;
    laid.start = static_cast<std::size_t>(line.textStart());
    laid.height = metrics.height;
    laid.before = isFirst ? std::max<Long>(format.spaceBefore, 0) : 0;
    laid.after = isLast ? std::max<Long>(format.spaceAfter, 0) : 0;
    if (format.background)
        laid.ink.fills.push_back({m_left, 0.0, m_right - m_left, laid.height, *format.background});
    if (isFirst) AddMarker(laid, line, metrics);
    const bool words = format.alignment == richtext::Alignment::Justify && !isLast;
    for (const Stretch& stretch : m_stretches)
        AddStretch(laid, line, stretch, metrics, words);
    laid.end = std::max(laid.end, PlaceOf(line, line.textStart() + line.textLength()));
    return laid;
}

void ParagraphLayout::AddMarker(LaidLine& laid, const QTextLine& line, const Metrics& metrics)
{
    if (m_markerText.empty()) return;
    const Double x = PlaceOf(line, line.textStart()) - m_markerBack;
    AddPlaced(laid, x, m_markerWidth, metrics.baseline, m_markerLook, m_markerText);
}

/// Cuts a stretch where a tab stands, and between the words of a line that is stretched to both edges.
void ParagraphLayout::AddStretch(
    LaidLine& laid, const QTextLine& line, const Stretch& stretch, const Metrics& metrics, bool words)
{
    const int lineEnd = line.textStart() + line.textLength();
    const int end = std::min(stretch.start + stretch.length, lineEnd);
    int start = std::max(stretch.start, line.textStart());
    for (int place = start; place < end; ++place) {
        const QChar sign = m_text.at(place);
        const bool isCut = sign == u'\t' || sign == QChar(QChar::LineSeparator) || (words && sign == u' ');
        if (!isCut) continue;
        AddPiece(laid, line, stretch, metrics, start, place);
        if (sign == u'\t') AddLeader(laid, line, stretch, metrics, place);
        start = place + 1;
    }
    AddPiece(laid, line, stretch, metrics, start, end);
}

void ParagraphLayout::AddPiece(
    LaidLine& laid, const QTextLine& line, const Stretch& stretch, const Metrics& metrics, int start, int end)
{
    const bool endsLine = end == line.textStart() + line.textLength();
    while (endsLine && end > start && m_text.at(end - 1) == u' ')
        --end;
    if (start >= end) return;
    const Double from = PlaceOf(line, start);
    const Double to = PlaceOf(line, end);
    const Double x = std::min(from, to);
    if (stretch.picture) {
        laid.ink.pictures.push_back({x,
                                     metrics.baseline - stretch.pictureHeight,
                                     stretch.pictureWidth,
                                     stretch.pictureHeight,
                                     stretch.picture});
        return;
    }
    const Double width = std::abs(to - from);
    if (stretch.background)
        laid.ink.fills.push_back({x,
                                  metrics.baseline - line.ascent(),
                                  width,
                                  line.ascent() + line.descent(),
                                  *stretch.background});
    QString text = m_text.mid(start, end - start);
    if (!endsLine || !text.endsWith(softHyphen)) text.remove(softHyphen);
    AddPlaced(laid, x, width, metrics.baseline, stretch.look, text.toStdString());
}

void ParagraphLayout::AddPlaced(
    LaidLine& laid, Double x, Double width, Double baseline, Long look, std::string text)
{
    if (text.empty()) return;
    laid.end = std::max(laid.end, x + width);
    laid.ink.texts.push_back(
        {x, baseline - RaiseOf(m_looks.Look(look)), width, look, false, std::move(text)});
}

void ParagraphLayout::AddLeader(
    LaidLine& laid, const QTextLine& line, const Stretch& stretch, const Metrics& metrics, int tab)
{
    const Double from = PlaceOf(line, tab);
    const auto& stops = m_paragraph.format.tabs;
    const auto stop =
        std::find_if(stops.begin(), stops.end(), [&](const TabStop& one) { return one.position > from; });
    if (stop == stops.end() || stop->leader == TabLeader::None) return;
    const QString sign = LeaderOf(stop->leader);
    const Double width = QFontMetricsF(m_looks.Font(stretch.look)).horizontalAdvance(sign);
    const Double to = PlaceOf(line, tab + 1);
    const auto count = static_cast<qsizetype>((to - from) / std::max(1.0, width)) - 1;
    if (count < 1) return;
    const Double length = width * static_cast<Double>(count);
    AddPlaced(
        laid, to - length, length, metrics.baseline, stretch.look, QString(count, sign.at(0)).toStdString());
}

} // namespace platform::print
