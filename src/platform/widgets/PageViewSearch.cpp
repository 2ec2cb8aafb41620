#include "platform/widgets/PageViewSearch.h"

#include "platform/print/Document.h"
#include "platform/print/Fonts.h"

#include <QFontMetricsF>
#include <QHash>

namespace platform {

namespace {

using print::PlacedText;

/// Texts of one baseline that are further apart than this, in twips, are two words.
constexpr double kApart = 20.0;

/// The texts of a page as one, with one blank in each gap.
class PageText
{
public:
    explicit PageText(const print::Page& page) : m_page(page)
    {
        for (std::size_t piece = 0; piece < page.ink.texts.size(); ++piece)
            Add(piece);
    }

    const QString& Words() const { return m_words; }

    /// Calls with each placed text that a stretch of the words touches, its text, and from where to where.
    template <class Action> void ForEachPiece(qsizetype from, qsizetype to, const Action& action) const
    {
        while (from < to) {
            const Origin first = OriginOf(from);
            qsizetype last = from;
            while (last + 1 < to && OriginOf(last + 1).piece == first.piece)
                ++last;
            const PlacedText& placed = m_page.ink.texts[first.piece];
            action(placed, print::FromUtf8(placed.text), first.place, OriginOf(last).place + 1);
            from = last + 1;
        }
    }

private:
    /// Where a character of the words comes from. A blank belongs to the text before it.
    struct Origin
    {
        std::size_t piece;
        qsizetype place; // in its text
    };

    const Origin& OriginOf(qsizetype place) const { return m_origins[static_cast<std::size_t>(place)]; }

    void Add(std::size_t number)
    {
        const PlacedText& placed = m_page.ink.texts[number];
        if (!GoesOn(number)) AddBlank();
        const QString text = print::FromUtf8(placed.text);
        for (qsizetype place = 0; place < text.size(); ++place) {
            if (text[place].isSpace()) {
                AddBlank();
            } else {
                m_words += text[place];
                m_origins.push_back({number, place});
            }
        }
    }

    bool GoesOn(std::size_t number) const
    {
        if (number == 0) return true;
        const PlacedText& before = m_page.ink.texts[number - 1];
        const PlacedText& placed = m_page.ink.texts[number];
        return !placed.upward && !before.upward && placed.y == before.y && placed.x >= before.x &&
               placed.x - (before.x + before.width) <= kApart;
    }

    void AddBlank()
    {
        if (m_words.isEmpty() || m_words.endsWith(QLatin1Char(' '))) return;
        m_words += QLatin1Char(' ');
        m_origins.push_back(m_origins.back());
    }

    const print::Page& m_page;
    QString m_words;
    std::vector<Origin> m_origins; // one a character of the words
};

/// Where stretches of placed texts stand.
class Marker
{
public:
    explicit Marker(const print::Document& document) : m_document(document) {}

    QRectF MarkOf(const PlacedText& placed, const QString& text, qsizetype from, qsizetype to)
    {
        const QFontMetricsF& metrics = MetricsOf(placed.look);
        const double begin = metrics.horizontalAdvance(text.left(from));
        const double width = metrics.horizontalAdvance(text.left(to)) - begin;
        const double height = metrics.ascent() + metrics.descent();
        if (placed.upward) return {placed.x - metrics.ascent(), placed.y - begin - width, height, width};
        return {placed.x + begin, placed.y - metrics.ascent(), width, height};
    }

private:
    const QFontMetricsF& MetricsOf(int look)
    {
        const auto found = m_metrics.constFind(look);
        if (found != m_metrics.constEnd()) return *found;
        const QFont font = print::FontOf(m_document.looks[static_cast<std::size_t>(look)]);
        return *m_metrics.insert(look, QFontMetricsF(font));
    }

    const print::Document& m_document;
    QHash<int, QFontMetricsF> m_metrics;
};

} // namespace

std::vector<PageHit> FindInPages(const print::Document& document, const QString& words)
{
    std::vector<PageHit> hits;
    const QString wanted = words.simplified();
    if (wanted.isEmpty()) return hits;
    Marker marker(document);
    for (std::size_t number = 0; number < document.pages.size(); ++number) {
        const PageText text(document.pages[number]);
        qsizetype at = text.Words().indexOf(wanted, 0, Qt::CaseInsensitive);
        while (at >= 0) {
            PageHit hit{static_cast<int>(number), {}};
            const qsizetype end = at + wanted.size();
            text.ForEachPiece(at, end, [&](const auto& placed, const auto& piece, auto from, auto to) {
                hit.marks.push_back(marker.MarkOf(placed, piece, from, to));
            });
            hits.push_back(std::move(hit));
            at = text.Words().indexOf(wanted, end, Qt::CaseInsensitive);
        }
    }
    return hits;
}

} // namespace platform
