#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/TextRange.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::richtext {

/// A rich text control without a window: a document that is built in steps, with a selection. It starts
/// empty. Places count characters from 0 (TextRange.h); one beyond the text is its end. Rows and columns of
/// a table begin at 1; what names no table or no cell does nothing and gives 0 or an empty text.
///
/// Every step costs what the table or paragraph that it changes is long and how far it stands from the end.
class TXTextControl
{
public:
    /// The end of the text, as a place.
    static constexpr Long endOfText = -1;
    /// Rich text, as a format: the only one.
    static constexpr Long formatRtf = 5;
    /// Find: say nothing where the text is not found. There is nobody to say it to: other flags are the same.
    static constexpr Long findQuietly = 16;

    /// What can be set of a table's cell: the rules above and below it, in half points; 0: none.
    enum CellAttribute : Long { ruleAbove = 6, ruleBelow = 8 };
    /// The values of `Alignment`.
    enum AlignmentCode : Long { alignLeft = 0, alignRight = 1, alignCentre = 2, alignJustify = 3 };

    TXTextControl();

    /// The text alone, a line a paragraph and a table row.
    std::string Text() const;
    /// Takes typed text as a new document; "" clears it.
    void SetText(std::string_view text);
    /// How wide the tables are that TableInsert makes, twips; 9360 from the start.
    Long TextWidth() const { return m_textWidth; }
    void SetTextWidth(Long twips);

    // Documents

    /// Reads a stored body as a new document. Another format than formatRtf does nothing.
    void LoadFromMemory(std::string_view data, Long format);
    /// The document as it is stored; nothing in another format than formatRtf.
    std::string SaveToMemory(Long format) const;

    // The selection

    Long SelStart() const { return m_selStart; }
    /// Ends the selection and goes to a place.
    void SetSelStart(Long place);
    Long SelLength() const { return m_selLength; }
    void SetSelLength(Long length);
    /// The selection as text. What is written replaces it as typed: line ends end paragraphs, all in the look
    /// in force there.
    std::string SelText() const;
    void SetSelText(std::string_view text);
    /// The selection as rich text. What is written replaces it; its lists are joined to none that are there.
    std::string RTFSelText() const;
    void SetRTFSelText(std::string_view rtf);
    /// Of the selection's first paragraph; written to all that it touches.
    Long Alignment() const;
    void SetAlignment(Long code);
    /// Points, of the selection's first character; written to all characters of it.
    Single FontSize() const;
    void SetFontSize(Double points);
    bool FontBold() const;
    void SetFontBold(bool bold);
    /// Whether the paragraphs that the selection touches stay on the page of the next one.
    bool KeepWithNext() const;
    void SetKeepWithNext(bool keep);
    /// Selects the first place from `start` on where a text stands, cells included. Returns it, or -1 where
    /// the text is nowhere, which leaves the selection as it is.
    Long Find(std::string_view text, Long start, Long flags);

    // Tables

    /// Inserts a table of equal columns and returns its id, by which the members below know it: `id`, or with
    /// 0 the next free one. A place within a table counts as behind it; two tables keep a line between them.
    /// Returns 0 and does nothing for an id that is taken and for no rows or no columns (up to 64). Throws
    /// Overflow when ids run out. Goes to the end of the text.
    Integer TableInsert(Long rows, Long columns, Long place, Integer id = 0);
    Long TableCellAttribute(Integer id, Long row, Long column, Long attribute) const;
    void SetTableCellAttribute(Integer id, Long row, Long column, Long attribute, Long value);
    std::string TableCellText(Integer id, Long row, Long column) const;
    /// As typed, in the look that the cell begins with. Goes behind it.
    void SetTableCellText(Integer id, Long row, Long column, std::string_view text);
    /// Where a cell's text begins, counted from 1.
    Long TableCellStart(Integer id, Long row, Long column) const;
    /// How many characters it has, the end of the cell among them.
    Long TableCellLength(Integer id, Long row, Long column) const;

private:
    /// What is known of a block of the document.
    struct Part
    {
        Integer table = 0;      // the id of an inserted table, else 0
        Long length = 0;        // in characters
        bool isWithout = false; // the text last sought is not in it
    };
    using Range = TextRange<std::vector<Block>>;
    using ConstRange = TextRange<const std::vector<Block>>;
    static constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

    void Take(RichDocument document);
    std::vector<Part> PartsOf(std::size_t first, std::size_t count) const;
    void Changed(std::size_t place);
    void Respace(std::size_t first, std::size_t last, std::size_t count);
    Long End() const { return m_length - 1; } // before the end of the last paragraph
    Long StartOf(std::size_t block) const;
    std::size_t PartAt(Long& place) const;
    template <class Blocks> TextRange<Blocks> RangeOf(Blocks& blocks) const;
    ConstRange Selected() const;
    /// Replaces the selection and goes behind what came.
    void ReplaceSelection(std::vector<Block> blocks);
    void ChangeSelection(const std::function<void(Paragraph&, Long, Long)>& change);
    void ChangeCharacters(const std::function<void(CharacterFormat&)>& change);
    CharacterFormat FirstLook() const;

    std::size_t PlaceOf(Integer id) const;
    std::size_t MakePlace(Long place);
    Table NewTable(Long rows, Long columns) const;
    const TableCell* CellOf(Integer id, Long row, Long column) const;
    TableCell* CellOf(Integer id, Long row, Long column);

    RichDocument m_document;
    std::vector<Part> m_parts; // one a block
    Long m_length = 0;         // of all parts
    Long m_textWidth = 9360;
    Long m_selStart = 0, m_selLength = 0;
    Integer m_lastTable = 0;
    std::string m_sought;
};

} // namespace platform::richtext
