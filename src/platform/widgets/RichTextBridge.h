#pragma once

#include "platform/richtext/RichDocument.h"
#include "platform/widgets/RichTextDocument.h"

/// A rich text as the editor's document, and back. Both ways lose nothing: a text that went through a
/// document comes back equal.
namespace platform::RichTextBridge {

/// Puts a text into an empty document.
void Fill(RichTextDocument& document, const richtext::RichDocument& text);
/// The text of a document.
richtext::RichDocument TextOf(const RichTextDocument& document);
/// The text of a page of another program, without grounds and without pictures.
richtext::RichDocument ForeignTextOf(const QTextDocument& page);

} // namespace platform::RichTextBridge
