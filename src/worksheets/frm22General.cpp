#include "worksheets/frm22General.h"

#include "platform/base/Clock.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/g0Items.h"
#include "session/g2Situation.h"
#include "worksheets/WorksheetParts.h"
#include "worksheets/frm0_VEXA.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include <string>

namespace Theme = platform::Theme;
using platform::EntryBox;

namespace {

enum Item : Long { CurrentDate = 222, CurrentTime = 223 };

/// Which keys lead on to the next box. The time stands to the right of its date, on one line.
enum class Onward { EnterOrDown, EnterOrRight, None };
enum class OnEntry { Caret, SelectWhole };
enum class Place { Below, NewGroup, SameLine };

struct Field
{
    const char* control;
    const char* label; // of its line; empty: the second box of the line
    const char* name;  // what a screen reader says, where the label alone does not tell; else empty
    Long item;
    Onward onward;
    OnEntry onEntry;
    Place place;
    int characters; // the most that the box grows to
};

constexpr auto kDown = Onward::EnterOrDown;
constexpr auto kRight = Onward::EnterOrRight;
constexpr auto kCaret = OnEntry::Caret;
constexpr auto kWhole = OnEntry::SelectWhole;
constexpr int kLong = 160; // grows with the window

// In the order in which Enter moves through them.
// clang-format off
constexpr std::array<Field, 12> kFields = {{
    {"txtVEXA", "VEXA #", "", 221, kDown, kWhole, Place::Below, 30},
    {"txtName", "Fire Name", "", g0Items::FireName, kDown, kCaret, Place::Below, kLong},
    {"txtIncident", "Incident Number", "", 52, kDown, kCaret, Place::Below, 30},
    {"txtStartDate", "Start Date / Time", "Start Date", 61, kRight, kCaret, Place::NewGroup, 14},
    {"txtStartTime", "", "Start Time", 62, kDown, kWhole, Place::SameLine, 10},
    {"txtCurrentDate", "Current Date / Time", "Current Date", Item::CurrentDate, kRight, kCaret, Place::Below, 14},
    {"txtCurrentTime", "", "Current Time", Item::CurrentTime, kDown, kWhole, Place::SameLine, 10},
    {"txtJurisdiction", "Jurisdiction(s)", "", 53, kDown, kCaret, Place::NewGroup, kLong},
    {"txtArea", "Geographic Area", "", 55, kDown, kCaret, Place::Below, kLong},
    {"txtUnit", "Administrative Unit", "", 54, kDown, kCaret, Place::Below, kLong},
    {"txtCode", "Accounting or Management Code", "", 217, kDown, kCaret, Place::NewGroup, kLong},
    {"txtFireSize", "Current Size", "", 57, Onward::None, kCaret, Place::Below, 14},
}};
// clang-format on

QList<Qt::Key> KeysOf(Onward onward)
{
    switch (onward) {
    case Onward::EnterOrDown: return {Qt::Key_Return, Qt::Key_Down};
    case Onward::EnterOrRight: return {Qt::Key_Return, Qt::Key_Right};
    case Onward::None: break;
    }
    return {};
}

EntryBox* MakeBox(const Field& field, QWidget* parent)
{
    auto* box = new EntryBox(QString::fromUtf8(field.control), parent);
    box->setAccessibleName(QString::fromUtf8(field.name));
    box->setMaximumWidth(field.characters * box->fontMetrics().averageCharWidth());
    if (field.onEntry == OnEntry::SelectWhole) box->SelectWholeOnEntry();
    return box;
}

bool HasSecondBox(std::size_t field)
{
    return field + 1 < kFields.size() && kFields[field + 1].place == Place::SameLine;
}

/// A line of the form with its label; its boxes are still to come.
QHBoxLayout* AddLine(QGridLayout& grid, const char* text, EntryBox* box, Place place)
{
    // An empty row parts the groups.
    if (place == Place::NewGroup) grid.setRowMinimumHeight(grid.rowCount(), Theme::GroupGap() - Theme::Gap());
    const int row = grid.rowCount();
    auto* label = new QLabel(QString::fromUtf8(text), box->parentWidget());
    label->setBuddy(box);
    grid.addWidget(label, row, 0);
    auto* line = new QHBoxLayout;
    line->setSpacing(Theme::Gap());
    grid.addLayout(line, row, 1);
    return line;
}

/// An empty item becomes this text.
void SetIfEmpty(Long item, const std::string& text)
{
    if (g2Situation::GetItem(item)->Body().empty()) g2Situation::GetItem(item)->SetBody(text);
}

} // namespace

frm22General::frm22General(QWidget* parent) : Worksheet(QStringLiteral("frm22General"), parent) {}

void frm22General::Setup()
{
    BeginSetup(2, "tab22");
    DisplayData();
}

void frm22General::BuildControls()
{
    setWindowTitle(QStringLiteral("General Information"));
    setAccessibleName(windowTitle());
    BuildBoxes();
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(windowTitle(), this));
    column->addWidget(WorksheetParts::Instruction(
        QStringLiteral("Standard information about the fire such as name and dates.  "
                       "Enter leads from field to field."),
        this));
    column->addSpacing(Theme::GroupGap() - Theme::Gap());
    column->addLayout(LayOutFields());
    column->addStretch();
    ConnectHandlers();
}

void frm22General::BuildBoxes()
{
    for (std::size_t i = 0; i < kFieldCount; ++i)
        m_boxes[i] = MakeBox(kFields[i], this);
    for (std::size_t i = 0; i + 1 < kFieldCount; ++i) {
        m_boxes[i]->LeadTo(m_boxes[i + 1], KeysOf(kFields[i].onward));
        setTabOrder(m_boxes[i], m_boxes[i + 1]);
    }
}

QGridLayout* frm22General::LayOutFields()
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Theme::GroupGap());
    grid->setVerticalSpacing(Theme::Gap());
    grid->setColumnStretch(1, 1);
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        QHBoxLayout* line = AddLine(*grid, kFields[i].label, m_boxes[i], kFields[i].place);
        line->addWidget(m_boxes[i], 1);
        if (HasSecondBox(i)) line->addWidget(m_boxes[++i], 1);
        if (i + 1 == kFieldCount) line->addWidget(new QLabel(QStringLiteral(" acres"), this));
        line->addStretch();
    }
    return grid;
}

void frm22General::ConnectHandlers()
{
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        const bool name = kFields[i].item == g0Items::FireName;
        connect(m_boxes[i], &QLineEdit::textChanged, this, [this, i, name] {
            platform::Guarded([this, i, name] {
                Box_Change(i);
                if (name) txtName_Change();
            });
        });
    }
}

void frm22General::DisplayData()
{
    const UIMode::Busy busy;
    const platform::LocalTime now = platform::Now();
    SetIfEmpty(Item::CurrentDate, platform::DateText(now));
    SetIfEmpty(Item::CurrentTime, platform::ShortTimeText(now));
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        m_boxes[i]->setText(QString::fromStdString(g2Situation::GetItem(kFields[i].item)->Body()));
        m_boxes[i]->home(false); // a long text shows its beginning
    }
}

void frm22General::Box_Change(std::size_t field)
{
    if (!UIMode::NotBusy()) return;
    g2Situation::GetItem(kFields[field].item)->SetBody(m_boxes[field]->text().toStdString());
}

void frm22General::txtName_Change()
{
    if (!UIMode::NotBusy()) return;
    MainWindow().SetTitleBar(g2Situation::GetItem(g0Items::FireName)->Body());
}
