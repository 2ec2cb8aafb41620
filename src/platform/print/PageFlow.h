#pragma once

#include "platform/print/Document.h"
#include "platform/print/Fonts.h"
#include "platform/print/PrintSettings.h"
#include "platform/print/TableLayout.h"
#include "platform/print/TextLayout.h"

#include <functional>
#include <vector>

namespace platform::print {

/// Puts what is laid out on pages: the writing position, columns, page ends. Reads the margins anew at each
/// step, since they may change at a page end.
class PageFlow
{
public:
    static constexpr Double columnGap = 360.0;

    /// All must outlive the object.
    PageFlow(Document& document, PrintSettings& settings, LookBook& looks);

    std::function<void()> onNewPage;
    std::function<bool(Long)> onProgress;

    /// Opens page 1.
    void Begin();
    /// Ends the last page.
    void End();
    /// Ends the page and begins the next, as it was told.
    void NewPage();
    /// The next page of a text that goes on.
    void NextPage();
    /// The next column, or the next page behind the last one.
    void NextColumn();
    /// From here the page has another number of columns.
    void RestartColumns() { m_column = 0; }

    Long PageIndex() const { return static_cast<Long>(m_document.pages.size()); }
    Double Y() const { return m_y; }
    void SetY(Double y) { m_y = y; }
    Double ColumnLeft() const;
    Double ColumnWidth() const;
    Double Bottom() const;
    /// The height of a text column on a page like this one.
    Double ColumnHeight() const;

    Ink& PageInk() { return m_page.ink; }
    /// Places lines at the writing position, `left` from the column's left edge. Blank lines end no page.
    void Place(const LaidText& text, Double left);
    /// Places the rows of a table, breaking between rows where that is allowed, else within.
    /// Returns how many came: blank rows at the end begin no page.
    std::size_t Place(std::vector<LaidRow> rows, const std::vector<RowRules>& rules, Double left);
    /// Places a box that belongs to no column. What is below the bottom margin goes on at the top of a page
    /// of its own.
    void PlaceBox(LaidText text, FlowTextBox box);
    /// Notes something written at the writing position, and what is behind it where that ended.
    FlowItem& Note(decltype(FlowItem::content) content);
    void NoteEnd();

private:
    /// What is left of a box whose page was too short.
    struct BoxRest
    {
        LaidText text;
        FlowTextBox box;
    };
    /// Rows that are being placed.
    struct Rows
    {
        std::vector<LaidRow> rows;
        const std::vector<RowRules>& rules;
        Double left;
        std::size_t leading = 0;  // how many rows at the top are repeated
        std::size_t group = 0;    // where the last group of repeated rows within the table begins
        std::size_t groupEnd = 0; // and ends
    };

    bool AtTop() const { return m_y <= m_columnTop; }
    void BeginPage();
    void EndPage();
    bool FinishBoxes();
    void Raise();
    void PlaceRow(const LaidRow& row, Double left);
    bool IsOver(const Rows& rows, std::size_t number) const;
    void PlaceRowNumbered(Rows& rows, std::size_t number);
    void BreakRow(Rows& rows, std::size_t number);
    void BreakBefore(const Rows& rows, std::size_t number);
    bool LeavesHead(const Rows& rows, std::size_t number) const;
    Double HeightKept(const Rows& rows, std::size_t number) const;
    Double RepeatedHeight(const Rows& rows, std::size_t number) const;
    void NoteHeader(Rows& rows, std::size_t number) const;
    template <class Action>
    void ForEachRepeated(const Rows& rows, std::size_t number, const Action& action) const;

    Document& m_document;
    PrintSettings& m_settings;
    LookBook& m_looks;
    Page m_page;
    PageSetup m_setup;
    Double m_y = 0.0;
    Double m_columnTop = 0.0;
    Integer m_column = 0;
    std::vector<BoxRest> m_boxes;
};

} // namespace platform::print
