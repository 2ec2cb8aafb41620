#pragma once

#include "platform/richtext/CodePages.h"
#include "platform/richtext/ControlWords.h"
#include "platform/richtext/DocumentBuilder.h"
#include "platform/richtext/ReaderFonts.h"
#include "platform/richtext/ReaderLists.h"
#include "platform/richtext/ReaderPicture.h"
#include "platform/richtext/ReaderState.h"
#include "platform/richtext/RtfReader.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform::richtext::reader {

/// What the head of a document tells and its text refers to by number.
struct DocumentTables
{
    FontTable fonts;
    ColorTable colors;
    ListTables lists;
    Long defaultFontNumber = 0;      // \deff
    Long characterSet = westernPage; // \ansi, \mac, \pc, \pca
    Long ansiPage = 0;               // \ansicpg; 0: none that is known
    Long serial = 0;                 // tells documents of one text apart
};

/// What is wanted of a text.
enum class Wanted {
    Everything,
    TextOnly // no looks and no lists
};

/// Reads rich text in one pass: a scanner that hands words to the tables of control words, and the state that
/// these change. Groups are kept on a stack of bounded size; nothing recurses.
class Parser
{
public:
    Parser(Source source, Wanted wanted);

    /// Reads a body: one or more whole documents; bare text behind the last is dropped.
    void ReadBody(std::string_view text);
    /// Reads a part of a text for the print control, in which text outside of documents counts.
    void ReadRichPart(std::string_view text);
    void ReadPlainPart(std::string_view text);
    /// Ends the last paragraph and takes the document out.
    RichDocument Finish();

    // What control words change:

    GroupState& Group() { return m_groups.back(); }
    const GroupState& Group() const { return m_groups.back(); }
    CharacterState& Character() { return m_groups.back().character; }
    ParagraphState& Properties() { return m_groups.back().paragraph; }
    DocumentTables& Tables() { return m_tables.back(); }
    DocumentBuilder& Builder() { return m_builder; }
    RowDefinition& Row() { return Group().isNestedRow ? m_nestedRow : m_row; }
    Border*& BegunBorder() { return m_border; }
    PictureReader& PictureRead() { return m_picture; }
    LevelEntry& Level() { return m_level; }
    OldList& BegunOldList() { return m_oldLists.back(); }
    bool WantsLooks() const { return m_wanted == Wanted::Everything; }

    /// Back to the document's font, 12 point, no look. A link stays: it is the field's.
    void ResetCharacters();
    /// The tables that fonts and colours are found in have changed.
    void ForgetLooks() { m_pageSerial = m_formatSerial = noNumber; }

    /// Takes text, UTF-8, to where the group's text goes.
    void Deliver(std::string_view text);
    /// Takes a \u character there.
    void DeliverUnit(Long number);
    /// Takes a byte of the code page in force there.
    void DeliverByte(unsigned char byte);
    void EndParagraph();
    /// Ends a section or page: its last paragraph, if any text is left of it.
    void EndOpenParagraph();
    void EndCell(bool nested);
    void EndRow(bool nested);
    /// Passes over the rest of the group; its closing brace comes next.
    void SkipGroup();
    /// Takes the next `count` bytes, cut to those left.
    std::string_view TakeBytes(Long count);
    /// Begins a document in this group, if it is the group's first word.
    void BeginDocument();
    void BeginOldList();
    void BeginPicture();
    void BeginInstruction();
    /// Begins the definition of a row.
    void DefineRow();
    /// Whether a \shppict gave the picture that the \nonshppict here only repeats.
    bool TakeShownPicture() { return std::exchange(m_pictureShown, false); }
    Color ColorOf(Long number) { return Tables().colors.Find(number); }

private:
    // The scanner.
    void Scan(std::string_view text);
    void ScanText();
    void ScanLineEnd();
    void ScanBackslash();
    void ScanWord();
    void ScanSymbol(char sign);
    void ScanHex();
    std::string_view TakeLetters();
    Parameter TakeParameter();
    void ApplyWord(std::string_view name, Parameter parameter);
    void PassOver(std::string_view& text);
    void SkipEscaped();

