#include "worksheets/Worksheet.h"

#include "session/SessionState.h"
#include "session/u91Trace.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm0_VEXA.h"

Worksheet::Worksheet(const QString& name, QWidget* parent) : QWidget(parent) { setObjectName(name); }

void Worksheet::Load()
{
    if (m_loaded) return;
    m_loaded = true;
    u91Trace::TraceLoad(objectName().toStdString());
    BuildControls();
}

void Worksheet::Unload()
{
    if (m_loaded) u91Trace::TraceUnload(objectName().toStdString());
    m_loaded = false;
}

void Worksheet::BeginSetup(int worksheetNumber, const std::string& key)
{
    BeginSetup(worksheetNumber, key, objectName().toStdString() + ".Setup");
}

void Worksheet::BeginSetup(int worksheetNumber, const std::string& key, const std::string& trace)
{
    u91Trace::Trace(trace);
    Load();
    a3VEXAforms::SizeWorksheet(*this);
    MainWindow().EnableEditMenu();
    MainWindow().WorksheetMenu_Check(worksheetNumber);
    gCurrentTab = key;
}
