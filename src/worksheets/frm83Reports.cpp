#include "worksheets/frm83Reports.h"

#include "platform/base/Desktop.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/Theme.h"
#include "reports/ReportRun.h"
#include "session/u91Trace.h"
#include "worksheets/GetRtfFileName.h"
#include "worksheets/ReportRunBar.h"
#include "worksheets/ReportScreenRun.h"
#include "worksheets/WorksheetParts.h"
#include "worksheets/frm0_VEXA.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>

#include <algorithm>

namespace Theme = platform::Theme;

namespace {

constexpr int kBetweenBoxes = 300; // twips, from one to the next

} // namespace

frm83Reports::frm83Reports(QWidget* parent) : Worksheet(QStringLiteral("frm83Reports"), parent) {}

void frm83Reports::Setup()
{
    BeginSetup(3, "tab83");
    MainWindow().DisableEditMenu(); // there is no text to edit
}

// ---- Layout

void frm83Reports::BuildControls()
{
    setWindowTitle(QStringLiteral("Print Report"));
    setAccessibleName(windowTitle());
    m_runBar = new ReportRunBar(this);
    auto* work = new QHBoxLayout;
    work->setSpacing(2 * Theme::GroupGap());
    work->addWidget(BuildSections(), 0, Qt::AlignTop);
    work->addWidget(BuildCommands(), 1, Qt::AlignTop);
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(windowTitle(), this));
    column->addWidget(
        WorksheetParts::Instruction(QStringLiteral("Tick the sections of the report.  Then show them, print "
                                                   "them, or save them for a word processor."),
                                    this));
    column->addSpacing(Theme::GroupGap() - Theme::Gap());
    column->addLayout(work);
    column->addStretch();
    column->addWidget(m_runBar);
}

QWidget* frm83Reports::BuildSections()
{
    auto* group = new QGroupBox(QStringLiteral("Sections"), this);
    group->setObjectName(QStringLiteral("grpSections"));
    auto* grid = new QGridLayout(group);
    grid->setHorizontalSpacing(Theme::Gap());
    grid->setVerticalSpacing(0);
    for (std::size_t i = 0; i < kSections; ++i) {
        const auto number = static_cast<Integer>(i + 1);
        auto* box = new QCheckBox(QString::fromUtf8(ReportRun::SectionName(number)), group);
        box->setObjectName(QStringLiteral("chkSection_%1").arg(number));
        box->setChecked(true);
        grid->addWidget(box, static_cast<int>(i), 0, 1, 2);
        grid->setRowMinimumHeight(static_cast<int>(i), Theme::Pixels(kBetweenBoxes));
        m_chkSection[i] = box;
    }
    auto* select = new QPushButton(QStringLiteral("Select All"), group);
    select->setObjectName(QStringLiteral("cmdSelect"));
    auto* clear = new QPushButton(QStringLiteral("Clear All"), group);
    clear->setObjectName(QStringLiteral("cmdClear"));
    grid->setRowMinimumHeight(static_cast<int>(kSections), Theme::Gap());
    grid->addWidget(select, static_cast<int>(kSections) + 1, 0);
    grid->addWidget(clear, static_cast<int>(kSections) + 1, 1);
    Connect(select, &frm83Reports::cmdSelect_Click);
    Connect(clear, &frm83Reports::cmdClear_Click);
    return group;
}

QWidget* frm83Reports::BuildCommands()
{
    auto* commands = new QWidget(this);
    auto* grid = new QGridLayout(commands);
    grid->setContentsMargins(0, Theme::GroupGap(), 0, 0);
    grid->setHorizontalSpacing(Theme::GroupGap());
    grid->setVerticalSpacing(Theme::GroupGap());
    grid->setColumnStretch(1, 1);
    Connect(AddCommand(*grid, "cmdPreview", "Pre&view", "Shows the pages as they will be printed."),
            &frm83Reports::cmdPreview_Click);
    Connect(AddCommand(*grid, "cmdPrint", "&Print", "Sends the pages to the printer."),
            &frm83Reports::cmdPrint_Click);
    Connect(AddCommand(*grid,
                       "cmdSave",
                       "Save to File...",
                       "Writes a rich text file (RTF) that a word processor opens."),
            &frm83Reports::cmdSave_Click);
    Connect(AddCommand(*grid, "cmdPrinterSetup", "Printer &Setup", "Chooses the printer and its paper."),
            &frm83Reports::cmdPrinterSetup_Click);
    auto* numbering = new platform::QuietLabel(
        QStringLiteral("A report of fewer than eight sections leaves the page number blank, to be filled in "
                       "by hand when it is put together with other pages."),
        commands);
    numbering->setObjectName(QStringLiteral("lblNumbering"));
    grid->addWidget(numbering, grid->rowCount(), 0, 1, 2);
    return commands;
}

QPushButton*
frm83Reports::AddCommand(QGridLayout& grid, const char* name, const char* caption, const char* sentence)
{
    auto* button = new QPushButton(QString::fromUtf8(caption), grid.parentWidget());
    button->setObjectName(QString::fromUtf8(name));
    button->setMinimumWidth(button->sizeHint().width() + Theme::GroupGap());
    auto* told = new platform::QuietLabel(QString::fromUtf8(sentence), grid.parentWidget());
    told->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    button->setAccessibleDescription(told->text());
    const int row = grid.rowCount();
    grid.addWidget(button, row, 0);
    grid.addWidget(told, row, 1);
    return button;
}

void frm83Reports::Connect(QPushButton* button, void (frm83Reports::*handler)())
{
    connect(button, &QPushButton::clicked, this, [this, button, handler] {
        u91Trace::Trace(button->objectName().toStdString() + "_Click");
        platform::Guarded([this, handler] { (this->*handler)(); });
    });
}

// ---- Commands

void frm83Reports::SelectSections()
{
    u91Trace::Trace("SelectSections");
    std::array<bool, ReportRun::sectionCount> ticked{};
    std::transform(m_chkSection.begin(), m_chkSection.end(), ticked.begin(), [](const QCheckBox* box) {
        return box->isChecked();
    });
    ReportRun::SelectSections(ticked);
}

void frm83Reports::SetTicks(bool ticked)
{
    for (QCheckBox* box : m_chkSection)
        box->setChecked(ticked);
}

void frm83Reports::cmdSelect_Click() { SetTicks(true); }

void frm83Reports::cmdClear_Click() { SetTicks(false); }

void frm83Reports::cmdPreview_Click()
{
    SelectSections();
    RunReport(ReportScreenRun::To::Preview, *m_runBar, [] { ReportRun::PreviewSelectedSections(); });
}

void frm83Reports::cmdPrint_Click()
{
    SelectSections();
    RunReport(ReportScreenRun::To::Elsewhere, *m_runBar, [] { ReportRun::PrintSelectedSections(); });
}

void frm83Reports::cmdSave_Click()
{
    SelectSections();
    const std::string fileName = GetRtfFileName();
    if (fileName.empty()) return; // cancelled
    RunReport(ReportScreenRun::To::Elsewhere, *m_runBar, [&] { ReportRun::SaveSelectedSections(fileName); });
}

void frm83Reports::cmdPrinterSetup_Click()
{
    platform::TheDesktop().PrinterSetup();
    FollowPaper();
}
