#include "platform/richtext/Parser.h"

#include <algorithm>
#include <utility>

namespace platform::richtext::reader {

namespace {

constexpr std::size_t maxInstruction = 8192; // bytes of a field's instruction
constexpr std::size_t maxMarker = 64;        // bytes of a list item's marker
// Characters: its length, a marker before the number and one behind it, and the ';' fit, however they came.
constexpr std::size_t maxLevelText = 2 * maxMarker + 3;

void AppendBounded(std::string& text, std::string_view more, std::size_t bound)
{
    if (text.size() + more.size() <= bound) text += more;
}

bool IsSurrogate(char32_t unit, char32_t first) { return unit >= first && unit < first + 0x400; }

} // namespace

/// Whether text that comes now is seen: not hidden, not deleted, not behind a body's end.
bool Parser::IsShown() const
{
    const CharacterState& character = Group().character;
    return !character.hidden && !character.deleted && (m_inPart || !IsOutside());
}

/// Takes text as it stands in the source, without control characters; UTF-8.
void Parser::DeliverPlain(std::string_view text)
{
    switch (Group().destination) {
    case Destination::Nowhere: return;
    case Destination::Picture: return m_picture.AddHex(text);
    case Destination::Colors: return Tables().colors.AddText(text);
    default: break;
    }
    while (m_decoder.Holds() && !text.empty() && static_cast<unsigned char>(text.front()) < 0x80) {
        DeliverByte(static_cast<unsigned char>(text.front()));
        text.remove_prefix(1);
    }
    if (text.empty()) return;
    IsOfSigns(PageInForce()) ? DeliverSigns(text) : Deliver(text);
}

/// Takes the letters of a font of signs: each is a byte of that font; what is no byte is itself.
void Parser::DeliverSigns(std::string_view text)
{
    for (const char sign : text) {
        const auto byte = static_cast<unsigned char>(sign);
        byte < 0x80 ? DeliverByte(byte) : Deliver(std::string_view(&sign, 1));
    }
}

void Parser::Deliver(std::string_view text)
{
    FlushHalves();
    DeliverWhole(text);
}

void Parser::DeliverWhole(std::string_view text)
{
    switch (Group().destination) {
    case Destination::Text: return EmitText(text);
    case Destination::Fonts: return Tables().fonts.AddName(text);
    case Destination::Instruction: return AppendBounded(m_instruction, text, maxInstruction);
    case Destination::Marker: return AppendBounded(m_marker, text, maxMarker);
    case Destination::OldListBefore:
    case Destination::OldListAfter: return AppendBounded(m_oldListText, text, maxMarker);
    case Destination::ListLevelText:
        while (!text.empty())
            AddToLevelText(TakeCharacter(text));
        return;
    default: return;
    }
}

void Parser::AddToLevelText(char32_t character)
{
    if (m_level.text.size() < maxLevelText) m_level.text += character;
}

void Parser::DeliverByte(unsigned char byte)
{
    FlushSurrogate();
    if (Group().destination == Destination::ListLevelText) return AddToLevelText(LevelEntry::byteMark + byte);
    if (byte < 0x20 && !m_decoder.Holds()) return DeliverControl(byte);
    m_decoded.clear();
    m_decoder.SetPage(PageInForce(), m_decoded);
    m_decoder.Push(byte, m_decoded);
    std::erase(m_decoded, '\x7F'); // stands for no character in any page
    if (!m_decoded.empty()) DeliverWhole(m_decoded);
}

// A carriage return and the line feed next to it are one line end.
void Parser::DeliverControl(unsigned char byte)
{
    constexpr std::ptrdiff_t escapedByte = 4; // \'0a
    if (byte == '\t') return Deliver("\t");
    const bool isSecond = byte == '\n' && m_behindReturn != nullptr && m_behindReturn + escapedByte == m_at;
    m_behindReturn = byte == '\r' ? m_at : nullptr;
    if ((byte == '\r' || byte == '\n') && !isSecond) EndParagraph();
}

void Parser::DeliverUnit(Long number)
{
    constexpr char32_t high = 0xD800;
    constexpr char32_t low = 0xDC00;
    const char32_t unit = static_cast<std::uint16_t>(number);
    FlushBytes();
    if (Half() != 0 && IsSurrogate(unit, low)) {
        const char32_t first = std::exchange(Half(), 0);
        DeliverCharacter(0x10000 + ((first - high) << 10) + (unit - low));
    } else {
        FlushSurrogate();
        IsSurrogate(unit, high) ? void(Half() = unit) : DeliverCharacter(unit);
    }
    m_skip = Group().unicodeSkip;
}

void Parser::DeliverCharacter(char32_t character)
{
    if (Group().destination == Destination::ListLevelText) return AddToLevelText(character);
    const bool isByte = character >= 0xF000 && character < 0xF100;
    const char32_t sign = isByte ? SymbolCharacter(static_cast<unsigned char>(character - 0xF000)) : 0;
    if (sign != 0 && (PageInForce() == symbolPage || FontName() == "Symbol")) character = sign;
    if (character >= 0x0A && character <= 0x0D) character = U'\n';
    if ((character < 0x20 && character != U'\t' && character != U'\n') || character == 0x7F) return;
    std::string text;
    AppendUtf8(text, character);
    DeliverWhole(text);
}

void Parser::FlushHalves()
{
    FlushBytes();
    FlushSurrogate();
}

/// Gives up a character of several bytes that was never completed.
void Parser::FlushBytes()
{
    if (!m_decoder.Holds()) return;
    m_decoded.clear();
    m_decoder.Flush(m_decoded);
    DeliverWhole(m_decoded);
}

void Parser::FlushSurrogate()
{
    if (std::exchange(Half(), 0) != 0) DeliverWhole("\uFFFD");
}

void Parser::EmitText(std::string_view text)
{
    if (!IsShown() || text.empty()) return;
    m_fieldSymbol = 0;
    m_pictureShown = false;
    if (std::exchange(m_lineEnded, false)) EmitLine("\n");
    EmitLine(text);
}

/// Adds text to the current paragraph: in the look in force, or without room in the look that is there.
void Parser::EmitLine(std::string_view text)
{
    std::vector<Run>& runs = m_builder.Current().runs;
    if (IsFull() && !runs.empty() && runs.back().picture == nullptr) {
        runs.back().text += text;
        return;
    }
    const std::size_t before = runs.size();
    const CharacterFormat& format = FormatInForce();
    AppendText(m_builder.Current(), text, format);
    if (runs.size() > before)
        m_room -= static_cast<std::int64_t>(sizeof(Run) + format.font.size() + format.href.size());
}

void Parser::EndParagraph()
{
    FlushHalves();
    if (Group().destination == Destination::Instruction) DeliverWhole(" ");
    if (Group().destination != Destination::Text || (!m_inPart && IsOutside())) return;
    IsFull() ? EndLine() : FinishParagraph();
}

/// Without room for one more paragraph: what comes is a line of the current one, but for the end of the last.
void Parser::EndLine()
{
    if (std::exchange(m_lineEnded, true)) EmitLine("\n");
}

void Parser::FinishParagraph()
{
    FormatParagraph();
    m_room -=
        static_cast<std::int64_t>(sizeof(Block) + m_builder.Current().format.tabs.size() * sizeof(TabStop));
    m_builder.EndParagraph(DepthInForce());
}

void Parser::EndOpenParagraph()
{
    FlushHalves();
    if (Group().destination == Destination::Text && m_builder.HasText() && !m_lineEnded) EndParagraph();
}

void Parser::EndCell(bool nested)
{
    FlushHalves();
    if (Group().destination != Destination::Text || (!m_inPart && IsOutside())) return;
    if (IsFull()) return EmitText("\t");
    FormatParagraph();
    m_room -= static_cast<std::int64_t>(sizeof(Block) + sizeof(TableCell) + sizeof(TableRow));
    m_builder.EndCell(nested ? std::max<Long>(2, DepthInForce()) : 1);
}

void Parser::EndRow(bool nested)
{
    FlushHalves();
    if (Group().destination != Destination::Text || (!m_inPart && IsOutside())) return;
    if (IsFull()) return EndLine();
    if (m_builder.HasText()) FormatParagraph();
    m_builder.EndRow(nested ? std::max<Long>(2, DepthInForce()) : 1, nested ? m_nestedRow : m_row);
}

Long Parser::DepthInForce() const
{
    const ParagraphState& properties = Group().paragraph;
    if (properties.depth == noNumber) return properties.inTable ? 1 : 0;
    return std::clamp<Long>(properties.depth, properties.inTable ? 1 : 0, maxTableDepth);
}

Long Parser::FontInForce() const
{
    const CharacterState& state = Group().character;
    const bool isFarEast = state.fontClass == FontClass::FarEast && state.farEastFont != defaultFont;
    const Long font = isFarEast ? state.farEastFont : state.font;
    return font == defaultFont ? m_tables.back().defaultFontNumber : font;
}

/// The family that the text is shown in; empty if the font table does not tell.
const std::string& Parser::FontName() const
{
    const DocumentTables& tables = m_tables.back();
    const std::string& name = tables.fonts.NameOf(Group().character.font);
    return name.empty() ? tables.fonts.NameOf(tables.defaultFontNumber) : name;
}

Long Parser::PageOfDocument() const
{
    const DocumentTables& tables = m_tables.back();
    return tables.ansiPage != 0 ? tables.ansiPage : tables.characterSet;
}

/// The code page that bytes are of where the group's text goes.
Long Parser::PageInForce()
{
    switch (Group().destination) {
    case Destination::Fonts: return PageOr(Tables().fonts.PageOfName());
    case Destination::Instruction: return PageOfDocument();
    default: break;
    }
    const Long font = FontInForce();
    if (m_pageSerial != Tables().serial || m_pageFont != font) {
        m_pageSerial = Tables().serial;
        m_pageFont = font;
        m_page = PageOr(Tables().fonts.PageOf(font));
    }
    return m_page;
}

Long Parser::PageOr(Long page) const { return page != 0 ? page : PageOfDocument(); }

bool Parser::IsOfSigns(Long page) { return page == symbolPage || page == privatePage; }

} // namespace platform::richtext::reader