    // Groups.
    void OpenGroup();
    void CloseGroup();
    void CloseTopGroup();
    void LeaveDestination(const GroupState& closed);
    bool IsOutside() const { return m_groups.size() == 1; }
    bool IsStrayBrace() const;
    void EndDocument();
    void CloseAllGroups();
    void EndInstruction();
    void EndPicture(const GroupState& closed);
    void EndOldListText(bool isBefore);
    void EndLevel(const GroupState& closed);

    // Text.
    void DeliverPlain(std::string_view text);
    void DeliverBytes(std::string_view text);
    void DeliverSigns(std::string_view text);
    void DeliverTyped(std::string_view line);
    void DeliverWhole(std::string_view text);
    void DeliverControl(unsigned char byte);
    void DeliverCharacter(char32_t character);
    void AddToLevelText(char32_t character);
    void EmitText(std::string_view text);
    void EmitLine(std::string_view text);
    void FlushHalves();
    void FlushBytes();
    void FlushSurrogate();
    char32_t& Half() { return Group().destination == Destination::Text ? m_textHalf : m_otherHalf; }
    Long PageInForce();
    Long PageOr(Long page) const;
    Long PageOfDocument() const;
    Long FontInForce() const;
    const std::string& FontName() const;
    static bool IsOfSigns(Long page);
    bool IsShown() const;

    // Looks.
    const CharacterFormat& FormatInForce();
    CharacterFormat MakeCharacterFormat();
    ParagraphFormat MakeParagraphFormat();
    void FormatParagraph();
    void FinishParagraph();
    void EndLine();
    bool IsFull() const { return m_room <= 0; }
    void SetList(ParagraphFormat& format);
    Long TableList(Long number, const ParagraphFormat& format);
    Long FindList(Long number);
    ListLevel UntoldLevel(const ParagraphFormat& format);
    Long OldListNumber(const OldList& list, const ParagraphFormat& format);
    Long DepthInForce() const;
    Long NewList(RichList list);

    const Source m_source;
    const Wanted m_wanted;

    const char* m_at = nullptr;
    const char* m_end = nullptr;
    const char* m_lastSpecial = nullptr; // the last '{' or '\' of the text; nothing if there is none
    bool m_inPart = false;               // text outside of documents counts
    bool m_groupBegins = false;          // nothing but its brace has come of the group
    bool m_starred = false;              // \* came just before
    bool m_behindDocument = false;       // blanks and line ends count nothing
    Long m_skip = 0;                     // characters still to pass over after \u
    Long m_tooDeep = 0;                  // open groups beyond the stack

    std::vector<GroupState> m_groups; // the first is what stands outside of all groups
    std::vector<DocumentTables> m_tables;
    Long m_documents = 0; // begun so far

    std::int64_t m_room = maxDocumentBytes; // what is left for paragraphs and runs, in bytes of memory
    bool m_lineEnded = false;               // without room: the next text is a line of its own
    RowDefinition m_row;
    RowDefinition m_nestedRow;
    Border* m_border = nullptr; // what \brdr words are about
    DocumentBuilder m_builder{m_row};

    ByteDecoder m_decoder;
    std::string m_decoded;                // of the decoder, kept for its room
    char32_t m_textHalf = 0;              // a first surrogate that waits for its second
    char32_t m_otherHalf = 0;             // the same, where text is not shown
    const char* m_behindReturn = nullptr; // where a \'0d ended
    Long m_pageFont = noNumber;           // what m_page was found for
    Long m_pageSerial = noNumber;
    Long m_page = westernPage;
    CharacterState m_formatState; // what m_format was made for
    Long m_formatSerial = noNumber;
    CharacterFormat m_format;

    std::string m_instruction;
    char32_t m_fieldSymbol = 0;       // shown if the field brings no text
    std::vector<std::string> m_links; // link n at n - 1
    PictureReader m_picture;
    bool m_pictureShown = false;

    LevelEntry m_level;
    std::vector<OldList> m_oldLists;
    std::string m_oldListText;
    std::string m_marker; // the text of \listtext or \pntext
    std::map<std::pair<Long, Long>, Long>
        m_lists;                  // number in the document of each list of a document's tables
    Long m_oldList = 0;           // list of the paragraph before, if it was an old one
    unsigned m_oldListLevels = 0; // a bit a level that it has been told of
};

} // namespace platform::richtext::reader
