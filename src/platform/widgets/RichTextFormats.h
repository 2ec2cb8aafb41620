#pragma once

#include "platform/richtext/CharacterFormat.h"
#include "platform/richtext/ParagraphFormat.h"

#include <QColor>
#include <QPalette>
#include <QTextBlockFormat>
#include <QTextCharFormat>

/// The looks of characters and paragraphs as the toolkit's formats, and back. What the toolkit does not know,
/// or shows otherwise than it is kept, stands in properties of our own, so every way back is exact.
namespace platform::RichTextFormats {

enum Property {
    TextColor = QTextFormat::UserProperty + 1, // 0xRRGGBB; the foreground is what is readable of it
    BackColor,                                 // 0xRRGGBB
    UnderlineKind,                             // richtext::Underline
    FirstIndent,                               // twips; the text of a list item starts at its left indent
    Tabs,                                      // richtext::TabStop, three numbers each
    KeepWithNext,
    Filler,    // an empty paragraph that the toolkit needs beside a table
    ListId,    // of a list format: its number in the document's pool
    ListLevel, // of a list format
    TableId    // of a table format: its number in the document's pool
};

/// What a sheet is drawn with.
struct Colors
{
    QColor sheet;
    QColor text;
    QColor link;
};
Colors ColorsOf(const QPalette& palette);

/// Device-independent pixels of the screen, not rounded, so that the way back gives the same twips.
double Pixels(Long twips);
Long Twips(double pixels);

QString FamilyOf(const QTextCharFormat& format);
Long HalfPointsOf(const QTextCharFormat& format);

QTextCharFormat CharFormat(const richtext::CharacterFormat& look, const Colors& colors);
richtext::CharacterFormat LookOf(const QTextCharFormat& format);
/// The look of characters that another program laid out: what is kept of a page's formatting.
richtext::CharacterFormat ForeignLookOf(const QTextCharFormat& format);

/// Sets a colour of the text, nothing for the automatic one.
void SetTextColor(QTextCharFormat& format, const richtext::Color& color, const Colors& colors);
/// A colour as it is kept.
std::uint32_t Rgb(const QColor& color);
void SetUnderline(QTextCharFormat& format, richtext::Underline kind);

/// A ground behind the text, or no brush where the sheet's text could not be read on it.
QBrush Ground(const richtext::Color& color, const Colors& colors);

/// The paragraph's format but for its list.
QTextBlockFormat BlockFormat(const richtext::ParagraphFormat& look, const Colors& colors);
/// The paragraph's look but for its list.
richtext::ParagraphFormat LookOf(const QTextBlockFormat& format);

/// Sets indents and tabs, which depend on each other and on whether the paragraph is a list item.
void SetIndents(QTextBlockFormat& format, const richtext::ParagraphFormat& look);

} // namespace platform::RichTextFormats
