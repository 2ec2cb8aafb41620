#include "worksheets/frm43Outcomes.h"

#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Errors.h"
#include "platform/base/Texts.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "worksheets/AlternativeList.h"
#include "worksheets/RichBody.h"
#include "worksheets/SaveOrGoBack.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <cmath>

namespace Theme = platform::Theme;
using platform::EntryBox;

namespace {

constexpr const char* kInstruction =
    "The analysis of each alternative requires predicting its outcome.  Because of the uncertainties "
    "involved in predicting fire behavior, a complete analysis will consider more than one possible outcome. "
    " VEXA Basic supports analysis of a Target outcome for each alternative as well as an Extreme outcome "
    "shared by all alternatives.";

enum Column : Long { Name = 0, Size = 2, Contain = 3, Control = 4, ColumnCount = 5 };

constexpr Long kFirstRow = 1;
constexpr int kBoxCharacters = 14;
const QString kDigits = QStringLiteral("0123456789");

/// Acres as they are stored; a text that is no size counts as none until it is one again.
std::string SizeOf(const std::string& text)
{
    try {
        const bool size =
            platform::IsNumeric(text) && !std::signbit(platform::ToSingle(platform::NumberOf(text)));
        return size ? text : "0";
    } catch (const platform::Overflow&) {
        return "0";
    }
}

/// Sets a time from what was typed; more days than can be counted are none.
void SetDays(c53Outcome& outcome, void (c53Outcome::*set)(const std::string&), const std::string& text)
{
    try {
        (outcome.*set)(text);
    } catch (const platform::Overflow&) {
        (outcome.*set)("");
    }
}

} // namespace

frm43Outcomes::frm43Outcomes(QWidget* parent) : Worksheet(QStringLiteral("frm43Outcomes"), parent) {}

void frm43Outcomes::Setup()
{
    BeginSetup(3, "tab43");
    m_current.reset();
    const UIMode::Busy busy;
    m_grdOutcomes->Fill([](platform::GridContents& grid) {
        grid.SetCols(ColumnCount);
        g53Outcomes::SetupOutcomeGridWithTimes(grid);
        g53Outcomes::LoadOutcomesWithTimes(grid);
    });
    m_grdOutcomes->SetStretchCol(Name);
    m_grdOutcomes->setMinimumWidth(m_grdOutcomes->sizeHint().width()); // every column is seen
    m_lblNone->setVisible(g51Alternatives::AlternativeCollection().Count() == 0);
    m_grdOutcomes->SetRow(kFirstRow);
    ShowRow();
}

void frm43Outcomes::SaveChanges()
{
    u91Trace::Trace("frm43Outcomes.SaveChanges");
    if (m_current != nullptr) m_current->SaveChanges();
}

void frm43Outcomes::BuildControls()
{
    setWindowTitle(QStringLiteral("Outcomes"));
    setAccessibleName(windowTitle());
    QLabel* instruction = WorksheetParts::Instruction(QString::fromUtf8(kInstruction), this);
    instruction->setObjectName(QStringLiteral("Label1"));
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(QStringLiteral("Developing outcomes"), this));
    column->addWidget(instruction);
    QWidget* left = BuildGrid(); // ahead of the right: in this order the Tab key leads through them
    QWidget* right = BuildSide();
    column->addWidget(WorksheetPanes::SideBySide(left, right, this), 1);
    ConnectHandlers();
    ConnectKeys();
}

QWidget* frm43Outcomes::BuildGrid()
{
    auto* side = new QWidget(this);
    m_grdOutcomes = new platform::Grid(QStringLiteral("grdOutcomes"), QStringLiteral("Outcomes"), side);
    m_lblNone = new platform::QuietLabel(NoAlternativesYet(), side);
    m_lblNone->setObjectName(QStringLiteral("lblNone"));
    QVBoxLayout* column = WorksheetPanes::Column(side);
    column->addWidget(m_grdOutcomes, 1);
    column->addWidget(m_lblNone);
    return side;
}

QWidget* frm43Outcomes::BuildSide()
{
    auto* side = new QWidget(this);
    QVBoxLayout* column = WorksheetPanes::Column(side);
    column->addWidget(BuildDetails(side));
    column->addWidget(BuildOutcome(side), 1);
    return side;
}

QWidget* frm43Outcomes::BuildDetails(QWidget* parent)
{
    auto* panel = new QWidget(parent);
    panel->setObjectName(QStringLiteral("pnlDetails"));
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(Theme::Gap());
    m_txtSize = AddBox(*grid, "txtSize", " Final fire size", " acres");
    m_txtContain = AddBox(*grid, "txtContain", " Time to contain", " days");
    m_txtControl = AddBox(*grid, "txtControl", " Time to control", " days");
    m_cmdFallback = WorksheetPanes::Button("cmdFallback", "Fallback", panel);
    m_cmdFallback->hide();
    grid->addWidget(m_cmdFallback, 0, 3);
    grid->setColumnStretch(3, 1);
    return panel;
}

