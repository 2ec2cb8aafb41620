#include "platform/print/ParagraphLayout.h"

#include "platform/print/Pictures.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform::print {

namespace {

using richtext::TabKind;
using richtext::TabStop;

/// A place for a picture: lines break at either side of it, and it is no blank.
constexpr QChar pictureSign(0x2014);
/// However great the indents are, this much is left to a line.
constexpr Double narrowest = 300.0;
constexpr Double markerGap = 60.0;

QTextOption::TabType TypeOf(TabKind kind)
{
    switch (kind) {
    case TabKind::Right: return QTextOption::RightTab;
    case TabKind::Center: return QTextOption::CenterTab;
    case TabKind::Decimal: return QTextOption::DelimiterTab;
    case TabKind::Left:
    case TabKind::Bar: break;
    }
    return QTextOption::LeftTab;
}

Qt::Alignment AlignmentOf(richtext::Alignment alignment)
{
    switch (alignment) {
    case richtext::Alignment::Center: return Qt::AlignHCenter;
    case richtext::Alignment::Right: return Qt::AlignRight;
    case richtext::Alignment::Justify: return Qt::AlignJustify;
    case richtext::Alignment::Left: break;
    }
    return Qt::AlignLeft;
}

Double WidthOf(const QFont& font, const QString& text) { return QFontMetricsF(font).horizontalAdvance(text); }

} // namespace

ParagraphLayout::ParagraphLayout(LookBook& looks,
                                 const richtext::Paragraph& paragraph,
                                 std::string marker,
                                 const TextFrame& frame,
                                 Long defaultTab)
    : m_looks(looks), m_paragraph(paragraph), m_frame(frame), m_defaultTab(std::max<Long>(defaultTab, 100)),
      m_markerText(std::move(marker))
{
    const bool isEmpty = paragraph.runs.empty();
    m_baseLook = m_looks.Of(isEmpty ? paragraph.emptyFormat : paragraph.runs.front().format);
    BuildText();
    SetIndents();
    SetMarker();
}

void ParagraphLayout::BuildText()
{
    for (const richtext::Run& run : m_paragraph.runs) {
        if (run.picture) {
            AddPicture(run);
            continue;
        }
        QString text = FromUtf8(run.text);
        text.replace(u'\n', QChar(QChar::LineSeparator));
        m_stretches.push_back({static_cast<int>(m_text.size()),
                               static_cast<int>(text.size()),
                               m_looks.Of(run.format),
                               run.format.background,
                               nullptr});
        m_text += text;
    }
    if (m_text.isEmpty()) m_text = u' '; // a line needs a font to be as high as
}

void ParagraphLayout::AddPicture(const richtext::Run& run)
{
    const PictureSize size = FittedSize(*run.picture, m_frame.width, m_frame.tallest);
    m_stretches.push_back(
        {static_cast<int>(m_text.size()), 1, m_baseLook, std::nullopt, run.picture, size.width, size.height});
    m_text += pictureSign;
}

void ParagraphLayout::SetIndents()
{
    const richtext::ParagraphFormat& format = m_paragraph.format;
    m_right = std::max<Double>(0.0, m_frame.width - std::max<Long>(format.indentRight, 0));
    m_left = format.indentLeft;
    m_first = m_frame.firstX + format.indentLeft + format.indentFirst;
    if (m_right - m_left < narrowest) {
        m_right = m_frame.width;
        m_left = std::max(0.0, std::min(m_left, m_right - narrowest));
    }
    if (m_right - m_first < narrowest) m_first = std::min(m_first, std::max(m_left, m_right - narrowest));
}

/// The text of an item begins at the indent of its other lines, or behind a marker that is wider than that.
void ParagraphLayout::SetMarker()
{
    if (m_markerText.empty()) return;
    richtext::CharacterFormat look = m_looks.Look(m_baseLook);
    look.underline = richtext::Underline::None;
    look.strike = false;
    m_markerLook = m_looks.Of(look);
    m_markerWidth = WidthOf(m_looks.Font(m_markerLook), FromUtf8(m_markerText));
    const Double end = m_first + m_markerWidth + markerGap;
    const Double hang = m_frame.firstX + m_left;
    const Double text = end <= hang ? hang : std::ceil(end / m_defaultTab) * m_defaultTab;
    const Double begins = m_paragraph.format.indentFirst < 0 && end > hang ? end : text;
    m_markerBack = begins - m_first;
    m_first = begins;
}

/// The stops of a line, which are counted from where it begins; behind the last one told the standing ones.
QList<QTextOption::Tab> ParagraphLayout::Tabs(Double left) const
{
    QList<QTextOption::Tab> tabs;
    Double last = 0.0;
    const auto add = [&](Double position, TabKind kind) {
        last = std::max(last, position);
        if (position > left) tabs.append(QTextOption::Tab(position - left, TypeOf(kind), u'.'));
    };
    for (const TabStop& stop : m_paragraph.format.tabs) {
        if (stop.kind != TabKind::Bar) add(stop.position, stop.kind);
    }
    if (m_paragraph.format.indentFirst < 0) add(m_left, TabKind::Left);
    for (Double next = m_defaultTab * (std::floor(last / m_defaultTab) + 1.0); next < m_right;
         next += m_defaultTab)
        add(next, TabKind::Left);
    std::sort(tabs.begin(), tabs.end(), [](const auto& a, const auto& b) { return a.position < b.position; });
    return tabs;
}

QTextOption ParagraphLayout::Option(Double left) const
{
    QTextOption option(AlignmentOf(m_paragraph.format.alignment));
    option.setWrapMode(m_frame.wrap ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    option.setTextDirection(Qt::LeftToRight);
    option.setTabStopDistance(m_defaultTab);
    if (m_text.contains(u'\t')) option.setTabs(Tabs(left));
    return option;
}

QList<QTextLayout::FormatRange> ParagraphLayout::Formats()
{
    QList<QTextLayout::FormatRange> formats;
    for (const Stretch& stretch : m_stretches) {
        if (stretch.look == m_baseLook && !stretch.picture) continue;
        QTextCharFormat format;
        QFont font = m_looks.Font(stretch.look);
        if (stretch.picture)
            font.setLetterSpacing(QFont::AbsoluteSpacing, stretch.pictureWidth - WidthOf(font, pictureSign));
        format.setFont(font);
        formats.append({stretch.start, stretch.length, format});
    }
    return formats;
}

/// The toolkit works out its tabs anew whenever it is asked for a place, and counts them from where the line
/// begins: the stops of a line must be in force for that, too.
void ParagraphLayout::AppendTo(LaidText& text)
{
    QTextLayout layout(m_text, m_looks.Font(m_baseLook));
    const QTextOption firstOption = Option(m_first);
    const QTextOption restOption = Option(m_left);
    layout.setCacheEnabled(true);
    layout.setFormats(Formats());
    m_shift = std::max(0.0, -std::min(m_first, m_left));
    layout.setTextOption(firstOption);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        const Double left = line.lineNumber() == 0 ? m_first : m_left;
        line.setPosition(QPointF(left + m_shift, 0.0));
        line.setLineWidth(std::max(1.0, m_right - left));
        layout.setTextOption(restOption);
    }
    layout.endLayout();
    const int count = layout.lineCount();
    for (int number = 0; number < count; ++number) {
        layout.setTextOption(number == 0 ? firstOption : restOption);
        text.lines.push_back(LineOf(layout.lineAt(number), number == 0, number == count - 1));
    }
}

} // namespace platform::print
