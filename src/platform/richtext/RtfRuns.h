#pragma once

#include "platform/richtext/RichDocument.h"
#include "platform/richtext/RtfTables.h"

#include <span>
#include <string>

namespace platform::richtext {

/// Writes the runs of paragraphs, one paragraph after the other. Between two paragraphs characters look as by
/// default, except behind an empty one that keeps a look of its own.
class RtfRuns
{
public:
    /// Both must outlive the object, and so must every run written.
    RtfRuns(std::string& rtf, RtfTables& tables);

    /// Adds the runs of a paragraph and returns to the default look.
    void Write(std::span<const Run> runs);
    /// Takes on the look that an empty paragraph keeps for what is typed into it.
    void WriteEmpty(const CharacterFormat& format);

private:
    void WriteLink(std::span<const Run> runs);
    void WriteUnlinked(std::span<const Run> runs);
    void WriteMarked(std::span<const Run> runs);
    void WriteContent(const Run& run);
    void ChangeTo(const CharacterFormat& format);
    void ChangeFont(const CharacterFormat& format);
    void ChangeBackground(const Color& background);
    void EndWords();

    std::string& m_rtf;
    RtfTables& m_tables;
    const CharacterFormat* m_format; // the look in force
    FontBytes m_bytes = FontBytes::Latin;
    Color m_background;       // in force outside of groups
    bool m_wordsOpen = false; // text that follows would be read as a part of the last control word
};

} // namespace platform::richtext
