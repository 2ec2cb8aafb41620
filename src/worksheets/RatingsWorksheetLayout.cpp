// How a worksheet of ratings is laid out, and which control has which handler.
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/QuietLabel.h"
#include "worksheets/AlternativeList.h"
#include "worksheets/RatingsWorksheet.h"
#include "worksheets/ValueLine.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"

#include <QLabel>
#include <QSplitter>

using platform::Grid;
using platform::ListBox;

namespace {

// The bars take what width they can get, and short names need little.
constexpr int kListShare = 270;
constexpr int kRatingsShare = 730;

} // namespace

void RatingsWorksheet::BuildControls()
{
    setWindowTitle(QString::fromUtf8(m_texts.caption));
    setAccessibleName(QString::fromUtf8(m_texts.title));
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(QString::fromUtf8(m_texts.title), this));
    QWidget* list = BuildList(); // ahead of the ratings: in this order the Tab key leads through them
    QWidget* panes = WorksheetPanes::SideBySide(list, BuildRatings(), this);
    static_cast<QSplitter*>(panes)->setSizes({kListShare, kRatingsShare});
    column->addWidget(panes, 1);
    ConnectHandlers();
    ConnectGrid();
}

QWidget* RatingsWorksheet::BuildList()
{
    auto* pane = new QWidget(this);
    auto* title = new QLabel(QString::fromUtf8(m_texts.listTitle), pane);
    m_lstObjectives = new ListBox(QStringLiteral("lstObjectives"), title->text().trimmed(), pane);
    title->setBuddy(m_lstObjectives);
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addWidget(title);
    column->addWidget(WorksheetParts::Instruction(QString::fromUtf8(m_texts.listHint), pane));
    column->addWidget(m_lstObjectives, 1);
    return pane;
}

QWidget* RatingsWorksheet::BuildRatings()
{
    auto* pane = new QWidget(this);
    const ValueLine criterion =
        MakeValueLine(QString::fromUtf8(m_texts.criterion), QStringLiteral("lblCriterion"), pane);
    m_lblCriterion = criterion.value;
    QVBoxLayout* column = WorksheetPanes::Column(pane);
    column->addLayout(criterion.layout);
    BuildAboveGrid(*column); // ahead of the grid, likewise
    m_grid1 = new Grid(QStringLiteral("Grid1"), QStringLiteral("Ratings of the outcomes"), pane);
    m_lblNoAlternatives = new platform::QuietLabel(NoAlternativesYet(), pane);
    column->addWidget(WorksheetParts::Instruction(QString::fromUtf8(m_texts.gridHint), pane));
    column->addWidget(m_grid1, 2);
    column->addWidget(m_lblNoAlternatives);
    BuildBelowGrid(*column);
    return pane;
}

void RatingsWorksheet::ConnectHandlers()
{
    using platform::Guarded;
    connect(m_lstObjectives, &ListBox::Click, this, [this] { Guarded([this] { lstObjectives_Click(); }); });
    connect(m_grid1, &Grid::EnterCell, this, [this] { Guarded([this] { Grid1_EnterCell(); }); });
    connect(m_grid1, &Grid::Click, this, [this] { Guarded([this] { Grid1_Click(); }); });
    connect(m_grid1, &Grid::BeforeEdit, this, [this](Long row, Long column, bool& cancel) {
        Guarded([&] { Grid1_BeforeEdit(row, column, cancel); });
    });
    connect(m_grid1, &Grid::KeyPressEdit, this, [this](const QString& key, bool& drop) {
        Guarded([&] { Grid1_KeyPressEdit(key, drop); });
    });
    connect(m_grid1, &Grid::ChangeEdit, this, [this] { Guarded([this] { Grid1_ChangeEdit(); }); });
    connect(m_grid1, &Grid::AfterEdit, this, [this](Long row, Long column) {
        Guarded([=, this] { Grid1_AfterEdit(row, column); });
    });
}

void RatingsWorksheet::ConnectGrid()
{
    using platform::Guarded;
    connect(m_grid1, &Grid::MouseDown, this, [this](Long row, Long column, float place) {
        Guarded([=, this] { Grid1_MouseDown(row, column, place); });
    });
    connect(m_grid1, &Grid::MouseMove, this, [this](Long row, Long column, float place) {
        Guarded([=, this] { Grid1_MouseMove(row, column, place); });
    });
    connect(m_grid1, &Grid::MouseUp, this, [this](Long row, Long column, float place) {
        Guarded([=, this] { Grid1_MouseUp(row, column, place); });
    });
    connect(
        m_grid1, &Grid::BarStep, this, [this](int steps) { Guarded([=, this] { Grid1_BarStep(steps); }); });
}
