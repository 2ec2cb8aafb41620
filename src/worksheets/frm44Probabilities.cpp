#include "worksheets/frm44Probabilities.h"

#include "model/c52OutcomeList.h"
#include "model/c53Outcome.h"
#include "model/g53Outcomes.h"
#include "platform/base/Desktop.h"
#include "platform/base/Errors.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "worksheets/AlternativeList.h"
#include "worksheets/OutcomeChances.h"
#include "worksheets/OutcomeFork.h"
#include "worksheets/OutcomePanel.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollArea>

#include <algorithm>

namespace Theme = platform::Theme;
using platform::EntryBox;

namespace {

constexpr Long kTarget = c52OutcomeList::Target;
constexpr Long kFallback = c52OutcomeList::Fallback;
constexpr Long kExtreme = c52OutcomeList::Extreme;

constexpr int kExtremeTop = 3660;  // twips: where the Extreme outcome stands below a Fallback
constexpr Double kCertain = 100.0; // percent

const QString kWithFallback = QStringLiteral(
    "These boxes should be used to describe the thought process and rationale used in estimating the "
    "probabilities of success and failure of the primary strategy and also of the fallback plan.");
const QString kWithoutFallback = QStringLiteral(
    "This box should be used to describe the thought process and rationale used in estimating the "
    "probabilities of success and failure of the strategy.");

/// What a box holds, in percent; more than can be counted is certain, or impossible.
Double PercentOf(const std::string& text)
{
    try {
        return platform::Val(text);
    } catch (const platform::Overflow&) {
        return text.find('-') == 0 ? -kCertain : 2 * kCertain;
    }
}

/// The row of the layout in which an outcome's panel stands.
int RowOf(Long index) { return index - kTarget; }

std::size_t Place(Long index) { return static_cast<std::size_t>(index - kTarget); }

QString TextOf(Double value) { return QString::fromStdString(platform::TextOf(value)); }

} // namespace

frm44Probabilities::frm44Probabilities(QWidget* parent)
    : Worksheet(QStringLiteral("frm44Probabilities"), parent)
{}

void frm44Probabilities::Setup()
{
    BeginSetup(4, "tab44");
    m_lstAlternatives->Fill();
    const bool any = m_lstAlternatives->ListCount() > 0;
    EnableFields(any);
    if (any) {
        m_lstAlternatives->SetListIndex(0);
    } else {
        Position(false);
        platform::ShowMessage({"No alternatives"});
    }
}

void frm44Probabilities::SaveChanges()
{
    u91Trace::Trace("frm44Probabilities.SaveChanges");
    if (m_current == nullptr) return;
    m_current->Outcome(kTarget)->SaveChanges();
    m_current->Outcome(kFallback)->SaveChanges();
}

void frm44Probabilities::BuildControls()
{
    setWindowTitle(QStringLiteral("Probabilities"));
    setAccessibleName(windowTitle());
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(windowTitle(), this));
    QWidget* left = BuildList(); // ahead of the right: in this order the Tab key leads through them
    QWidget* right = BuildTree();
    column->addWidget(WorksheetPanes::SideBySide(left, right, this), 1);
    ConnectHandlers();
}

QWidget* frm44Probabilities::BuildList()
{
    auto* side = new QWidget(this);
    QLabel* caption = WorksheetPanes::PlainLabel(QStringLiteral("Alternative to describe:"), side);
    m_lstAlternatives = new AlternativeList(NoAlternativesYet(), side);
    caption->setBuddy(m_lstAlternatives);
    QVBoxLayout* column = WorksheetPanes::Column(side);
    column->addWidget(caption);
    column->addWidget(m_lstAlternatives, 1);
    return side;
}

QWidget* frm44Probabilities::BuildTree()
{
    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus); // it follows what has the focus
    m_tree = new QWidget(scroll);
    QWidget* name = BuildName(m_tree);
    m_lblInstructions = new platform::QuietLabel({}, m_tree);
    m_lblInstructions->setObjectName(QStringLiteral("lblInstructions"));
    auto* tree = new QHBoxLayout;
    tree->setSpacing(Theme::Gap());
    tree->addWidget(BuildChances(m_tree), 1);
    QWidget* panels = BuildPanels(m_tree);
    m_fork = new OutcomeFork(PanelOf(kTarget), PanelOf(kFallback), PanelOf(kExtreme), m_tree);
    tree->addWidget(m_fork);
    tree->addWidget(panels);
    QVBoxLayout* column = WorksheetPanes::Column(m_tree);
    column->addWidget(name);
    column->addWidget(m_lblInstructions);
    column->addLayout(tree, 1);
    scroll->setWidget(m_tree);
    return scroll;
}

QWidget* frm44Probabilities::BuildName(QWidget* parent)
{
    auto* line = new QWidget(parent);
    m_lblAlternative = WorksheetPanes::Heading({}, line);
    m_lblAlternative->setObjectName(QStringLiteral("lblAlternative"));
    m_lblAlternative->setWordWrap(true);
    QLabel* caption = WorksheetPanes::PlainLabel(QStringLiteral("Strategy Name"), line);
    caption->setBuddy(m_lblAlternative);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::Gap());
    row->addWidget(caption, 0, Qt::AlignTop);
    row->addWidget(m_lblAlternative, 1);
    return line;
}

QWidget* frm44Probabilities::BuildChances(QWidget* parent)
{
    auto* side = new QWidget(parent);
    QVBoxLayout* column = WorksheetPanes::Column(side);
    for (const Long index : {kTarget, kFallback}) {
        m_chances.at(Place(index)) = new OutcomeChances(index, side);
        column->addWidget(&ChancesOf(index), 1);
    }
    return side;
}

