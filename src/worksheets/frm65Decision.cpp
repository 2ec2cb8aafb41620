#include "worksheets/frm65Decision.h"

#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "session/u92Utilities.h"
#include "values/g8Summary.h"
#include "worksheets/AlternativeList.h"
#include "worksheets/DecisionDescription.h"
#include "worksheets/DecisionTopics.h"
#include "worksheets/RichBody.h"
#include "worksheets/WorksheetParts.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

using platform::Guarded;

namespace {

/// The head of a step of the worksheet.
QLabel* StepLabel(const char* text, QWidget* parent)
{
    auto* label = new QLabel(QString::fromUtf8(text), parent);
    QFont font = label->font();
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    return label;
}

bool IsPlainDescription(const std::string& body) { return body.substr(0, 4) == "This"; }

} // namespace

frm65Decision::frm65Decision(QWidget* parent)
    : TopicForm(QStringLiteral("frm65Decision"), QStringLiteral("Decision"), parent)
{}

void frm65Decision::Setup()
{
    BeginSetup(3, "tab65");
    const UIMode::Busy busy;
    FillAlternatives();
    // A figure that fails is told, and the rest of the worksheet works.
    Guarded([this] { ShowLeastCost(); });
    Guarded([this] { ShowDecision(); });
    FillTopics();
    List().SetListIndex(0);
}

// ---- Controls

QLabel* frm65Decision::BuildAboveList(QVBoxLayout& left)
{
    BuildChoice(left);
    left.addSpacing(platform::Theme::GroupGap() - platform::Theme::Gap());
    QLabel* caption = StepLabel("2. Description and Rationale", left.parentWidget());
    left.addWidget(caption);
    left.addWidget(WorksheetParts::Instruction(
        QStringLiteral("Click on each topic below and fill in narrative on the right."),
        left.parentWidget()));
    return caption;
}

void frm65Decision::BuildChoice(QVBoxLayout& left)
{
    QWidget* parent = left.parentWidget();
    QLabel* caption = StepLabel("1. Select an Alternative", parent);
    m_cboAlternatives = new QComboBox(parent);
    m_cboAlternatives->setObjectName(QStringLiteral("cboAlternatives"));
    m_cboAlternatives->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_cboAlternatives->installEventFilter(this);
    caption->setBuddy(m_cboAlternatives);
    m_lblNoAlternatives = new platform::QuietLabel(NoAlternativesYet(), parent);
    m_lblNoAlternatives->setObjectName(QStringLiteral("lblNoAlternatives"));
    for (QWidget* each : std::initializer_list<QWidget*>{caption, m_cboAlternatives, m_lblNoAlternatives})
        left.addWidget(each);
    m_lblLeastCost = AddValue(left, "Most Cost Effective Alternative", "lblLeastCost");
    // "inlude" is how the sentence is spelled.
    left.addWidget(WorksheetParts::Instruction(
        QStringLiteral("If this Alternative is not selected, be sure to inlude an explanation in the "
                       "rationale."),
        parent));
}

void frm65Decision::BuildBelowList(QVBoxLayout&) { List().setMaximumHeight(List().minimumHeight()); }

void frm65Decision::ConnectHandlers()
{
    TopicForm::ConnectHandlers();
    connect(m_cboAlternatives, &QComboBox::currentIndexChanged, this, [this](int row) {
        if (row >= 0) Guarded([this] { cboAlternatives_Click(); });
    });
}

bool frm65Decision::eventFilter(QObject* watched, QEvent* event)
{
    return (watched == m_cboAlternatives && event->type() == QEvent::Wheel) ||
           TopicForm::eventFilter(watched, event);
}

void frm65Decision::TopicShown() { Body().Body().setFocus(); }

// ---- Filling

