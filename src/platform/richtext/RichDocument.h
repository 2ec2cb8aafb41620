#pragma once

#include "platform/richtext/CharacterFormat.h"
#include "platform/richtext/ParagraphFormat.h"
#include "platform/richtext/Picture.h"
#include "platform/richtext/RichList.h"
#include "platform/richtext/RichTable.h"

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace platform::richtext {

/// A stretch of text of one look, or one picture.
struct Run
{
    CharacterFormat format; // of a picture only its link counts; the rest is the default
    /// UTF-8 and always valid. U+0009 is a tab, U+000A a line break within the paragraph; no other control
    /// character below U+0020 and no U+007F. Empty for a picture; never empty without one.
    std::string text;
    /// Nothing for text. Shared, since a picture never changes once it is made.
    std::shared_ptr<const Picture> picture;

    /// Pictures compare by what they hold.
    friend bool operator==(const Run& a, const Run& b);
};

/// One paragraph. Neighbouring runs of text never have equal formats (see AppendText).
struct Paragraph
{
    ParagraphFormat format;
    std::vector<Run> runs;
    /// What is typed into the paragraph looks like this. Only for a paragraph without runs; else the default.
    CharacterFormat emptyFormat;

    friend bool operator==(const Paragraph&, const Paragraph&) = default;
};

/// A paragraph or a table, in the order of the text.
struct Block
{
    std::variant<Paragraph, Table> content;

    const Paragraph* AsParagraph() const { return std::get_if<Paragraph>(&content); }
    Paragraph* AsParagraph() { return std::get_if<Paragraph>(&content); }
    const Table* AsTable() const { return std::get_if<Table>(&content); }
    Table* AsTable() { return std::get_if<Table>(&content); }

    friend bool operator==(const Block& a, const Block& b);
};

/// A rich text: what a body, a description or a piece of a report holds. A value: copies are independent.
struct RichDocument
{
    /// Never empty in a document that was read: nothing typed is one empty paragraph.
    std::vector<Block> blocks;
    /// The lists that paragraphs name, in the order of their first use; list n stands at n - 1.
    std::vector<RichList> lists;
    /// Where the standing tab stops are, in twips.
    Long defaultTab = defaultTabTwips;

    static constexpr Long defaultTabTwips = 720;

    friend bool operator==(const RichDocument&, const RichDocument&) = default;
};

/// The level that a list paragraph belongs to; nothing for a paragraph of no list or of one that is not
/// there.
const ListLevel* LevelOf(const RichDocument& document, const ParagraphFormat& format);

/// Adds text to the end of a paragraph: to its last run if that looks the same, else as a new run.
void AppendText(Paragraph& paragraph, std::string_view text, const CharacterFormat& format);

/// The text alone, as an editor shows it: a line a paragraph (the last one without a line end), line breaks
/// as lines, tabs, no list markers, no pictures. A table row is a line: its cells separated by tabs, the
/// paragraphs and nested tables of a cell joined by one blank.
std::string PlainText(const RichDocument& document);

} // namespace platform::richtext
