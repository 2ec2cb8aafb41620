#pragma once

#include "platform/richtext/RichDocument.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform::richtext {

/// Where a text comes from, which is what its bytes above 127 mean.
enum class Source {
    Body, // a string of the data file: UTF-8, such characters are themselves
    Bytes // clipboard or file: bytes of the code page in force
};

/// A text longer than this is cut to it; what stands before the cut is read.
constexpr std::size_t maxRtfBytes = 64u << 20;
/// The same for a part of a text for the print control, which may hold many bodies.
constexpr std::size_t maxPartBytes = 1u << 30;

/// The memory that paragraphs and runs of a text may take, beside their characters. A flood of them beyond it
/// runs on in one paragraph and one look, with line breaks; no text is lost.
constexpr std::int64_t maxDocumentBytes = 512 << 20;

/// Whether a text is rich: it begins with "{\rtf". Else it is plain and shown as typed.
bool IsRtf(std::string_view text);

/// Reads a rich or plain text. Never fails: whatever stands before damage comes through, what is refused
/// (objects, foreign files, programs) is left out. Opens no file and no connection.
RichDocument ReadRtf(std::string_view text, Source source = Source::Body);

/// A piece of a text handed to the print control.
struct TextPart
{
    enum class Kind {
        Rich, // the program's own or a stored body: control words count
        Plain // what a user typed: shown as typed, its line ends end lines
    };
    Kind kind = Kind::Plain;
    std::string_view text;
};

/// Reads parts as one running text: a group's `\par` ends the line, what stands before a whole document goes
/// on in its first line, and the end of a whole document ends the line. Unlike in a body, a `\par` at the
/// very end is followed by an empty paragraph.
RichDocument ReadParts(const std::vector<TextPart>& parts);

/// Typed text as a document of the default look: CR LF, CR and LF each end a paragraph; a last line end opens
/// none.
RichDocument PlainDocument(std::string_view text);

/// PlainText(ReadRtf(text)) without the document: for lists, searches and lengths.
std::string RtfToPlainText(std::string_view text, Source source = Source::Body);

} // namespace platform::richtext
