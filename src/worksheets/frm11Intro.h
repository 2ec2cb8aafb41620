#pragma once

#include "worksheets/Worksheet.h"

class QLabel;
namespace platform {
class FormattedLabel;
}

/// The first worksheet of every section: what the section is for and what its worksheets do.
class frm11Intro : public Worksheet
{
    Q_OBJECT

public:
    explicit frm11Intro(QWidget* parent);

    /// Shows the introduction of the current section.
    void Setup() override;
    /// Shows the introduction of a section; below 3, also for 1, the Situation section's. The number is the
    /// one whose Section entry is checked. May run again while the form is loaded.
    void Setup(int section);

protected:
    void BuildControls() override;

private:
    QLabel* m_lblTitle = nullptr;
    platform::FormattedLabel* m_flbDescription = nullptr;
};
