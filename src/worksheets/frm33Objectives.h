#pragma once

#include "worksheets/ObjectiveWorksheet.h"

/// The categories of the objectives, to be named and described; none is added or deleted.
class frm33Objectives : public ObjectiveWorksheet
{
    Q_OBJECT

public:
    explicit frm33Objectives(QWidget* parent);

    void Setup() override;
};
