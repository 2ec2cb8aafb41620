#include "worksheets/frm52SafetyRatings.h"

#include "model/g42SafetyIssues.h"
#include "model/g53Outcomes.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "worksheets/ValueLine.h"
#include "worksheets/WorksheetParts.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {

const QString kHowToDocument =
    QStringLiteral("Use the box below to document the rating assigned to each outcome.  Describe specific "
                   "safety concerns for each outcome.  Appropriate mitigation measures may also be noted.  "
                   "Select each outcome by clicking on it in the list above.");
constexpr const char* kNoIssues = "There are no safety issues to rate yet. Add one on the worksheet Safety "
                                  "Issues of the section Objectives.";
constexpr const char* kExtreme = "Extreme Outcome";

} // namespace

frm52SafetyRatings::frm52SafetyRatings(QWidget* parent)
    : RatingsWorksheet(QStringLiteral("frm52SafetyRatings"),
                       {"Safety Ratings",
                        "Safety Ratings",
                        "Safety Issues",
                        "Select each issue in turn",
                        "Rating for issue:",
                        "Rate how well each outcome addresses or mitigates the issue:",
                        kNoIssues},
                       parent)
{}

void frm52SafetyRatings::Setup()
{
    BeginSetup(2, "tab52");
    const UIMode::Busy busy;
    LoadCriteria();
    LoadGrid();
    ShowFirstCriterion();
}

void frm52SafetyRatings::BuildBelowGrid(QVBoxLayout& column)
{
    const ValueLine outcome =
        MakeValueLine(QStringLiteral("Alternative / Outcome:"), QStringLiteral("lblOutcome"), this);
    m_lblOutcome = outcome.value;
    m_txtRating = new QPlainTextEdit(this);
    m_txtRating->setObjectName(QStringLiteral("txtRating"));
    m_txtRating->setAccessibleName(QStringLiteral("Reasons for the rating"));
    m_txtRating->setTabChangesFocus(true);
    column.addLayout(outcome.layout);
    column.addWidget(WorksheetParts::Instruction(kHowToDocument, this));
    column.addWidget(m_txtRating, 1);
    connect(m_txtRating, &QPlainTextEdit::textChanged, this, [this] {
        platform::Guarded([this] { txtRating_Change(); });
    });
}

void frm52SafetyRatings::SetupOutcomeColumns(platform::GridContents& grid)
{
    g53Outcomes::SetupOutcomeGridWithSize(grid);
}

void frm52SafetyRatings::LoadCriteria()
{
    u91Trace::Trace("LoadCriteria");
    for (const auto& issue : g42SafetyIssues::SafetyIssueCollection()) {
        const std::string indent = issue->bSafetyRoot() ? "" : "    ";
        lstObjectives().AddItem(indent + issue->ItemName(), issue->ItemKey());
    }
}

std::shared_ptr<c41Objective> frm52SafetyRatings::CriterionOf(Long key)
{
    return g42SafetyIssues::SafetyIssue(key);
}

void frm52SafetyRatings::DisableAll()
{
    RatingsWorksheet::DisableAll();
    m_txtRating->setEnabled(false);
    m_txtRating->setToolTip(QString::fromUtf8(kNoIssues));
}

void frm52SafetyRatings::CriterionShown() { SelectRow(1); }

void frm52SafetyRatings::RatingShown()
{
    const UIMode::Busy busy;
    const std::string& alternative = Grid1().Text(CurrentRow(), Column::Name);
    const std::string& kind = Grid1().Text(CurrentRow(), Column::Kind);
    m_lblOutcome->setText(
        QString::fromStdString(alternative == kExtreme ? alternative : alternative + " " + kind));
    m_txtRating->setPlainText(QString::fromStdString(RatingOf(CurrentRow()).Description()));
    m_txtRating->setEnabled(true);
}

void frm52SafetyRatings::txtRating_Change()
{
    if (!UIMode::NotBusy() || CurrentRow() == 0) return;
    RatingOf(CurrentRow()).SetDescription(m_txtRating->toPlainText().toStdString());
    RatingTyped();
}
