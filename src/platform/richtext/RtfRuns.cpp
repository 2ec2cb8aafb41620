#include "platform/richtext/RtfRuns.h"

#include "platform/richtext/FieldInstruction.h"
#include "platform/richtext/RtfOutput.h"
#include "platform/richtext/RtfPicture.h"

#include <algorithm>

namespace platform::richtext {

namespace {

const CharacterFormat defaultFormat;

std::string_view UnderlineWord(Underline underline)
{
    switch (underline) {
    case Underline::Single: return "\\ul";
    case Underline::Double: return "\\uldb";
    case Underline::Dotted: return "\\uld";
    case Underline::Dash: return "\\uldash";
    case Underline::DashDot: return "\\uldashd";
    case Underline::DashDotDot: return "\\uldashdd";
    case Underline::Wave: return "\\ulwave";
    case Underline::Words: return "\\ulw";
    case Underline::Thick: return "\\ulth";
    case Underline::None: break;
    }
    return "\\ulnone";
}

std::string_view PositionWord(VerticalPosition position)
{
    switch (position) {
    case VerticalPosition::Superscript: return "\\super";
    case VerticalPosition::Subscript: return "\\sub";
    case VerticalPosition::Normal: break;
    }
    return "\\nosupersub";
}

/// All capitals and small ones are two switches: the one in force goes off before the other comes on.
std::string CapitalsWords(Capitals from, Capitals to)
{
    std::string words;
    if (from != Capitals::AsTyped) words += from == Capitals::All ? "\\caps0" : "\\scaps0";
    if (to != Capitals::AsTyped) words += to == Capitals::All ? "\\caps" : "\\scaps";
    return words;
}

/// A picture has no look but its link: nothing changes for it.
Color BackgroundOf(const Run& run) { return run.picture ? Color() : run.format.background; }

/// The runs at the beginning that agree with the first in what `part` takes of them.
template <class Part> std::span<const Run> Alike(std::span<const Run> runs, Part part)
{
    const auto end = std::find_if(
        runs.begin(), runs.end(), [&](const Run& run) { return part(run) != part(runs.front()); });
    return runs.first(static_cast<std::size_t>(end - runs.begin()));
}

/// An address within the quotes of its field, where a backslash stands twice.
std::string Quotable(std::string_view address)
{
    std::string quotable;
    for (const char character : address) {
        if (character == '"') {
            quotable += "%22";
        } else {
            quotable.append(character == '\\' ? 2 : 1, character);
        }
    }
    return quotable;
}

} // namespace

RtfRuns::RtfRuns(std::string& rtf, RtfTables& tables) : m_rtf(rtf), m_tables(tables), m_format(&defaultFormat)
{}

void RtfRuns::Write(std::span<const Run> runs)
{
    ChangeBackground(std::nullopt);
    while (!runs.empty()) {
        const auto alike = Alike(runs, [](const Run& run) { return std::string_view(run.format.href); });
        reader::IsHarmless(alike.front().format.href) ? WriteLink(alike) : WriteUnlinked(alike);
        runs = runs.subspan(alike.size());
    }
    ChangeTo(defaultFormat);
    m_wordsOpen = false; // a control word follows
}

void RtfRuns::WriteEmpty(const CharacterFormat& format)
{
    ChangeTo(format);
    ChangeBackground(format.background);
    m_wordsOpen = false;
}

void RtfRuns::WriteLink(std::span<const Run> runs)
{
    const CharacterFormat* outside = m_format;
    const FontBytes outsideBytes = m_bytes;
    m_rtf += "{\\field{\\*\\fldinst{HYPERLINK \"";
    AppendRtfText(m_rtf, Quotable(runs.front().format.href));
    m_rtf += "\"}}{\\fldrslt{";
    m_wordsOpen = false;
    WriteUnlinked(runs);
    m_rtf += "}}}";
    m_format = outside;
    m_bytes = outsideBytes;
    m_wordsOpen = false;
}

void RtfRuns::WriteUnlinked(std::span<const Run> runs)
{
    while (!runs.empty()) {
        const auto alike = Alike(runs, BackgroundOf);
        if (BackgroundOf(alike.front())) {
            WriteMarked(alike);
        } else {
            std::for_each(alike.begin(), alike.end(), [this](const Run& run) { WriteContent(run); });
        }
        runs = runs.subspan(alike.size());
    }
}

void RtfRuns::WriteMarked(std::span<const Run> runs)
{
    ChangeTo(runs.front().format);
    const CharacterFormat* outside = m_format;
    const FontBytes outsideBytes = m_bytes;
    m_rtf += '{';
    ChangeBackground(runs.front().format.background);
    for (const Run& run : runs)
        WriteContent(run);
    m_rtf += '}';
    m_format = outside;
    m_bytes = outsideBytes;
    m_background.reset();
    m_wordsOpen = false;
}

void RtfRuns::WriteContent(const Run& run)
{
    if (run.picture) {
        AppendPicture(m_rtf, *run.picture);
        m_wordsOpen = false;
        return;
    }
    ChangeTo(run.format);
    EndWords();
    AppendRtfText(m_rtf, run.text, m_bytes);
}

void RtfRuns::ChangeTo(const CharacterFormat& to)
{
    const CharacterFormat& from = *m_format;
    const std::size_t before = m_rtf.size();
    if (to.bold != from.bold) m_rtf += to.bold ? "\\b" : "\\b0";
    if (to.italic != from.italic) m_rtf += to.italic ? "\\i" : "\\i0";
    if (to.underline != from.underline) m_rtf += UnderlineWord(to.underline);
    if (to.strike != from.strike) m_rtf += to.strike ? "\\strike" : "\\strike0";
    if (to.position != from.position) m_rtf += PositionWord(to.position);
    if (to.capitals != from.capitals) m_rtf += CapitalsWords(from.capitals, to.capitals);
    ChangeFont(to);
    if (to.color != from.color) AppendWord(m_rtf, "\\cf", m_tables.ColorOf(to.color));
    m_wordsOpen = m_wordsOpen || m_rtf.size() != before;
    m_format = &to;
}

void RtfRuns::ChangeFont(const CharacterFormat& to)
{
    if (to.font != m_format->font) {
        const RtfTables::Font font = m_tables.FontOf(to.font);
        AppendWord(m_rtf, "\\f", font.number);
        m_bytes = font.bytes;
    }
    if (to.halfPoints != m_format->halfPoints) AppendWord(m_rtf, "\\fs", to.halfPoints);
}

void RtfRuns::ChangeBackground(const Color& background)
{
    if (background == m_background) return;
    const Long number = m_tables.ColorOf(background);
    AppendWord(m_rtf, "\\chshdng0\\chcbpat", number);
    AppendWord(m_rtf, "\\cb", number);
    m_background = background;
    m_wordsOpen = true;
}

void RtfRuns::EndWords()
{
    if (m_wordsOpen) m_rtf += ' ';
    m_wordsOpen = false;
}

} // namespace platform::richtext
