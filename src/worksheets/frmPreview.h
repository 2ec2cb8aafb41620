#pragma once

#include <QMainWindow>

class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class ReportRunBar;
namespace platform {
class PageView;
}

/// The preview of the report: the pages of the print control, which stays when the window goes. Made on first
/// use, gone when it is closed, and not modal: the worksheets go on beside it.
class frmPreview : public QMainWindow
{
    Q_OBJECT

public:
    ~frmPreview() override;

    /// The window that stands, or nothing.
    static frmPreview* Loaded();
    /// Shows the pages in the window, made where there is none, on page 1 at page width.
    static void Display();
    /// Closes the window, if it stands.
    static void Unload();

    /// The report is made anew: what is shown stays until ShowPages or Display.
    void Freeze();
    /// Shows the pages of the print control, at the place that was shown.
    void ShowPages();
    /// The report that is shown has more pages.
    void PagesAdded();
    ReportRunBar& RunBar() { return *m_runBar; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    frmPreview();
    void Form_Load();
    void BuildControls();
    QWidget* BuildCommands();
    QWidget* BuildPages();
    QWidget* BuildZoom();
    QWidget* BuildFind();
    void ConnectHandlers();
    void BuildShortcuts();
    QPushButton*
    AddCommand(QWidget* group, const char* name, const char* caption, void (frmPreview::*handler)());

    void cmdSave_Click();
    void cmdPrintPage_Click();
    void cmdPrintReport_Click();
    void cmdClose_Click();

    /// What stands where there are no pages.
    void SetSentence();
    void txtPage_Return();
    void ShowPageNumber();
    void ShowZoom();
    static void ShowFit(QToolButton& button, bool fits);
    void ShowHits();
    void LeaveFind();

    QWidget* m_VSPrinter1 = nullptr; // the whole pane
    platform::PageView* m_pages = nullptr;
    ReportRunBar* m_runBar = nullptr;
    QPushButton* m_cmdPrintPage = nullptr;
    QLabel* m_lblPage = nullptr;
    QLineEdit* m_txtPage = nullptr;
    QToolButton* m_cmdPreviousPage = nullptr;
    QToolButton* m_cmdNextPage = nullptr;
    QToolButton* m_cmdZoomOut = nullptr;
    QToolButton* m_cmdZoomIn = nullptr;
    QLabel* m_lblZoom = nullptr;
    QToolButton* m_cmdFitWidth = nullptr;
    QToolButton* m_cmdFitPage = nullptr;
    QLineEdit* m_txtFind = nullptr;
    QToolButton* m_cmdFindPrevious = nullptr;
    QToolButton* m_cmdFindNext = nullptr;
    QLabel* m_lblFound = nullptr;
};
