#include "worksheets/frm42Alternatives.h"

#include "model/g51Alternatives.h"
#include "platform/base/Desktop.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "session/u92Utilities.h"
#include "worksheets/AlternativeList.h"
#include "worksheets/GuidelinesPanel.h"
#include "worksheets/RichBody.h"
#include "worksheets/RowKeys.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace Theme = platform::Theme;
using platform::EntryBox;

namespace {

// The words stand as they are given, misspelt ones too.
constexpr const char* kGuidelines = "Consider the following when forming alternatives:"
                                    "|CR|- Frequently on large fires a combination "
                                    "of strategies is used on different portions of the perimeter."
                                    "|CR|- Each Alternative must be safely implementable."
                                    "|CR|- Alternatives should result in significantly different "
                                    "outcomes (size, cost, resource protection or damage, etc.) "
                                    "to best document trade-offs."
                                    "|CR|- Alternatives that include fire suppression techniques "
                                    "that may be less desirable should be evaluated, "
                                    "particularly during periods of firefighter shortages."
                                    "|CR|- Alternatives that result in minimal suppression costs "
                                    "must be evaluted, as well as the resultant resource damage "
                                    "and/or threat to property."
                                    "|CR|- Some Alternatives may only allow for protection of high "
                                    "values at risk until the perimeter reaches fuel/topographic "
                                    "changes, with resultant large acres burned."
                                    "|CR|- An Alternative may be structured that optimizes "
                                    "the use of natural or man-made barriers."
                                    "|CR|- Some alternatives may aggressively utilize mechanical "
                                    "equipment to minimize fire size and firefighter exposure.";

const QString kNoAlternatives =
    QStringLiteral("There are no alternatives yet. Click Add New Alternative to begin the first one.");

constexpr int kLabelCharacters = 6;
constexpr int kFirstLetter = 'A';

bool HasSuccessor(int letter) { return (letter >= 'A' && letter <= 'Y') || (letter >= 'a' && letter <= 'y'); }

/// The letter behind that of the last alternative; where that one is no letter or the last of its alphabet,
/// the count decides.
QString NextLetter(const AlternativeList& list)
{
    if (list.ListCount() == 0) return QChar(kFirstLetter);
    const QString last = QString::fromStdString(list.List(list.ListCount() - 1));
    const int letter = last.at(0).unicode();
    return QChar(HasSuccessor(letter) ? letter + 1 : kFirstLetter + list.ListCount());
}

} // namespace

frm42Alternatives::frm42Alternatives(QWidget* parent) : Worksheet(QStringLiteral("frm42Alternatives"), parent)
{}

void frm42Alternatives::Setup()
{
    BeginSetup(2, "tab42");
    FillList();
    if (m_lstAlternatives->ListCount() > 0) m_lstAlternatives->SetListIndex(0);
}

void frm42Alternatives::SaveChanges()
{
    u91Trace::Trace("frmAlternatives.SaveChanges");
    if (m_current != nullptr) m_current->SaveChanges();
}

void frm42Alternatives::BuildControls()
{
    setWindowTitle(QStringLiteral("Strategies"));
    setAccessibleName(windowTitle());
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(windowTitle(), this));
    QWidget* left = BuildList(); // ahead of the right: in this order the Tab key leads through them
    QWidget* right = BuildDetails();
    column->addWidget(WorksheetPanes::SideBySide(left, right, this), 1);
    ConnectHandlers();
}

QWidget* frm42Alternatives::BuildList()
{
    auto* side = new QWidget(this);
    auto* caption = new QLabel(QStringLiteral("Alternatives"), side);
    m_lstAlternatives = new AlternativeList(kNoAlternatives, side);
    caption->setBuddy(m_lstAlternatives);
    m_cmdAdd = WorksheetPanes::Button("cmdAdd", "&Add New Alternative", side);
    m_cmdDelete = WorksheetPanes::Button("cmdDelete", "&Delete Alternative", side);
    auto* guidelines =
        new GuidelinesPanel(QStringLiteral("Guidelines for developing alternatives:"), kGuidelines, side);
    QVBoxLayout* column = WorksheetPanes::Column(side);
    column->addWidget(caption);
    column->addWidget(m_lstAlternatives, 1);
    column->addLayout(WorksheetPanes::ButtonRow({m_cmdAdd, m_cmdDelete}));
    column->addWidget(guidelines, 1);
    return side;
}

