#include "worksheets/ResourceTypePanel.h"

#include "platform/base/Texts.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/Theme.h"
#include "worksheets/WorksheetPanes.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>

namespace Theme = platform::Theme;
using platform::EntryBox;
using platform::Guarded;

namespace {

const QString kWhyNoOK = QStringLiteral("Fill in both names, the units, and a cost in figures.");

/// The box of the units. Kept: it selects, when it is entered, as many characters as the cost has.
class UnitsBox : public EntryBox
{
public:
    UnitsBox(const QLineEdit& cost, QWidget* parent)
        : EntryBox(QStringLiteral("txtUnits"), parent), m_cost(cost)
    {}

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        EntryBox::focusInEvent(event);
        setSelection(0, static_cast<int>(m_cost.text().size()));
    }

private:
    const QLineEdit& m_cost;
};

QRadioButton* Option(const char* name, const char* caption, QWidget* parent)
{
    auto* option = new QRadioButton(QString::fromUtf8(caption), parent);
    option->setObjectName(QString::fromUtf8(name));
    return option;
}

QLabel* Hint(const char* text, QWidget* parent)
{
    auto* hint = new platform::QuietLabel(QString::fromUtf8(text), parent);
    hint->setWordWrap(false);
    hint->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return hint;
}

} // namespace

ResourceTypePanel::ResourceTypePanel(QWidget* parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("pnlAdd"));
    setAccessibleName(QStringLiteral("New resource"));
    setFrameShape(QFrame::Panel);
    setFrameShadow(QFrame::Raised);
    setLineWidth(2);
    setAutoFillBackground(true);
    BuildBoxes();
    LayOut();
    ConnectHandlers();
    UpdateOKButton();
    hide();
}

void ResourceTypePanel::BuildBoxes()
{
    m_txtResourceName = new EntryBox(QStringLiteral("txtResourceName"), this);
    m_txtShortName = new EntryBox(QStringLiteral("txtShortName"), this);
    m_optTime = Option("optTime", "Per time unit", this);
    m_optItem = Option("optItem", "Per item", this);
    m_optTime->setChecked(true);
    m_txtCost = new EntryBox(QStringLiteral("txtCost"), this);
    m_txtCost->SelectWholeOnEntry();
    m_txtCost->TakeOnly(QStringLiteral("0123456789")); // whole dollars; a pasted text may have cents
    m_txtUnits = new UnitsBox(*m_txtCost, this);
    m_cmdOK = WorksheetPanes::Button("cmdOK", "&OK", this);
    m_cmdCancel = WorksheetPanes::Button("cmdCancel", "&Cancel", this);
    for (QPushButton* button : {m_cmdOK, m_cmdCancel})
        button->setAutoDefault(false); // Enter is OK from every box
}

void ResourceTypePanel::AddBox(QGridLayout& grid, const char* caption, QWidget* box, int columns)
{
    const int row = grid.isEmpty() ? 0 : grid.rowCount();
    auto* label = new QLabel(QString::fromUtf8(caption), this);
    label->setBuddy(box);
    grid.addWidget(label, row, 0);
    grid.addWidget(box, row, 1, 1, columns);
}

void ResourceTypePanel::LayOut()
{
    auto* grid = new QGridLayout(this);
    const int margin = Theme::Margin();
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setSpacing(Theme::Gap());
    AddBox(*grid, "Resource Name", m_txtResourceName, 2);
    AddBox(*grid, "Short Name", m_txtShortName, 2);
    AddBox(*grid, "How is cost measured?", m_optTime);
    grid->addWidget(Hint("Example: Engine cost per day", this), grid->rowCount() - 1, 2);
    grid->addWidget(m_optItem, grid->rowCount(), 1);
    grid->addWidget(Hint("Example: Retardant cost per load", this), grid->rowCount() - 1, 2);
    AddBox(*grid, "Units", m_txtUnits);
    grid->addWidget(Hint("(hours, shifts, days, loads, etc.)", this), grid->rowCount() - 1, 2);
    AddBox(*grid, "Cost per Unit   $", m_txtCost);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdOK);
    buttons->addWidget(m_cmdCancel);
    grid->addLayout(buttons, grid->rowCount(), 0, 1, 3);
    QWidget* before = m_txtResourceName;
    for (QWidget* next :
         QList<QWidget*>{m_txtShortName, m_optTime, m_optItem, m_txtUnits, m_txtCost, m_cmdOK, m_cmdCancel}) {
        setTabOrder(before, next);
        before = next;
    }
}

void ResourceTypePanel::ConnectHandlers()
{
    const auto update = [this] { Guarded([this] { UpdateOKButton(); }); };
    for (EntryBox* box : {m_txtResourceName, m_txtShortName, m_txtUnits, m_txtCost})
        connect(box, &QLineEdit::textChanged, this, update);
    for (QRadioButton* option : {m_optTime, m_optItem})
        connect(option, &QRadioButton::toggled, this, update);
    connect(m_cmdOK, &QPushButton::clicked, this, &ResourceTypePanel::OK);
    connect(m_cmdCancel, &QPushButton::clicked, this, &ResourceTypePanel::Cancel);
}

void ResourceTypePanel::Open()
{
    resize(sizeHint());
    parentWidget()->resize(parentWidget()->size().expandedTo(size())); // with a large font it is the higher
    const QSize room = parentWidget()->size() - size();
    move(std::min(width() / 2, std::max(0, room.width())),
         std::min(height() / 2, std::max(0, room.height())));
    show();
    raise();
    m_txtResourceName->setFocus();
}

ResourceTypePanel::Entry ResourceTypePanel::Typed() const
{
    // Kept: the cost is read as far as it is plain digits, so a pasted "1,200" is 1.
    return {m_txtResourceName->text().toStdString(),
            m_txtShortName->text().toStdString(),
            m_optTime->isChecked() ? "time" : "item",
            m_txtUnits->text().toStdString(),
            platform::Val(m_txtCost->text().toStdString())};
}

void ResourceTypePanel::UpdateOKButton()
{
    bool filled = platform::IsNumeric(m_txtCost->text().toStdString());
    for (const EntryBox* box : {m_txtResourceName, m_txtShortName, m_txtUnits})
        filled = filled && !box->text().isEmpty();
    m_cmdOK->setEnabled(filled);
    m_cmdOK->setToolTip(filled ? QString() : kWhyNoOK);
}

void ResourceTypePanel::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape: Q_EMIT Cancel(); break;
    case Qt::Key_Return:
    case Qt::Key_Enter: m_cmdOK->click(); break; // nothing while it is disabled
    default: QFrame::keyPressEvent(event);
    }
}
