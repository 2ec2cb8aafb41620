#pragma once

#include <QMainWindow>
#include <QPointer>

#include <map>
#include <string>

class QAction;
class QMenu;
class frm01Start;
class frm02Tabs;

/// The main window: menus, the client area with start form, worksheet and tab strips, the start and the exit
/// of the session.
class frm0_VEXA : public QMainWindow
{
    Q_OBJECT

public:
    frm0_VEXA();
    ~frm0_VEXA() override;

    /// The start of the session: log, size, the file of the command line (its whole text is the path) or the
    /// start form. An error stops no step; its number goes to the logs at the end.
    void MDIForm_Load(const std::string& commandLine);
    /// Shows the window in the size that the screen told at start.
    void ShowAsFitted();

    /// Enables Save As and the Section and Worksheet menus.
    void InitializeMenus();
    void DisableFileMenus();
    /// The program, the open file's name in brackets, and this name.
    void SetTitleBar(const std::string& name);
    /// Checks that entry and no other. Entries 1 and 8 of Section and 6 of Worksheet are hidden.
    void SectionMenu_Check(int section);
    void WorksheetMenu_Check(int worksheet);
    void EnableEditMenu();
    void DisableEditMenu();
    /// Captions of the Worksheet entries from 2 on; those that the section has not are hidden.
    void SetWorksheetMenu(int section);

    void LoadStartForm();
    void UnloadStartForm();
    void SetStartBackground();
    void InitializeTabs();
    void UnloadTabs();

    /// What start form, worksheets and strips stand on.
    QWidget* ClientArea() { return m_client; }
    /// The height of the tab strips in pixels.
    int StripHeight();
    frm01Start* StartForm() { return m_start; }
    /// Nothing while no file is shown.
    frm02Tabs* Tabs() { return m_tabs; }
    /// Opens the help file at a topic, or at its contents for topic 0.
    void ShowHelp(int topic);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildMenus();
    void BuildFileMenu();
    void BuildStripMenus();
    void BuildEditAndHelpMenus();
    void BuildShortcuts();
    QMenu* AddMenu(const char* name, const char* caption);
    QAction* AddEntry(QMenu* menu, int number, const char* caption, void (frm0_VEXA::*click)(int));
    QAction* Entry(const char* menu, int number);
    void Check(const char* menu, int last, int checked);
    void ShowChecks();

    void mnuFile_Click(int number);
    void mnuSection_Click(int number);
    void mnuWorksheet_Click(int number);
    void mnuEdit_Click(int number);
    void mnuHelp_Click(int number);
    void HelpKey_Press(int topic);
    void ShowAbout();
    int CurrentHelpContextID() const;
    void StepTab(bool section, int step);

    void Fit();
    void frm0_VEXA_Resize();
    void PlaceTabs();
    /// False: the user stays.
    bool MDIForm_Unload();

    QWidget* m_client = nullptr;
    frm01Start* m_start = nullptr;
    frm02Tabs* m_tabs = nullptr;
    QMenu* m_mnuFile = nullptr;
    QMenu* m_mnuSection = nullptr;
    QMenu* m_mnuWorksheet = nullptr;
    QMenu* m_mnuEdit = nullptr;
    QMenu* m_mnuHelp = nullptr;
    int m_checkedSection = 0;
    int m_checkedWorksheet = 0;
    QPointer<QWidget> m_activeControl; // the last control that had the focus, menus apart
    std::string m_helpFile;
    bool m_maximised = false;
    bool m_leavesUnsaved = false; // what the user said about a worksheet that cannot be saved
    bool m_unloaded = false;
};

/// The main window of the program; one must stand.
frm0_VEXA& MainWindow();
