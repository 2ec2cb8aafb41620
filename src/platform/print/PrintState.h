#pragma once

#include "platform/print/PageFlow.h"
#include "platform/print/PrintControl.h"
#include "platform/print/TableBuilder.h"
#include "platform/print/TextReading.h"

#include <optional>
#include <string>
#include <vector>

namespace platform::print {

/// What the control holds, and the steps its members share.
struct PrintControl::State
{
    Document document;
    PrintSettings settings;
    PrintSettings paper; // the paper that StartDoc begins with
    LookBook looks{document.looks};
    PageFlow flow{document, settings, looks};

    bool isOpen = false;
    bool preview = true;
    Long previewPage = 1;
    std::string exportFile;
    Long exportFormat = exportRtf;
    std::function<void(const Document&, Long, Long)> printer;
    std::vector<std::string> fonts; // of the printer; empty: the system's

    std::optional<Double> x;            // where the next text begins, once that was told
    std::vector<richtext::Run> pending; // what Text wrote on a line that is not ended yet
    std::optional<Double> pendingX;     // where that line begins
    std::string heading;                // of the next paragraph, for the outline
    std::optional<TableBuilder> table;
    Double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0, textHeight = 0.0;

    Double TextLeft() const { return settings.indentLeft; } // from the column's left edge
    Double TextWidth() const;
    TextFrame FrameAt(std::optional<Double> start) const;
    LaidText LayOut(const richtext::RichDocument& text, const TextFrame& frame);
    /// What Text left, then a text, aligned.
    richtext::RichDocument Joined(const PrintText& text) const;
    void WriteParagraph(richtext::RichDocument text);
    /// Ends a line that Text left open.
    void EndLine();
    void Measured(Double left, Double top, Double width, Double height);
    void WriteBookmark();
    void WriteTable(const TableBuilder& builder);
    void KeepRows(std::size_t placed);
    void WriteTableOrDrop(PrintControl& control, const TableBuilder& builder);
    void PlaceBox(richtext::RichDocument text, LaidText laid, FlowTextBox box);
    void Line(Double fromX, Double fromY, Double toX, Double toY);
    void Drop();
};

} // namespace platform::print
