#include "worksheets/frm32SafetyIssues.h"

#include "model/g42SafetyIssues.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Grid.h"
#include "session/UIMode.h"
#include "session/u91Trace.h"
#include "session/u92Utilities.h"
#include "worksheets/GuidelinesPanel.h"
#include "worksheets/WorksheetPanes.h"

#include <QLabel>
#include <QPushButton>

namespace {

constexpr const char* kGuidelines =
    "Do not list issues that are present on every fire.  Emphasize the issues that are particularly "
    "relevant in this area, at this time, under current conditions.";
const QString kCategoryStays = QStringLiteral("The category cannot be deleted. Pick an issue below it.");

} // namespace

frm32SafetyIssues::frm32SafetyIssues(QWidget* parent)
    : ObjectiveWorksheet(QStringLiteral("frm32SafetyIssues"),
                         {"Safety Issues",
                          "List and describe specific Safety issues.\n"
                          "To add an issue click the Add Issue button below, then fill in the name and "
                          "description.",
                          "Safety Issue",
                          "Category",
                          "There are no safety issues in this file."},
                         parent)
{}

void frm32SafetyIssues::Setup()
{
    BeginSetup(2, "tab32");
    LoadRows(g42SafetyIssues::SafetyIssueCollection());
    SelectRow(1);
}

void frm32SafetyIssues::BuildBelowGrid(QVBoxLayout& column)
{
    m_cmdAdd = WorksheetPanes::Button("cmdAdd", "&Add Issue", this);
    m_cmdDelete = WorksheetPanes::Button("cmdDelete", "&Delete Issue", this);
    column.addLayout(WorksheetPanes::ButtonRow({m_cmdAdd, m_cmdDelete}));
    column.addWidget(
        new GuidelinesPanel(QStringLiteral("Guidelines for describing safety issues:"), kGuidelines, this));
    using platform::Guarded;
    connect(m_cmdAdd, &QPushButton::clicked, this, [this] { Guarded([this] { cmdAdd_Click(); }); });
    connect(m_cmdDelete, &QPushButton::clicked, this, [this] { Guarded([this] { cmdDelete_Click(); }); });
}

void frm32SafetyIssues::RowShown()
{
    const bool category = Current()->bSafetyRoot();
    lblName().setText(category ? QStringLiteral("Category") : QStringLiteral("Issue"));
    txtName().setFocus();
    m_cmdDelete->setEnabled(!category); // behind the focus, which would else wander off the disabled button
    m_cmdDelete->setToolTip(category ? kCategoryStays : QString());
}

void frm32SafetyIssues::cmdAdd_Click()
{
    u91Trace::Trace("cmdAdd_Click");
    if (Current() == nullptr) return; // the rows could not be read
    SaveChanges();
    const Long parent = Current()->bSafetyRoot() ? Current()->ItemKey() : Current()->ParentKey();
    const Long key = g42SafetyIssues::NewSafetyIssue("", parent)->ItemKey();
    g42SafetyIssues::ResetSafetyIssues(); // the rows follow the chain again
    LoadRows(g42SafetyIssues::SafetyIssueCollection());
    SelectRow(RowOf(*g42SafetyIssues::SafetyIssue(key)));
}

void frm32SafetyIssues::cmdDelete_Click()
{
    u91Trace::Trace("cmdDelete_Click");
    if (Current() == nullptr) return;
    if (!u92Utilities::ConfirmDelete(txtName().text().toStdString() + "?")) return;
    g42SafetyIssues::DeleteSafetyIssue(Current()->ItemKey());
    RemoveCurrentRow();
}
