#include "worksheets/frm33Objectives.h"

#include "model/g41Objectives.h"

frm33Objectives::frm33Objectives(QWidget* parent)
    : ObjectiveWorksheet(QStringLiteral("frm33Objectives"),
                         {"Fire Management Objectives",
                          "You may fill in a narrative for each objective listed below.",
                          "Objective",
                          "Objective Name",
                          "There are no objectives in this file."},
                         parent)
{}

void frm33Objectives::Setup()
{
    BeginSetup(3, "tab33");
    LoadRows(g41Objectives::GetCategoryCollection());
    SelectRow(1);
}
