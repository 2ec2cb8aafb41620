#include "worksheets/frm53Ratings.h"

#include "model/g41Objectives.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/RichTextEdit.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "worksheets/frm0_VEXA.h"

#include <QVBoxLayout>

using platform::Alignment;
using platform::GridContents;

namespace {

// Twips.
constexpr Long kNameWidth = 2100;
constexpr Long kKindWidth = 1200;
constexpr Long kSizeWidth = 720;
// Of the description; a longer one scrolls.
constexpr int kFewestLines = 3;
constexpr int kMostLines = 7;

const QString kNoDescription = QStringLiteral("This objective has no description yet. Write one on the "
                                              "worksheet Describe Objectives of the section Objectives.");

void SetColumn(GridContents& grid, Long column, const char* header, Long width, Alignment alignment)
{
    grid.SetText(0, column, header);
    grid.SetColWidth(column, width);
    grid.SetColAlignment(column, alignment);
}

} // namespace

frm53Ratings::frm53Ratings(QWidget* parent)
    : RatingsWorksheet(QStringLiteral("frm53Ratings"),
                       {"Evaluate",
                        "Objective Ratings",
                        " Objectives",
                        "Select each objective in turn",
                        "Rating for objective:",
                        "Rate how well each outcome satisfies the objective",
                        "There are no objectives in this file, so there is nothing to rate."},
                       parent)
{}

void frm53Ratings::Setup()
{
    BeginSetup(3, "tab53", "frmRatings.Setup");
    MainWindow().DisableEditMenu(); // Kept: alone among the worksheets that one fills in
    const UIMode::Busy busy;
    LoadCriteria();
    LoadGrid();
    ShowFirstCriterion();
}

void frm53Ratings::BuildAboveGrid(QVBoxLayout& column)
{
    m_txtDescription = new platform::RichTextEdit(this);
    m_txtDescription->setObjectName(QStringLiteral("txtDescription"));
    m_txtDescription->setAccessibleName(QStringLiteral("Description of the objective"));
    m_txtDescription->setReadOnly(true);
    m_txtDescription->setFrameShape(QFrame::StyledPanel);
    const int line = m_txtDescription->fontMetrics().lineSpacing();
    m_txtDescription->setMinimumHeight(kFewestLines * line);
    m_txtDescription->setMaximumHeight(kMostLines * line);
    column.addWidget(m_txtDescription);
}

void frm53Ratings::SetupOutcomeColumns(GridContents& grid)
{
    SetColumn(grid, Column::Name, "Alternative", kNameWidth, Alignment::Left);
    SetColumn(grid, Column::Kind, "Outcome", kKindWidth, Alignment::Left);
    SetColumn(grid, Column::Size, "Acres", kSizeWidth, Alignment::Right);
}

void frm53Ratings::LoadCriteria()
{
    u91Trace::Trace("LoadCriteria");
    for (const auto& category : g41Objectives::GetCategoryCollection())
        lstObjectives().AddItem(category->ItemName(), category->ItemKey());
}

std::shared_ptr<c41Objective> frm53Ratings::CriterionOf(Long key) { return g41Objectives::Objective(key); }

void frm53Ratings::CriterionShown()
{
    m_txtDescription->setPlaceholderText(kNoDescription);
    m_txtDescription->LoadFromMemory(Criterion()->Description());
    if (CurrentRow() == 0) SelectRow(1);
}

void frm53Ratings::Grid1_AfterEdit(Long row, Long column)
{
    RatingsWorksheet::Grid1_AfterEdit(row, column);
    SaveTyped();
}
