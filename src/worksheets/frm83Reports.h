#pragma once

#include "worksheets/Worksheet.h"

#include <array>

class QCheckBox;
class QGridLayout;
class QPushButton;
class ReportRunBar;

/// The sections of the report and what is done with them: shown in the preview, printed, written to a rich
/// text file. All are ticked at each visit; the ticks are kept nowhere.
class frm83Reports : public Worksheet
{
    Q_OBJECT

public:
    explicit frm83Reports(QWidget* parent);

    void Setup() override;

protected:
    void BuildControls() override;

private:
    static constexpr std::size_t kSections = 10;

    QWidget* BuildSections();
    QWidget* BuildCommands();
    /// A button of the commands with a sentence that says what it does.
    QPushButton* AddCommand(QGridLayout& grid, const char* name, const char* caption, const char* sentence);
    void Connect(QPushButton* button, void (frm83Reports::*handler)());

    /// Before every command that produces a report.
    void SelectSections();
    void SetTicks(bool ticked);
    void cmdSelect_Click();
    void cmdClear_Click();
    void cmdPreview_Click();
    void cmdPrint_Click();
    void cmdSave_Click();
    void cmdPrinterSetup_Click();

    std::array<QCheckBox*, kSections> m_chkSection{}; // sections 1 to 10
    ReportRunBar* m_runBar = nullptr;
};
