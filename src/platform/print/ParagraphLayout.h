#pragma once

#include "platform/print/TextLayout.h"

#include <QTextLayout>

#include <string>

namespace platform::print {

/// Lays out one paragraph.
class ParagraphLayout
{
public:
    /// The paragraph must outlive the object.
    ParagraphLayout(LookBook& looks,
                    const richtext::Paragraph& paragraph,
                    std::string marker,
                    const TextFrame& frame,
                    Long defaultTab);

    /// Adds its lines to a text.
    void AppendTo(LaidText& text);

private:
    /// A stretch of the paragraph's text of one look, or a picture.
    struct Stretch
    {
        int start = 0;
        int length = 0;
        Long look = 0;
        richtext::Color background;
        std::shared_ptr<const richtext::Picture> picture;
        Double pictureWidth = 0.0, pictureHeight = 0.0;
    };
    struct Metrics
    {
        Double baseline = 0.0; // from the top of the line
        Double height = 0.0;
    };

    void BuildText();
    void AddPicture(const richtext::Run& run);
    void SetIndents();
    void SetMarker();
    QTextOption Option(Double left) const;
    QList<QTextOption::Tab> Tabs(Double left) const;
    QList<QTextLayout::FormatRange> Formats();
    LaidLine LineOf(const QTextLine& line, bool isFirst, bool isLast);
    Double PlaceOf(const QTextLine& line, int sign) const;
    Metrics MetricsOf(const QTextLine& line) const;
    Metrics Spaced(Double ascent, Double descent) const;
    void AddStretch(
        LaidLine& laid, const QTextLine& line, const Stretch& stretch, const Metrics& metrics, bool words);
    void AddPiece(LaidLine& laid,
                  const QTextLine& line,
                  const Stretch& stretch,
                  const Metrics& metrics,
                  int start,
                  int end);
    void
    AddLeader(LaidLine& laid, const QTextLine& line, const Stretch& stretch, const Metrics& metrics, int tab);
    void AddMarker(LaidLine& laid, const QTextLine& line, const Metrics& metrics);
    void AddPlaced(LaidLine& laid, Double x, Double width, Double baseline, Long look, std::string text);

    LookBook& m_looks;
    const richtext::Paragraph& m_paragraph;
    TextFrame m_frame;
    Long m_defaultTab;
    std::string m_markerText;
    Long m_baseLook = 0;
    Long m_markerLook = 0;
    Double m_markerWidth = 0.0;
    Double m_markerBack = 0.0; // from the first line's text back to the marker
    Double m_left = 0.0, m_first = 0.0, m_right = 0.0;
    Double m_shift = 0.0; // the toolkit knows no places left of 0: its lines stand that much further right
    QString m_text;
    std::vector<Stretch> m_stretches;
};

} // namespace platform::print