void frm65Decision::FillAlternatives()
{
    g51Alternatives::AddItem(m_alternatives);
    const QSignalBlocker filling(m_cboAlternatives);
    m_cboAlternatives->clear();
    for (const auto& alternative : m_alternatives.Rows())
        m_cboAlternatives->addItem(QString::fromStdString(alternative.text), alternative.itemData);
    m_cboAlternatives->setCurrentIndex(-1);
    const bool some = m_alternatives.ListCount() > 0;
    m_cboAlternatives->setEnabled(some);
    m_cboAlternatives->setToolTip(some ? QString() : NoAlternativesYet());
    // The opened list shows whole labels, however narrow the box is.
    QAbstractItemView& opened = *m_cboAlternatives->view();
    opened.setMinimumWidth(opened.sizeHintForColumn(0) + 2 * platform::Theme::Gap());
    m_lblNoAlternatives->setVisible(!some);
}

void frm65Decision::ShowLeastCost()
{
    const auto best = g51Alternatives::MostCostEffectiveAlternative();
    m_lblLeastCost->setText(best == nullptr ? QString() : QString::fromStdString(best->Label()));
}

void frm65Decision::ShowDecision()
{
    u91Trace::Trace("frm65Decision.ShowDecision");
    const auto selected = g51Alternatives::SelectedAlternative();
    if (selected != nullptr) Select(selected->ItemKey());
}

void frm65Decision::Select(Long key)
{
    u92Utilities::SelectComboKey(m_alternatives, key);
    m_cboAlternatives->setCurrentIndex(m_alternatives.ListIndex());
    ShowWholeLabel();
}

void frm65Decision::ShowWholeLabel() { m_cboAlternatives->setToolTip(m_cboAlternatives->currentText()); }

void frm65Decision::FillTopics()
{
    List().Clear();
    List().AddItem("Selected Alternative Description", DecisionTopic::SelectedDescription);
    List().AddItem("Rationale for selecting this Alternative", DecisionTopic::SelectionRationale);
}

// ---- Choosing

Long frm65Decision::ChosenKey() const { return m_cboAlternatives->currentData().toInt(); }

void frm65Decision::cboAlternatives_Click()
{
    u91Trace::Trace("frm65Decision.cboAlternatives_Click " + m_cboAlternatives->currentText().toStdString());
    ShowWholeLabel();
    try {
        SaveChanges();
        UIMode::NotBusy() ? ChooseAlternative() : ComposePlainDescription();
    } catch (...) {
        ReturnToSelected();
        throw;
    }
}

void frm65Decision::ChooseAlternative()
{
    if (ChosenKey() == g51Alternatives::SelectedAlternativeKey()) return;
    List().SetListIndex(0);
    const auto alternative = g51Alternatives::Alternative(ChosenKey());
    g51Alternatives::SetSelectedAlternative(*alternative);
    // Kept so: a Fallback of 0 percent is drawn on the decision tree, but not told here.
    const bool fallback = alternative->Outcome(2)->Success() >= 1;
    SetDescription(fallback ? DecisionDescription::WithFallback(*alternative)
                            : DecisionDescription::WithoutFallback(*alternative));
}

void frm65Decision::ComposePlainDescription()
{
    if (!IsPlainDescription(g8Summary::SummaryItem(DecisionTopic::SelectedDescription)->Body())) return;
    // Kept so: with the Fallback, whether there is one or not.
    SetDescription(DecisionDescription::WithFallback(*g51Alternatives::Alternative(ChosenKey())));
}

void frm65Decision::SetDescription(const std::string& body)
{
    g8Summary::SummaryItem(DecisionTopic::SelectedDescription)->SetBody(body);
    // Shown ahead of the saving, so that what cannot be saved stays on the screen.
    if (CurrentTopic() != nullptr) ShowTopic();
    g8Summary::SaveSummaryItems();
}

void frm65Decision::ReturnToSelected()
{
    const QSignalBlocker quiet(m_cboAlternatives);
    Select(g51Alternatives::SelectedAlternativeKey());
}
