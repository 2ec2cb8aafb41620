#include "platform/widgets/FormattedLabel.h"

#include "platform/widgets/Theme.h"

#include <QEvent>
#include <QPainter>

#include <charconv>
#include <optional>

namespace platform {

namespace {

constexpr int kTextFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
constexpr int kWidestHint = 560;

/// n of "NAME:n", or nothing for another mark.
std::optional<int> Length(std::string_view mark, std::string_view name)
{
    if (mark.substr(0, name.size()) != name || mark.size() <= name.size()) return {};
    const std::string_view digits = mark.substr(name.size());
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole ? std::optional<int>(value) : std::nullopt;
}

/// Gathers paragraphs while the marks are read.
class MarkupReader
{
public:
    void AddText(std::string_view text)
    {
        if (text.empty()) return;
        if (m_current.text.empty()) {
            m_current.before = m_before;
            m_current.indent = m_indent;
        }
        m_current.text += text;
    }
    /// False: it is no mark.
    bool TakeMark(std::string_view mark)
    {
        if (mark == "CR") {
            EndParagraph();
        } else if (const auto before = Length(mark, "BEFORE:")) {
            m_before = *before;
        } else if (const auto indent = Length(mark, "PARALEFT:")) {
            m_indent = *indent;
        } else {
            return false;
        }
        return true;
    }
    void EndParagraph()
    {
        m_paragraphs.push_back(m_current);
        m_current = {};
    }
    std::vector<FormattedParagraph> Paragraphs() const { return m_paragraphs; }

private:
    std::vector<FormattedParagraph> m_paragraphs;
    FormattedParagraph m_current;
    int m_before = 0;
    int m_indent = 0;
};

} // namespace

std::vector<FormattedParagraph> ParseMarkup(std::string_view markup)
{
    MarkupReader reader;
    while (!markup.empty()) {
        const auto bar = markup.find('|');
        reader.AddText(markup.substr(0, bar));
        if (bar == std::string_view::npos) break;
        const auto end = markup.find('|', bar + 1);
        if (end != std::string_view::npos && reader.TakeMark(markup.substr(bar + 1, end - bar - 1))) {
            markup.remove_prefix(end + 1);
        } else {
            reader.AddText("|");
            markup.remove_prefix(bar + 1);
        }
    }
    reader.EndParagraph();
    return reader.Paragraphs();
}

FormattedLabel::FormattedLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void FormattedLabel::SetMarkup(std::string_view markup)
{
    m_paragraphs = ParseMarkup(markup);
    QStringList lines;
    for (const FormattedParagraph& paragraph : m_paragraphs)
        lines.append(QString::fromStdString(paragraph.text));
    setText(lines.join(QLatin1Char('\n')).trimmed());
    updateGeometry();
    update();
}

void FormattedLabel::SetQuiet(bool quiet)
{
    m_quiet = quiet;
    update();
}

QSize FormattedLabel::sizeHint() const
{
    const int width = Theme::Pixels(kWidestHint * 15);
    return {width, heightForWidth(width)};
}

QSize FormattedLabel::minimumSizeHint() const { return {Theme::Pixels(3000), fontMetrics().height()}; }

int FormattedLabel::heightForWidth(int width) const
{
    int bottom = 0;
    for (const FormattedParagraph& paragraph : m_paragraphs) {
        const QRect place = Place(paragraph, width, bottom);
        bottom = place.top() + place.height();
    }
    return bottom;
}

QRect FormattedLabel::Place(const FormattedParagraph& paragraph, int width, int top) const
{
    const int left = Theme::Pixels(paragraph.indent);
    const int first = top + Theme::Pixels(paragraph.before);
    // An empty line ahead of everything, as many texts begin with, takes no room.
    if (paragraph.text.empty()) return {left, first, width - left, top == 0 ? 0 : fontMetrics().height()};
    const QRect room(left, first, std::max(1, width - left), QWIDGETSIZE_MAX / 2);
    const int height =
        fontMetrics().boundingRect(room, kTextFlags, QString::fromStdString(paragraph.text)).height();
    return {left, first, room.width(), height};
}

void FormattedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(m_quiet ? Theme::QuietText(palette()) : palette().color(foregroundRole()));
    int bottom = 0;
    for (const FormattedParagraph& paragraph : m_paragraphs) {
        const QRect place = Place(paragraph, width(), bottom);
        painter.drawText(place, kTextFlags, QString::fromStdString(paragraph.text));
        bottom = place.top() + place.height();
    }
}

void FormattedLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) updateGeometry();
}

} // namespace platform