QWidget* frm44Probabilities::BuildPanels(QWidget* parent)
{
    auto* side = new QWidget(parent);
    m_places = new QGridLayout(side);
    m_places->setContentsMargins(0, 0, 0, 0);
    m_places->setSpacing(0);
    Long index = kTarget;
    for (const char* title : {"Target Outcome", "Fallback Outcome", "Extreme Outcome"}) {
        m_panels.at(Place(index)) = new OutcomePanel(QString::fromUtf8(title), index, side);
        m_places->addWidget(&PanelOf(index), RowOf(index), 0, Qt::AlignTop);
        ++index;
    }
    for (const Long above : {kTarget, kFallback})
        m_places->setRowMinimumHeight(RowOf(above), Theme::Pixels(kExtremeTop) / 2);
    m_places->setRowStretch(m_places->rowCount(), 1);
    return side;
}

void frm44Probabilities::ConnectHandlers()
{
    using platform::Guarded;
    connect(m_lstAlternatives, &AlternativeList::Click, this, [this] {
        Guarded([this] { lstAlternatives_Click(); });
    });
    for (const Long index : {kTarget, kFallback}) {
        connect(&ChancesOf(index).txtSuccess(), &QLineEdit::textChanged, this, [this, index] {
            Guarded([this, index] { txtSuccess_Change(index); });
        });
        connect(&ChancesOf(index).txtRationale(), &QPlainTextEdit::textChanged, this, [this, index] {
            Guarded([this, index] { txtRationale_Change(index); });
        });
    }
}

void frm44Probabilities::EnableFields(bool enable)
{
    m_tree->setEnabled(enable);
    m_tree->setToolTip(enable ? QString() : NoAlternativesYet());
}

void frm44Probabilities::ShowAlternative()
{
    u91Trace::Trace("frm44Probabilities.ShowAlternative");
    if (m_current == nullptr) {
        platform::ShowMessage({"No current alternative"});
        return;
    }
    const UIMode::Busy busy;
    m_lblAlternative->setText(QString::fromStdString(m_current->Label()));
    const bool fallback = m_current->Outcome(kFallback)->bShow();
    Position(fallback);
    ShowPanels();
    ShowChances(kTarget);
    if (fallback) ShowChances(kFallback);
}

void frm44Probabilities::Position(bool fallback)
{
    PanelOf(kFallback).setVisible(fallback);
    ChancesOf(kFallback).setVisible(fallback);
    m_places->removeWidget(&PanelOf(kExtreme));
    m_places->addWidget(&PanelOf(kExtreme), RowOf(fallback ? kExtreme : kFallback), 0, Qt::AlignTop);
    m_lblInstructions->setText(fallback ? kWithFallback : kWithoutFallback);
    ChancesOf(kTarget).lblReasons().setText(fallback
                                                ? QStringLiteral("Discuss probabilities for primary strategy")
                                                : QStringLiteral("Discuss probabilities"));
    m_fork->ShowFallback(fallback);
}

void frm44Probabilities::ShowPanels()
{
    for (const Long index : {kTarget, kFallback}) {
        const c53Outcome& outcome = *m_current->Outcome(index);
        if (outcome.bShow()) {
            PanelOf(index).ShowOutcome(outcome);
        } else {
            PanelOf(index).Clear();
        }
    }
    PanelOf(kExtreme).ShowOutcome(*g53Outcomes::ExtremeOutcome());
}

void frm44Probabilities::ShowChances(Long index)
{
    const c53Outcome& outcome = *m_current->Outcome(index);
    const OutcomeChances& chances = ChancesOf(index);
    chances.txtSuccess().setText(QString::fromStdString(platform::Format(outcome.Success(), "0")));
    chances.lblFailure().setText(TextOf(kCertain - Double(outcome.Success())));
    chances.txtRationale().setPlainText(QString::fromStdString(outcome.SuccessRationale()));
}

void frm44Probabilities::SetSuccess(Long index, Double percent)
{
    u91Trace::Trace("Success" + platform::TextOf(index) + "_Set " + platform::TextOf(percent));
    const Double within = std::clamp(percent, 0.0, kCertain);
    const UIMode::Busy busy;
    const OutcomeChances& chances = ChancesOf(index);
    // The number alone, so that a point goes as it is typed. Only where the box reads otherwise: the caret
    // stays where one types.
    if (chances.txtSuccess().text() != TextOf(within)) chances.txtSuccess().setText(TextOf(within));
    m_current->Outcome(index)->SetSuccess(platform::ToLong(within));
    chances.lblFailure().setText(TextOf(kCertain - within));
}

void frm44Probabilities::lstAlternatives_Click()
{
    u91Trace::Trace("frm44Probabilities.lstAlternatives_Click " + m_lstAlternatives->ChosenLabel());
    try {
        if (UIMode::NotBusy()) SaveChanges();
    } catch (...) {
        m_lstAlternatives->ReturnTo(m_current);
        throw;
    }
    m_current = m_lstAlternatives->Chosen();
    ShowAlternative();
}

void frm44Probabilities::txtSuccess_Change(Long index)
{
    if (!UIMode::NotBusy() || m_current == nullptr) return;
    EntryBox& box = ChancesOf(index).txtSuccess();
    SetSuccess(index, PercentOf(box.text().toStdString()));
    if (box.text() == QLatin1String("0")) box.selectAll(); // the next key takes its place
}

void frm44Probabilities::txtRationale_Change(Long index)
{
    if (!UIMode::NotBusy() || m_current == nullptr) return;
    m_current->Outcome(index)->SetSuccessRationale(
        ChancesOf(index).txtRationale().toPlainText().toStdString());
}
