#include "worksheets/frmNotBuilt.h"

#include "worksheets/WorksheetParts.h"
#include "worksheets/WorksheetTable.h"

frmNotBuilt::frmNotBuilt(const WorksheetEntry& entry, QWidget* parent)
    : Worksheet(QString::fromUtf8(entry.form), parent), m_entry(entry)
{}

void frmNotBuilt::Setup() { BeginSetup(m_entry.tab, m_entry.key); }

void frmNotBuilt::BuildControls()
{
    const QString title = QString::fromUtf8(m_entry.title);
    setWindowTitle(title);
    setAccessibleName(title);
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(title, this));
    column->addStretch();
}
