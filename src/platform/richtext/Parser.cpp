#include "platform/richtext/Parser.h"

#include "platform/base/Texts.h"
#include "platform/richtext/FieldInstruction.h"

#include <algorithm>
#include <utility>

namespace platform::richtext::reader {

namespace {

constexpr std::size_t maxDepth = 256; // groups in groups whose properties are kept
constexpr std::size_t maxOldLists = 32768;

/// What stands outside of all groups: the look of the default body.
GroupState Outside()
{
    GroupState outside;
    outside.character.halfPoints = CharacterFormat().halfPoints;
    return outside;
}

} // namespace

Parser::Parser(Source source, Wanted wanted) : m_source(source), m_wanted(wanted)
{
    m_groups.reserve(maxDepth + 1);
    m_groups.push_back(Outside());
    m_tables.emplace_back();
}

void Parser::ReadBody(std::string_view text)
{
    m_inPart = false;
    Scan(text);
}

void Parser::ReadRichPart(std::string_view text)
{
    m_inPart = true;
    Scan(text);
}

void Parser::ReadPlainPart(std::string_view text)
{
    m_inPart = true;
    m_behindDocument = m_behindDocument && text.find_first_not_of(" \t\r\n") == std::string_view::npos;
    if (m_behindDocument) return;
    const std::string valid = ValidUtf8(text);
    for (text = valid; !text.empty();) {
        const std::size_t line = std::min(text.find_first_of("\r\n"), text.size());
        DeliverTyped(text.substr(0, line));
        text.remove_prefix(line);
        if (text.empty()) return;
        text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
        EndParagraph();
    }
}

/// Takes a line as typed; control characters in it are dropped.
void Parser::DeliverTyped(std::string_view line)
{
    const auto isControl = [](char sign) {
        return (static_cast<unsigned char>(sign) < 0x20 && sign != '\t') || sign == 0x7F;
    };
    while (!line.empty()) {
        const auto length = static_cast<std::size_t>(std::ranges::find_if(line, isControl) - line.begin());
        EmitText(line.substr(0, length));
        line.remove_prefix(std::min(length + 1, line.size()));
    }
}

RichDocument Parser::Finish()
{
    FlushHalves();
    const bool lineIsOpen = m_inPart && !m_behindDocument;
    m_inPart = true;
    if (lineIsOpen || m_lineEnded || m_builder.HasText()) FinishParagraph();
    m_builder.EndTables();
    RichDocument& document = m_builder.Document();
    if (document.blocks.empty()) document.blocks.push_back(Block{Paragraph()});
    return std::move(document);
}

void Parser::OpenGroup()
{
    ++m_at;
    FlushBytes();
    m_skip = 0;
    m_starred = m_behindDocument = false;
    m_groupBegins = true;
    if (m_groups.size() > maxDepth) {
        ++m_tooDeep;
        return;
    }
    m_groups.push_back(m_groups.back());
    m_groups.back().isDocument = m_groups.back().isField = false;
}

void Parser::CloseGroup()
{
    ++m_at;
    FlushBytes();
    m_skip = 0;
    m_starred = m_groupBegins = false;
    if (m_tooDeep > 0) {
        --m_tooDeep;
        return;
    }
    const bool isWhole = m_groups.size() == 2 && Group().isDocument;
    if (IsOutside() || (isWhole && IsStrayBrace())) return;
    CloseTopGroup();
}

void Parser::CloseAllGroups()
{
    FlushHalves();
    m_skip = m_tooDeep = 0;
    m_starred = m_groupBegins = false;
    while (!IsOutside())
        CloseTopGroup();
}

void Parser::CloseTopGroup()
{
    if (Group().isDocument) EndDocument();
    const GroupState closed = std::move(m_groups.back());
    m_groups.pop_back();
    if (closed.destination != Group().destination) LeaveDestination(closed);
    if (closed.isField && m_fieldSymbol != 0) DeliverCharacter(std::exchange(m_fieldSymbol, 0));
}

void Parser::LeaveDestination(const GroupState& closed)
{
    m_otherHalf = 0;
    switch (closed.destination) {
    case Destination::Fonts:
    case Destination::Colors: return ForgetLooks();
    case Destination::Instruction: return EndInstruction();
    case Destination::Picture: return EndPicture(closed);
    case Destination::ListLevel: return EndLevel(closed);
    case Destination::OldListBefore: return EndOldListText(true);
    case Destination::OldListAfter: return EndOldListText(false);
    case Destination::OldList: Properties().oldList = static_cast<Long>(m_oldLists.size()) - 1; return;
    default: return;
    }
}

void Parser::BeginDocument()
{
    if (Group().destination != Destination::Text) return;
    m_tables.emplace_back();
    Tables().serial = ++m_documents;
    Group().isDocument = true;
    Group().unicodeSkip = 1;
    Group().isNestedRow = Group().isShapePicture = false;
    Character() = CharacterState();
    Properties() = ParagraphState();
}

/// Ends what a whole document leaves open; its last paragraph looks as the document says.
void Parser::EndDocument()
{
    FlushHalves();
    EndOpenParagraph();
    m_behindDocument = m_groups.size() == 2;
    if (m_behindDocument) m_builder.EndTables();
    m_tables.pop_back();
}

void Parser::BeginInstruction()
{
    if (Group().destination != Destination::Text) return SkipGroup();
    Group().destination = Destination::Instruction;
    m_instruction.clear();
    m_fieldSymbol = 0;
}

void Parser::EndInstruction()
{
    const FieldInstruction instruction = ReadInstruction(m_instruction);
    if (!instruction.href.empty()) {
        m_links.push_back(instruction.href);
        Character().href = static_cast<Long>(m_links.size());
    }
    const auto byte = static_cast<unsigned char>(instruction.symbol);
    const char32_t known = instruction.symbolFont ? SymbolCharacter(byte) : 0;
    if (byte != 0) m_fieldSymbol = known != 0 ? known : 0xF000u + byte;
}

void Parser::BeginPicture()
{
    if (Group().destination != Destination::Text) return SkipGroup();
    Group().destination = Destination::Picture;
    m_picture.Begin();
}

void Parser::EndPicture(const GroupState& closed)
{
    std::shared_ptr<const Picture> picture = m_picture.Finish();
    if (picture == nullptr || !IsShown() || IsFull()) return;
    m_room -= static_cast<std::int64_t>(sizeof(Run) + sizeof(Picture));
    CharacterFormat format;
    format.href = FormatInForce().href;
    m_builder.Current().runs.push_back(Run{std::move(format), std::string(), std::move(picture)});
    m_pictureShown = closed.isShapePicture;
}

void Parser::BeginOldList()
{
    if (Group().destination != Destination::Text || m_oldLists.size() >= maxOldLists) return SkipGroup();
    Group().destination = Destination::OldList;
    OldList list;
    list.level.kind = ListKind::None;
    m_oldLists.push_back(std::move(list));
}

void Parser::EndOldListText(bool isBefore)
{
    if (m_oldLists.empty()) return;
    ListLevel& level = m_oldLists.back().level;
    std::erase_if(m_oldListText, [](char sign) { return static_cast<unsigned char>(sign) < 0x20; });
    (isBefore ? level.textBefore : level.textAfter) = std::exchange(m_oldListText, {});
}

void Parser::EndLevel(const GroupState& closed)
{
    m_level.indentLeft = closed.paragraph.left;
    m_level.indentFirst = closed.paragraph.first;
    const Long page = Tables().fonts.PageOf(closed.character.font);
    m_level.symbolFont = page == symbolPage || page == privatePage;
    if (Group().destination == Destination::Lists) Tables().lists.AddLevel(m_level);
    if (Group().destination == Destination::Overrides) Tables().lists.AddOverrideLevel(m_level);
}

void Parser::DefineRow()
{
    if (!Group().isNestedRow) m_builder.RedefineRow();
    Row() = RowDefinition();
    m_border = nullptr;
}

} // namespace platform::richtext::reader
