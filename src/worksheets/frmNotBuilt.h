#pragma once

#include "worksheets/Worksheet.h"

struct WorksheetEntry;

/// A worksheet that this version does not have yet: its title and nothing else.
class frmNotBuilt : public Worksheet
{
    Q_OBJECT

public:
    /// The entry is one of the table's and outlives the form.
    frmNotBuilt(const WorksheetEntry& entry, QWidget* parent);
    void Setup() override;

protected:
    void BuildControls() override;

private:
    const WorksheetEntry& m_entry;
};
