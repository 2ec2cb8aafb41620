// A score typed in the grid, and one dragged on its bar.
#include "platform/base/Texts.h"
#include "platform/widgets/Grid.h"
#include "session/UIMode.h"
#include "worksheets/RatingScale.h"
#include "worksheets/RatingsWorksheet.h"

namespace {

const QString kScoreKeys = QStringLiteral("0123456789.");

} // namespace

// ---- Typing a score

void RatingsWorksheet::Grid1_EnterCell()
{
    if (!UIMode::NotBusy() || !CanRate(m_grid1->Row())) return;
    // Current first: what is typed next belongs to this row, even if the one before it cannot be saved.
    m_row = m_grid1->Row();
    SaveTyped();
    RatingShown();
    Grid1_Click();
}

void RatingsWorksheet::Grid1_Click()
{
    // Queued by the grid, which is the yield to what else is pending.
    if (UIMode::NotBusy() && m_grid1->Col() == Column::Score) m_grid1->EditCell();
}

void RatingsWorksheet::Grid1_BeforeEdit(Long row, Long column, bool& cancel)
{
    cancel = column != Column::Score || !CanRate(row);
    if (!cancel) m_grid1->SetEditMaxLength(kLongestScore);
}

void RatingsWorksheet::Grid1_KeyPressEdit(const QString& key, bool& drop)
{
    drop = !kScoreKeys.contains(key);
}

void RatingsWorksheet::Grid1_ChangeEdit()
{
    if (!UIMode::NotBusy() || m_grid1->Col() != Column::Score || !CanRate(m_row)) return;
    const Single score = RatingScale::ScoreOf(m_grid1->EditText());
    m_grid1->SetBar(m_row, Column::Bar, RatingScale::PercentWhileTyped(score));
    SetScore(m_row, score);
}

void RatingsWorksheet::Grid1_AfterEdit(Long row, Long column)
{
    if (column != Column::Score || !CanRate(row)) return;
    const Single score = RatingScale::ScoreOf(m_grid1->Text(row, column));
    m_grid1->SetText(row, column, platform::TextOf(score));
    // Only a score that the file had off the scale: typing has told every other.
    if (score != RatingOf(row).RawScore()) SetScore(row, score);
}

void RatingsWorksheet::SetScore(Long row, Single score)
{
    RatingOf(row).SetRawScore(score);
    m_saves.TellAgain();
}

// ---- Dragging the bar

void RatingsWorksheet::DragStep(Long row, Single place)
{
    const RatingScale::Step step = RatingScale::StepAt(place);
    const std::string score = platform::TextOf(step.score);
    if (score == m_grid1->Text(row, Column::Score)) return;
    m_grid1->SetText(row, Column::Score, score);
    m_grid1->SetBar(row, Column::Bar, step.percent);
    SetScore(row, step.score);
}

bool RatingsWorksheet::DragTo(Long row, Long column, Single place)
{
    if (m_dragRow == 0 || row != m_dragRow || column != Column::Bar) return false;
    DragStep(row, place);
    return true;
}

void RatingsWorksheet::Grid1_MouseDown(Long row, Long column, Single place)
{
    m_dragRow = 0;
    if (column != Column::Bar || !CanRate(row)) return;
    m_dragRow = row;
    DragTo(row, column, place);
}

void RatingsWorksheet::Grid1_MouseMove(Long row, Long column, Single place) { DragTo(row, column, place); }

void RatingsWorksheet::Grid1_MouseUp(Long row, Long column, Single place)
{
    if (DragTo(row, column, place)) {
        SetScore(row, RatingScale::ScoreOf(m_grid1->Text(row, Column::Score)));
    }
    m_dragRow = 0;
}

void RatingsWorksheet::Grid1_BarStep(int steps)
{
    if (!UIMode::NotBusy() || !CanRate(m_row)) return;
    DragStep(m_row, RatingScale::PlaceBeside(RatingOf(m_row).RawScore(), steps));
}