EntryBox* frm43Outcomes::AddBox(QGridLayout& grid, const char* name, const char* label, const char* unit)
{
    QWidget* panel = grid.parentWidget();
    auto* box = new EntryBox(QString::fromUtf8(name), panel);
    const QString text = QString::fromUtf8(label);
    box->setAccessibleName(text.trimmed() + QString::fromUtf8(unit));
    box->setMaximumWidth(kBoxCharacters * box->fontMetrics().averageCharWidth());
    box->SelectWholeOnEntry();
    auto* caption = new QLabel(text, panel);
    caption->setBuddy(box);
    const int row = grid.rowCount();
    grid.addWidget(caption, row, 0);
    grid.addWidget(box, row, 1);
    grid.addWidget(new QLabel(QString::fromUtf8(unit), panel), row, 2);
    return box;
}

QWidget* frm43Outcomes::BuildOutcome(QWidget* parent)
{
    auto* panel = new QWidget(parent);
    panel->setObjectName(QStringLiteral("pnlOutcome"));
    const QString text = QStringLiteral("Describe the outcome");
    auto* caption = new QLabel(text, panel);
    m_body = new RichBody(text, platform::RichTextEditor::Parts::Bar, panel);
    caption->setBuddy(&m_body->Body());
    QVBoxLayout* column = WorksheetPanes::Column(panel);
    column->addWidget(caption);
    column->addWidget(m_body, 1);
    return panel;
}

void frm43Outcomes::ConnectHandlers()
{
    using platform::Guarded;
    connect(m_grdOutcomes, &platform::Grid::EnterCell, this, [this] {
        Guarded([this] { grdOutcomes_EnterCell(); });
    });
    const auto change = [this](EntryBox* box, void (frm43Outcomes::*handler)()) {
        connect(box, &QLineEdit::textChanged, this, [this, handler] {
            Guarded([this, handler] {
                if (UIMode::NotBusy() && m_current != nullptr) (this->*handler)();
            });
        });
    };
    change(m_txtSize, &frm43Outcomes::txtSize_Change);
    change(m_txtContain, &frm43Outcomes::txtContain_Change);
    change(m_txtControl, &frm43Outcomes::txtControl_Change);
}

void frm43Outcomes::ConnectKeys()
{
    const QList<Qt::Key> onward = {Qt::Key_Return, Qt::Key_Down};
    m_txtSize->LeadTo(m_txtContain, onward);
    m_txtContain->LeadTo(m_txtControl, onward);
    m_txtContain->LeadTo(m_txtSize, {Qt::Key_Up});
    m_txtControl->LeadTo(m_txtContain, {Qt::Key_Up});
    m_txtSize->TakeOnly(kDigits + QLatin1Char(','));
    m_txtContain->TakeOnly(kDigits);
    m_txtControl->TakeOnly(kDigits);
}

void frm43Outcomes::ShowRow()
{
    const auto outcome = m_grdOutcomes->RowObject<Outcome>(m_grdOutcomes->Row());
    if (outcome == nullptr) return;
    m_current = outcome;
    ShowOutcome();
}

void frm43Outcomes::ShowOutcome()
{
    u91Trace::Trace("ShowOutcome");
    const UIMode::Busy busy;
    m_body->Show(m_current->Description(),
                 [outcome = m_current](auto text) { outcome->SetDescriptionLater(std::move(text)); });
    m_txtSize->setText(QString::fromStdString(m_current->FireSize()));
    // Not the texts of the two times: here a 0 is shown.
    m_txtContain->setText(QString::number(m_current->ContainTime()));
    m_txtControl->setText(QString::number(m_current->ControlTime()));
    m_cmdFallback->hide(); // no worksheet of this edition turns a Fallback on
}

void frm43Outcomes::ShowInGrid(Long column, const std::string& text)
{
    m_grdOutcomes->SetText(RowOf(*m_current), column, text);
}

Long frm43Outcomes::RowOf(const c53Outcome& outcome) const
{
    Long row = kFirstRow;
    while (m_grdOutcomes->RowObject<Outcome>(row).get() != &outcome)
        ++row; // the current outcome always has one
    return row;
}

void frm43Outcomes::ReturnToCurrentRow()
{
    const UIMode::Busy busy;
    if (m_current != nullptr) m_grdOutcomes->SetRow(RowOf(*m_current));
}

void frm43Outcomes::grdOutcomes_EnterCell()
{
    if (!UIMode::NotBusy()) return;
    SaveOrGoBack(*this, [this] { ReturnToCurrentRow(); });
    ShowRow();
}

void frm43Outcomes::txtSize_Change()
{
    m_current->SetFireSize(SizeOf(m_txtSize->text().toStdString()));
    ShowInGrid(Size, m_current->FireSize());
}

void frm43Outcomes::txtContain_Change()
{
    SetDays(*m_current, &c53Outcome::SetContainTimeString, m_txtContain->text().toStdString());
    ShowInGrid(Contain, platform::TextOf(m_current->ContainTime()));
}

void frm43Outcomes::txtControl_Change()
{
    SetDays(*m_current, &c53Outcome::SetControlTimeString, m_txtControl->text().toStdString());
    ShowInGrid(Control, platform::TextOf(m_current->ControlTime()));
}
