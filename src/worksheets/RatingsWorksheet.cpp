#include "worksheets/RatingsWorksheet.h"

#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "worksheets/RatingScale.h"

#include <QLabel>
#include <QScopedValueRollback>
#include <QSignalBlocker>

using platform::Alignment;
using platform::Grid;
using platform::GridContents;
using platform::ListBox;

namespace {

using Outcome = std::shared_ptr<c53Outcome>;

constexpr Long kFirstRow = 1;
constexpr Long kColumns = 5;
constexpr Long kScoreWidth = 360; // twips
constexpr const char* kBarHead = "Rating (0 worst, 10 best)\n        Bad                       Good";

} // namespace

RatingsWorksheet::RatingsWorksheet(const QString& name, const Texts& texts, QWidget* parent)
    : Worksheet(name, parent), m_texts(texts)
{}

RatingsWorksheet::~RatingsWorksheet() = default;

void RatingsWorksheet::SaveChanges()
{
    const QScopedValueRollback<bool> leaving(m_leaving, true);
    m_grid1->FinishEdit();
    SaveRatings();
    m_saves.TellAgain();
}

void RatingsWorksheet::SaveRatings()
{
    for (c62Rating& rating : m_ratings)
        rating.SaveChanges();
}

void RatingsWorksheet::SaveTyped()
{
    if (!m_leaving) m_saves.Try([this] { SaveRatings(); });
}

void RatingsWorksheet::LoadGrid()
{
    m_grid1->Fill([this](GridContents& grid) {
        grid.SetCols(kColumns);
        grid.SetRows(kFirstRow);
        grid.SetFixedRows(kFirstRow);
        SetupOutcomeColumns(grid);
        grid.SetColWidth(Column::Score, kScoreWidth);
        grid.SetColAlignment(Column::Score, Alignment::Right);
        grid.SetText(0, Column::Score, kBarHead);
        grid.SetText(0, Column::Bar, kBarHead);
        grid.SetMergeRow(0, true);
        g53Outcomes::LoadOutcomesWithSizes(grid);
    });
    m_grid1->SetMergeCol(Column::Name, true);
    m_grid1->SetEditable(Column::Score, true);
    m_grid1->SetLongestEntry(Column::Score, kLongestScore);
    m_grid1->SetStretchCol(Column::Bar); // what the other columns leave of the grid's width
    m_ratings.assign(static_cast<std::size_t>(m_grid1->Rows() - kFirstRow), c62Rating());
    m_row = 0;
    m_lblNoAlternatives->setVisible(g51Alternatives::AlternativeCollection().Count() == 0);
}

void RatingsWorksheet::ShowFirstCriterion()
{
    if (m_lstObjectives->ListCount() > FirstCriterion()) {
        m_lstObjectives->SetListIndex(FirstCriterion());
    } else {
        DisableAll();
    }
}

void RatingsWorksheet::DisableAll()
{
    const QString reason = QString::fromUtf8(m_texts.noCriteria);
    for (QWidget* control : {static_cast<QWidget*>(m_lstObjectives), static_cast<QWidget*>(m_grid1)}) {
        control->setEnabled(false);
        control->setToolTip(reason);
    }
    m_lblCriterion->setText(reason);
}

void RatingsWorksheet::lstObjectives_Click()
{
    const Long index = m_lstObjectives->ListIndex();
    u91Trace::Trace("lstObjectives_Click " + platform::TextOf(index));
    if (index < FirstCriterion()) {
        m_lstObjectives->SetListIndex(index + 1);
        ReturnToCriterion(); // a press selects the row under the pointer once this is done
        return;
    }
    try {
        SaveChanges();
    } catch (...) {
        ReturnToCriterion();
        throw;
    }
    ShowCriterion(index);
}

void RatingsWorksheet::ReturnToCriterion()
{
    QMetaObject::invokeMethod(
        this,
        [this] {
            const QSignalBlocker quiet(m_lstObjectives);
            m_lstObjectives->setCurrentRow(m_index);
        },
        Qt::QueuedConnection);
}

void RatingsWorksheet::ShowCriterion(Long index)
{
    const UIMode::Busy busy;
    const Long key = m_lstObjectives->ItemData(index);
    m_criterion = CriterionOf(key);
    m_index = index;
    m_lblCriterion->setText(QString::fromStdString(m_criterion->ItemName()));
    GetRatingsForCriterion(key);
    CriterionShown();
}

void RatingsWorksheet::GetRatingsForCriterion(Long key)
{
    const UIMode::Busy busy;
    for (Long row = kFirstRow; row < m_grid1->Rows(); ++row) {
        if (const auto outcome = m_grid1->RowObject<Outcome>(row)) {
            RatingOf(row).Initialize(outcome->ItemKey(), key, false, false);
            ShowScore(row);
        }
    }
}

void RatingsWorksheet::ShowScore(Long row)
{
    const Single score = RatingOf(row).RawScore();
    m_grid1->SetText(row, Column::Score, platform::TextOf(score));
    m_grid1->SetBar(row, Column::Bar, RatingScale::PercentOf(score));
}

bool RatingsWorksheet::CanRate(Long row) const
{
    return m_criterion != nullptr && row >= kFirstRow && row < m_grid1->Rows() &&
           m_grid1->RowObject<Outcome>(row) != nullptr;
}

void RatingsWorksheet::SelectRow(Long row)
{
    if (!CanRate(row)) return;
    const UIMode::Busy busy;
    m_grid1->Select(row, Column::Score);
    m_row = row;
    RatingShown();
}