QWidget* frm42Alternatives::BuildDetails()
{
    m_pnlDetails = new QWidget(this);
    m_pnlDetails->setObjectName(QStringLiteral("pnlDetails"));
    m_txtLabel = new EntryBox(QStringLiteral("txtLabel"), m_pnlDetails);
    m_txtLabel->setAccessibleName(QStringLiteral("Alternative Label"));
    m_txtLabel->setMaximumWidth(kLabelCharacters * m_txtLabel->fontMetrics().maxWidth());
    m_txtLabel->SelectFirstOnEntry();
    m_txtName = new EntryBox(QStringLiteral("txtName"), m_pnlDetails);
    m_txtName->setAccessibleName(QStringLiteral("Alternative Name"));
    m_txtName->SelectWholeOnEntry();
    auto* caption = new QLabel(QStringLiteral("Alternative Label and Name"), m_pnlDetails);
    caption->setBuddy(m_txtLabel);
    const QString theme = QStringLiteral("Describe the general theme of the  Alternative and what strategies "
                                         "would be used to implement it.");
    auto* themeCaption = new QLabel(theme, m_pnlDetails);
    themeCaption->setWordWrap(true);
    m_body = new RichBody(theme, platform::RichTextEditor::Parts::Bar, m_pnlDetails);
    themeCaption->setBuddy(&m_body->Body());

    auto* boxes = new QHBoxLayout;
    boxes->setSpacing(Theme::Gap());
    boxes->addWidget(m_txtLabel, 1);
    boxes->addWidget(m_txtName, 4);
    QVBoxLayout* column = WorksheetPanes::Column(m_pnlDetails);
    column->addWidget(caption);
    column->addLayout(boxes);
    column->addWidget(themeCaption);
    column->addWidget(m_body, 1);
    return m_pnlDetails;
}

void frm42Alternatives::ConnectHandlers()
{
    using platform::Guarded;
    connect(m_lstAlternatives, &AlternativeList::Click, this, [this] {
        Guarded([this] { lstAlternatives_Click(); });
    });
    connect(m_txtLabel, &QLineEdit::textChanged, this, [this] { Guarded([this] { txtLabel_Change(); }); });
    connect(m_txtName, &QLineEdit::textChanged, this, [this] { Guarded([this] { txtName_Change(); }); });
    connect(m_cmdAdd, &QPushButton::clicked, this, [this] { Guarded([this] { cmdAdd_Click(); }); });
    connect(m_cmdDelete, &QPushButton::clicked, this, [this] { Guarded([this] { cmdDelete_Click(); }); });
    for (EntryBox* box : {m_txtLabel, m_txtName})
        new RowKeys(*box, [this](Long step) { m_lstAlternatives->MoveRow(step); });
}

void frm42Alternatives::FillList()
{
    m_lstAlternatives->Fill();
    EnableDetails(m_lstAlternatives->ListCount() > 0);
}

void frm42Alternatives::EnableDetails(bool enable)
{
    const QString reason = enable ? QString() : kNoAlternatives;
    m_pnlDetails->setEnabled(enable);
    m_pnlDetails->setToolTip(reason);
    m_cmdDelete->setEnabled(enable);
    m_cmdDelete->setToolTip(reason);
    if (!enable) m_body->ShowNothing(reason);
}

void frm42Alternatives::ShowAlternative()
{
    const UIMode::Busy busy;
    m_txtLabel->setText(QString::fromStdString(m_current->ItemName()));
    m_txtName->setText(QString::fromStdString(m_current->Heading()));
    m_body->Show(m_current->Body(),
                 [alternative = m_current](auto text) { alternative->SetBodyLater(std::move(text)); });
    m_txtName->setFocus();
}

void frm42Alternatives::lstAlternatives_Click()
{
    u91Trace::Trace("lstAlternatives_Click " + m_lstAlternatives->ChosenLabel());
    try {
        SaveChanges();
    } catch (...) {
        m_lstAlternatives->ReturnTo(m_current);
        throw;
    }
    m_current = m_lstAlternatives->Chosen();
    ShowAlternative();
}

void frm42Alternatives::txtLabel_Change()
{
    if (!UIMode::NotBusy() || m_current == nullptr) return;
    m_current->SetItemName(m_txtLabel->text().toStdString());
    m_lstAlternatives->Rewrite(*m_current);
}

void frm42Alternatives::txtName_Change()
{
    if (!UIMode::NotBusy() || m_current == nullptr) return;
    m_current->SetHeading(m_txtName->text().toStdString());
    m_lstAlternatives->Rewrite(*m_current);
}

void frm42Alternatives::cmdAdd_Click()
{
    u91Trace::Trace("frm42Alternatives.cmdAdd_Click");
    SaveChanges();
    const UIMode::Busy busy; // brings the hourglass
    m_current = g51Alternatives::NewAlternative(NextLetter(*m_lstAlternatives).toStdString());
    m_lstAlternatives->Append(*m_current);
    EnableDetails(true);
    m_lstAlternatives->SetListIndex(m_lstAlternatives->ListCount() - 1);
}

void frm42Alternatives::cmdDelete_Click()
{
    u91Trace::Trace("frm42Alternatives.cmdDelete_Click");
    SaveChanges();
    if (m_current == nullptr) return;
    if (m_current->ItemKey() == g51Alternatives::SelectedAlternativeKey()) {
        platform::ShowMessage({"Cannot delete selected Alternative"});
        return;
    }
    const UIMode::Busy busy;
    if (u92Utilities::ConfirmDelete(m_current->Label() + "?")) DeleteCurrent();
}

void frm42Alternatives::DeleteCurrent()
{
    const Long index = m_lstAlternatives->ListIndex();
    g51Alternatives::DeleteAlternative(m_current->ItemKey());
    m_current.reset();
    FillList();
    if (m_lstAlternatives->ListCount() == 0) {
        cmdAdd_Click(); // a delete never leaves the list empty
    } else {
        m_lstAlternatives->SetListIndex(std::min(index, m_lstAlternatives->ListCount() - 1));
    }
}
