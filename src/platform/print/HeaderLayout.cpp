#include "platform/print/HeaderLayout.h"

#include "platform/print/PrintSettings.h"
#include "platform/print/TextLayout.h"

#include <QFontMetricsF>

#include <algorithm>

namespace platform::print {

namespace {

constexpr Double gap = 240.0;     // between two fields
constexpr Double overhang = 40.0; // of the last letter
constexpr std::size_t mostLines = 3;
constexpr Double ruleWidth = 10.0;

/// The fields of a header in its font, made to fit side by side.
class HeaderDrawing
{
public:
    HeaderDrawing(Ink& ink, const PageHeader& header, LookBook& looks)
        : m_ink(ink), m_look(PrintFont{header.font, header.size, header.bold, false}.Look()), m_looks(looks),
          m_metrics(m_looks.Font(m_looks.Of(m_look)))
    {}

    Double WidthOf(const std::string& text) const { return m_metrics.horizontalAdvance(FromUtf8(text)); }
    void Draw(const std::string& text, richtext::Alignment alignment, Double left, Double width);
    Double LineHeight();

private:
    LaidText LayOut(const std::string& text, richtext::Alignment alignment, Double width);

    Ink& m_ink;
    richtext::CharacterFormat m_look;
    LookBook& m_looks;
    QFontMetricsF m_metrics;
};

LaidText HeaderDrawing::LayOut(const std::string& text, richtext::Alignment alignment, Double width)
{
    richtext::Paragraph paragraph;
    paragraph.format.alignment = alignment;
    paragraph.emptyFormat = m_look;
    richtext::AppendText(paragraph, text, m_look);
    richtext::RichDocument document;
    document.blocks.push_back({std::move(paragraph)});
    TextFrame frame;
    frame.width = width;
    return TextLayout(m_looks).LayOut(document, frame);
}

Double HeaderDrawing::LineHeight() { return LayOut("", richtext::Alignment::Left, 1000.0).Height(); }

void HeaderDrawing::Draw(const std::string& text, richtext::Alignment alignment, Double left, Double width)
{
    if (text.empty()) return;
    LaidText laid = LayOut(text, alignment, width);
    if (laid.lines.size() > mostLines) {
        const Double room = width * (static_cast<Double>(mostLines) - 0.5);
        laid = LayOut(
            m_metrics.elidedText(FromUtf8(text), Qt::ElideRight, room).toStdString(), alignment, width);
    }
    Double y = headerTop + laid.lines.back().height - laid.Height();
    for (const LaidLine& line : laid.lines) {
        m_ink.Append(line.ink, left, y);
        y += line.height;
    }
}

} // namespace

std::string FieldText(const HeaderField& field, Long pageNumber)
{
    std::string text = field.text;
    if (!field.numbered) return text;
    const std::string number = std::to_string(pageNumber);
    for (std::size_t place = text.find("%d"); place != std::string::npos;
         place = text.find("%d", place + number.size()))
        text.replace(place, 2, number);
    return text;
}

void DrawHeader(Ink& ink, const PageHeader& header, Long pageNumber, Double pageWidth, LookBook& looks)
{
    HeaderDrawing drawing(ink, header, looks);
    const Double width = pageWidth - 2.0 * headerEdge;
    const std::string left = FieldText(header.fields[0], pageNumber);
    const std::string center = FieldText(header.fields[1], pageNumber);
    const std::string right = FieldText(header.fields[2], pageNumber);
    const Double centerWidth = std::min(drawing.WidthOf(center) + overhang, width / 3.0);
    const Double rightWidth = std::min(drawing.WidthOf(right) + overhang, width / 3.0);
    const Double side = center.empty() ? width - rightWidth - gap : (width - centerWidth) / 2.0 - gap;
    drawing.Draw(left, richtext::Alignment::Left, headerEdge, side);
    drawing.Draw(center, richtext::Alignment::Center, (pageWidth - centerWidth) / 2.0, centerWidth);
    drawing.Draw(right, richtext::Alignment::Right, pageWidth - headerEdge - rightWidth, rightWidth);
    if (!header.ruled) return;
    const Double y = headerTop + drawing.LineHeight() + headerRuleGap;
    ink.lines.push_back({headerEdge, y, pageWidth - headerEdge, y, ruleWidth, 0});
}

} // namespace platform::print
