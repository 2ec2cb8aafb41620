#include "worksheets/ObjectiveWorksheet.h"

#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "worksheets/RichBody.h"
#include "worksheets/RowKeys.h"
#include "worksheets/SaveOrGoBack.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"

#include <QHBoxLayout>
#include <QLabel>

namespace Theme = platform::Theme;
using platform::GridContents;

namespace {

constexpr Long kName = 0; // the grid's one column
constexpr Long kFirstRow = 1;
constexpr Long kGridWidth = 2700; // twips
const QColor kCategoryGround(192, 255, 192);

bool IsHead(const c41Objective& objective) { return objective.bSafetyRoot() || objective.bCategory(); }

/// What the grid shows of a row; those below a head stand in a little.
std::string CellText(const c41Objective& objective)
{
    return IsHead(objective) ? objective.ItemName() : "    " + objective.ItemName();
}

} // namespace

ObjectiveWorksheet::ObjectiveWorksheet(const QString& name, const Texts& texts, QWidget* parent)
    : Worksheet(name, parent), m_texts(texts)
{}

void ObjectiveWorksheet::SaveChanges()
{
    if (m_current != nullptr) m_current->SaveChanges();
}

void ObjectiveWorksheet::BuildControls()
{
    setWindowTitle(QString::fromUtf8(m_texts.title));
    setAccessibleName(windowTitle());
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(windowTitle(), this));
    QLabel* instructions = WorksheetParts::Instruction(QString::fromUtf8(m_texts.instructions), this);
    instructions->setObjectName(QStringLiteral("lblInstructions"));
    column->addWidget(instructions);
    QWidget* left = BuildRows(); // ahead of the right: in this order the Tab key leads through them
    QWidget* right = BuildDetails();
    column->addWidget(WorksheetPanes::SideBySide(left, right, this), 1);
    ConnectHandlers();
}

QWidget* ObjectiveWorksheet::BuildRows()
{
    auto* side = new QWidget(this);
    m_grid1 = new platform::Grid(QStringLiteral("Grid1"), QString::fromUtf8(m_texts.title), side);
    m_grid1->Fill([this](GridContents& grid) {
        grid.SetCols(kName + 1);
        grid.SetRows(kFirstRow);
        grid.SetFixedRows(kFirstRow);
        grid.SetColWidth(kName, kGridWidth);
        grid.SetText(0, kName, m_texts.header);
    });
    m_grid1->SetStretchCol(kName);
    QVBoxLayout* column = WorksheetPanes::Column(side);
    column->addWidget(m_grid1, 1);
    BuildBelowGrid(*column);
    return side;
}

QWidget* ObjectiveWorksheet::BuildDetails()
{
    auto* side = new QWidget(this);
    QVBoxLayout* column = WorksheetPanes::Column(side);
    column->addLayout(BuildName(side));
    const QString description = QStringLiteral("Description");
    auto* caption = new QLabel(description, side);
    m_body = new RichBody(description, platform::RichTextEditor::Parts::Bar, side);
    caption->setBuddy(&m_body->Body());
    column->addWidget(caption);
    column->addWidget(m_body, 1);
    return side;
}

QHBoxLayout* ObjectiveWorksheet::BuildName(QWidget* parent)
{
    m_lblName = new QLabel(QString::fromUtf8(m_texts.name), parent);
    m_lblName->setObjectName(QStringLiteral("lblName"));
    m_txtName = new platform::EntryBox(QStringLiteral("txtName"), parent);
    new RowKeys(*m_txtName, [this](Long step) { MoveRow(step); });
    m_lblName->setBuddy(m_txtName);
    auto* line = new QHBoxLayout;
    line->setSpacing(Theme::Gap());
    line->addWidget(m_lblName);
    line->addWidget(m_txtName, 1);
    return line;
}

void ObjectiveWorksheet::ConnectHandlers()
{
    using platform::Guarded;
    connect(m_grid1, &platform::Grid::EnterCell, this, [this] { Guarded([this] { Grid1_EnterCell(); }); });
    connect(m_txtName, &QLineEdit::textChanged, this, [this] { Guarded([this] { txtName_Change(); }); });
}

void ObjectiveWorksheet::LoadRows(const Objectives& objectives)
{
    m_grid1->Fill([&](GridContents& grid) {
        grid.SetRows(kFirstRow);
        grid.SetRows(kFirstRow + objectives.Count());
        Long row = kFirstRow;
        for (const Objective& objective : objectives) {
            grid.SetText(row, kName, CellText(*objective));
            grid.SetRowData(row++, objective);
        }
    });
    Long row = kFirstRow;
    for (const Objective& objective : objectives)
        m_grid1->SetCellBackColor(row++, kName, objective->bSafetyRoot() ? kCategoryGround : QColor());
}

void ObjectiveWorksheet::SelectRow(Long row)
{
    m_current.reset();
    if (row < kFirstRow || row >= m_grid1->Rows()) {
        ShowNothing();
        return;
    }
    const UIMode::Busy busy;
    m_grid1->SetRow(row);
    if (m_current == nullptr) ShowRow(); // it was the grid's row already
}

void ObjectiveWorksheet::ShowRow()
{
    const auto objective = m_grid1->RowObject<Objective>(m_grid1->Row());
    if (objective == nullptr) return;
    const UIMode::Busy busy;
    m_current = objective;
    m_txtName->setEnabled(true);
    m_txtName->setToolTip({});
    m_txtName->setText(QString::fromStdString(objective->ItemName()));
    m_txtName->home(false); // a long text shows its beginning
    m_body->Show(objective->Description(),
                 [objective](auto text) { objective->SetDescriptionLater(std::move(text)); });
    RowShown();
}

void ObjectiveWorksheet::ShowNothing()
{
    const UIMode::Busy busy;
    const QString reason = QString::fromUtf8(m_texts.noRows);
    m_txtName->clear();
    m_txtName->setEnabled(false);
    m_txtName->setToolTip(reason);
    m_body->ShowNothing(reason);
}

Long ObjectiveWorksheet::RowOf(const c41Objective& objective) const
{
    for (Long row = kFirstRow; row < m_grid1->Rows(); ++row) {
        if (m_grid1->RowObject<Objective>(row).get() == &objective) return row;
    }
    return 0;
}

void ObjectiveWorksheet::RemoveCurrentRow()
{
    const Long row = RowOf(*m_current);
    m_current.reset(); // ahead of the row, so that nothing saves an object that is gone
    const UIMode::Busy busy;
    m_grid1->RemoveItem(row);
    SelectRow(m_grid1->Row());
}

void ObjectiveWorksheet::MoveRow(Long step)
{
    const Long row = m_grid1->Row() + step;
    if (row >= kFirstRow && row < m_grid1->Rows()) m_grid1->SetRow(row);
}

void ObjectiveWorksheet::Grid1_EnterCell()
{
    if (UIMode::NotBusy()) SaveOrGoBack(*this, [this] { ReturnToCurrentRow(); });
    ShowRow();
}

void ObjectiveWorksheet::ReturnToCurrentRow()
{
    if (m_current != nullptr) SelectRow(RowOf(*m_current));
}

void ObjectiveWorksheet::txtName_Change()
{
    if (!UIMode::NotBusy() || m_current == nullptr) return;
    m_current->SetItemName(m_txtName->text().toStdString());
    m_grid1->SetText(RowOf(*m_current), kName, CellText(*m_current));
}
