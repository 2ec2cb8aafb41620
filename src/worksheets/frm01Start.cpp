#include "worksheets/frm01Start.h"

#include "platform/widgets/Application.h"
#include "platform/widgets/FormattedLabel.h"
#include "platform/widgets/Theme.h"
#include "session/SessionState.h"
#include "session/a1VEXA.h"
#include "session/u21Display.h"
#include "session/u91Trace.h"
#include "worksheets/WorksheetParts.h"
#include "worksheets/frm0_VEXA.h"

#include <QPainter>
#include <QPushButton>

namespace Theme = platform::Theme;

namespace {

constexpr const char* kOverview =
    "|CR||BEFORE:90|VEXA Basic 06 assists in preparing a Vexarium (VEXA) for fires that require a "
    "suppression-oriented response.|CR|The program records and organizes information about the fire "
    "situation, "
    "management objectives, and possible strategies.|CR|It then assists with analysis of the alternatives, "
    "comparison to select the best option, and preparing a final report.";
constexpr const char* kStart =
    "To create a new VEXA file,|CR|click the New button.|BEFORE:180||CR|To review or update "
    "an existing VEXA file, click the Open button.";

constexpr int kColumnWidth = 8400; // twips, as all lengths here
constexpr int kButtonHeight = 600;
constexpr int kButtonWidth = 1800;
constexpr double kNoticeSize = 0.9;
constexpr int kLineInsets[] = {15, 30, 75};

void LeaveProgram() { MainWindow().close(); }

/// A panel of the start form: a column without margins of its own.
QVBoxLayout* PanelColumn(QWidget* panel)
{
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::Gap());
    return column;
}

platform::FormattedLabel* Formatted(const QString& name, const char* markup, QWidget* parent)
{
    auto* label = new platform::FormattedLabel(parent);
    label->setObjectName(name);
    label->SetMarkup(markup);
    return label;
}

} // namespace

frm01Start::frm01Start(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("frm01Start"));
    setAccessibleName(QStringLiteral("Start"));
    u91Trace::TraceLoad("frm01Start");
    BuildControls();
}

void frm01Start::Unload() { u91Trace::TraceUnload("frm01Start"); }

void frm01Start::SetBackground()
{
    m_pnlOverview->hide();
    m_pnlButtons->hide();
}

void frm01Start::BuildControls()
{
    auto* across = new QHBoxLayout(this);
    auto* middle = new QWidget(this);
    middle->setMaximumWidth(Theme::Pixels(kColumnWidth));
    auto* column = PanelColumn(middle);
    column->setSpacing(2 * Theme::GroupGap());
    m_pnlOverview = BuildOverview();
    m_pnlButtons = BuildButtons();
    column->addStretch();
    column->addWidget(m_pnlOverview);
    column->addWidget(m_pnlButtons);
    column->addStretch();
    across->addStretch(1);
    across->addWidget(middle, 20);
    across->addStretch(1);
}

QWidget* frm01Start::BuildOverview()
{
    auto* panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("pnlOverview"));
    panel->setAccessibleName(QStringLiteral("Overview"));
    QVBoxLayout* column = PanelColumn(panel);
    QLabel* title = WorksheetParts::Title(QString::fromUtf8(kProgramTitle), panel);
    title->setFont(Theme::TitleFont(title->font())); // twice the step of a worksheet's title
    column->addWidget(title);
    column->addWidget(Formatted(QStringLiteral("flbOverview"), kOverview, panel));
    return panel;
}

QWidget* frm01Start::BuildButtons()
{
    auto* panel = new QWidget(this);
    panel->setObjectName(QStringLiteral("pnlButtons"));
    panel->setAccessibleName(QStringLiteral("Start"));
    QVBoxLayout* column = PanelColumn(panel);
    platform::FormattedLabel* start = Formatted(QStringLiteral("flbStart"), kStart, panel);
    start->SetQuiet(true);
    column->addWidget(start);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Theme::Margin());
    buttons->setContentsMargins(0, Theme::Gap(), 0, Theme::GroupGap());
    buttons->addWidget(AddButton(QStringLiteral("cmdNew"), QStringLiteral("&New"), a1VEXA::NewFile));
    buttons->addWidget(AddButton(QStringLiteral("cmdOpen"), QStringLiteral("&Open"), a1VEXA::OpenFile));
    buttons->addWidget(AddButton(QStringLiteral("cmdExit"), QStringLiteral("E&xit"), LeaveProgram));
    buttons->addStretch();
    column->addLayout(buttons);
    QLabel* notice = WorksheetParts::Instruction(QString::fromStdString(u21Display::LegalNotice()), panel);
    notice->setObjectName(QStringLiteral("lblCopyright"));
    notice->setFont(Theme::Sized(notice->font(), kNoticeSize));
    column->addWidget(notice);
    return panel;
}

QPushButton* frm01Start::AddButton(const QString& name, const QString& caption, void (*act)())
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setMinimumSize(Theme::Pixels(kButtonWidth), Theme::Pixels(kButtonHeight));
    button->setAutoDefault(true);
    // Queued: the command may unload this form, and the button with it.
    const auto click = [name, act] {
        u91Trace::Trace(name.toStdString() + "_Click");
        platform::Guarded(act);
    };
    connect(button, &QPushButton::clicked, &MainWindow(), click, Qt::QueuedConnection);
    return button;
}

void frm01Start::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(Theme::Rule(palette()));
    for (const int inset : kLineInsets) {
        const int x = Theme::Pixels(inset);
        painter.drawLine(x, 0, x, height());
        painter.drawLine(width() - 1 - x, 0, width() - 1 - x, height());
    }
}
