#include "worksheets/frm63DecisionTree.h"

#include "model/g51Alternatives.h"
#include "platform/controls/ListContents.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/PaneSplitter.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "worksheets/AlternativeList.h"
#include "worksheets/DecisionTreeDrawing.h"
#include "worksheets/DecisionTreePicture.h"
#include "worksheets/WorksheetParts.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <cstdlib>
#include <utility>

namespace {

constexpr int kLongestLabel = 70; // characters that a combo box shows at most
constexpr int kAlike = 4;         // pixels by which two panels of one size may differ

const QString kOneAlternative =
    QStringLiteral("There is only one alternative, so there is none to compare it with.");
const QString kCannotBeDrawn = QStringLiteral("The tree of this alternative cannot be drawn because one of "
                                              "its figures cannot be read. Check its outcomes on the "
                                              "worksheet Outcomes of the section Alternatives.");

} // namespace

frm63DecisionTree::frm63DecisionTree(QWidget* parent) : Worksheet(QStringLiteral("frm63DecisionTree"), parent)
{}

void frm63DecisionTree::Setup()
{
    BeginSetup(2, "tab63");
    const UIMode::Busy busy;
    platform::ListContents alternatives;
    g51Alternatives::AddItem(alternatives);
    if (alternatives.ListCount() == 0) {
        ShowNoAlternatives();
        return;
    }
    OpenPanel(1, alternatives, 0);
    if (alternatives.ListCount() >= 2) {
        OpenPanel(2, alternatives, 1);
    } else {
        HideSecondPicture(kOneAlternative);
    }
    ArrangePanels();
}

void frm63DecisionTree::BuildControls()
{
    setWindowTitle(QStringLiteral("Decision Tree"));
    setAccessibleName(windowTitle());
    m_splitter = new platform::PaneSplitter(Qt::Vertical);
    for (const int index : {1, 2}) {
        BuildPanel(At(index), index);
    }
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(windowTitle(), this));
    column->addWidget(m_splitter, 1);
    ConnectHandlers();
}

void frm63DecisionTree::BuildPanel(Panel& panel, int index)
{
    panel.frame = new QWidget(m_splitter);
    const QString name = QStringLiteral("Decision tree %1").arg(index);
    panel.frame->setAccessibleName(name);
    auto* caption = new QLabel(QStringLiteral("Select Alternative to display"), panel.frame);
    panel.cboAlternative = new QComboBox(panel.frame);
    panel.cboAlternative->setObjectName(QStringLiteral("cboAlternative_%1").arg(index));
    panel.cboAlternative->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    panel.cboAlternative->setMaximumWidth(kLongestLabel * fontMetrics().averageCharWidth());
    caption->setBuddy(panel.cboAlternative);
    panel.picDecisionTree = new DecisionTreePicture(panel.frame);
    panel.picDecisionTree->setObjectName(QStringLiteral("picDecisionTree_%1").arg(index));
    panel.picDecisionTree->setAccessibleName(name);

    auto* choice = new QHBoxLayout;
    choice->setSpacing(platform::Theme::Gap());
    choice->addWidget(caption);
    choice->addWidget(panel.cboAlternative, 1);
    choice->addStretch();
    auto* layout = new QVBoxLayout(panel.frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(platform::Theme::Gap() / 2);
    layout->addLayout(choice);
    layout->addWidget(panel.picDecisionTree, 1);
    m_splitter->addWidget(panel.frame);
}

void frm63DecisionTree::ConnectHandlers()
{
    for (const int index : {1, 2}) {
        connect(
            At(index).picDecisionTree, &DecisionTreePicture::FitNeeded, this, &frm63DecisionTree::FitTrees);
        connect(At(index).cboAlternative, &QComboBox::currentIndexChanged, this, [this, index] {
            platform::Guarded([this, index] { cboAlternative_Click(index); });
        });
    }
}

void frm63DecisionTree::OpenPanel(int index, const platform::ListContents& alternatives, int row)
{
    QComboBox& combo = *At(index).cboAlternative;
    const QSignalBlocker filling(&combo);
    combo.clear();
    for (const auto& alternative : alternatives.Rows()) {
        combo.addItem(QString::fromStdString(alternative.text), alternative.itemData);
    }
    combo.setEnabled(true);
    combo.setToolTip({});
    combo.setCurrentIndex(row);
    At(index).picDecisionTree->show();
    At(index).frame->setMaximumHeight(QWIDGETSIZE_MAX);
    cboAlternative_Click(index);
}

void frm63DecisionTree::EmptyCombo(Panel& panel, const QString& reason)
{
    const QSignalBlocker emptying(panel.cboAlternative);
    panel.cboAlternative->clear();
    panel.cboAlternative->setEnabled(false);
    panel.cboAlternative->setToolTip(reason);
}

void frm63DecisionTree::HideSecondPicture(const QString& reason)
{
    Panel& panel = At(2);
    EmptyCombo(panel, reason);
    panel.picDecisionTree->ShowSentence(reason);
    panel.picDecisionTree->hide();
    FitTrees();
    // The one tree gets the room; only the row of the combo box stays below it.
    panel.frame->setMaximumHeight(panel.frame->minimumSizeHint().height());
}

void frm63DecisionTree::ShowNoAlternatives()
{
    EmptyCombo(At(1), NoAlternativesYet());
    At(1).picDecisionTree->ShowSentence(NoAlternativesYet());
    HideSecondPicture(NoAlternativesYet());
}

void frm63DecisionTree::cboAlternative_Click(int index)
{
    Panel& panel = At(index);
    const Long key = panel.cboAlternative->currentData().toInt();
    try {
        panel.picDecisionTree->ShowTree(DrawDecisionTree(*g51Alternatives::Alternative(key)));
    } catch (...) {
        panel.picDecisionTree->ShowSentence(kCannotBeDrawn);
        RaiseLater(std::current_exception());
    }
    FitTrees();
    ArrangePanels();
}

void frm63DecisionTree::RaiseLater(std::exception_ptr failure)
{
    // Both panels mostly fail of one cause: it is told once.
    if (std::exchange(m_failure, std::move(failure))) return;
    QMetaObject::invokeMethod(
        this, [this] { platform::Guarded([this] { Raise(); }); }, Qt::QueuedConnection);
}

void frm63DecisionTree::Raise() { std::rethrow_exception(std::exchange(m_failure, nullptr)); }

void frm63DecisionTree::FitTrees()
{
    std::vector<DecisionTreeDrawing> trees;
    for (const Panel& panel : m_panels) {
        if (!panel.picDecisionTree->Tree().IsEmpty()) trees.push_back(panel.picDecisionTree->Tree());
    }
    for (const Panel& panel : m_panels) {
        panel.picDecisionTree->Fit(trees, RoomOf(panel));
    }
}

QSize frm63DecisionTree::RoomOf(const Panel& panel) const
{
    QSize room = panel.picDecisionTree->Room();
    for (const Panel& other : m_panels) {
        // The splitter may give one of them a pixel more.
        const QSize difference = other.picDecisionTree->Room() - room;
        const bool alike = std::abs(difference.width()) <= kAlike && std::abs(difference.height()) <= kAlike;
        if (alike && !other.picDecisionTree->isHidden()) room = room.boundedTo(other.picDecisionTree->Room());
    }
    return room;
}

void frm63DecisionTree::ArrangePanels()
{
    const Panel& second = At(2);
    const QMargins margins = layout()->contentsMargins();
    const int room = (width() - margins.left() - margins.right() - m_splitter->handleWidth()) / 2;
    const bool sideBySide =
        !second.picDecisionTree->isHidden() && room >= second.picDecisionTree->FullTreeWidth();
    const Qt::Orientation orientation = sideBySide ? Qt::Horizontal : Qt::Vertical;
    if (m_splitter->orientation() != orientation) m_splitter->setOrientation(orientation);
}

void frm63DecisionTree::resizeEvent(QResizeEvent* event)
{
    Worksheet::resizeEvent(event);
    if (m_splitter != nullptr) ArrangePanels();
}
