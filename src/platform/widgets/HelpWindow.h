#pragma once

#include <QMainWindow>

#include <memory>

class QAction;
class QHelpLink;
class QLabel;
class QLineEdit;
class QListWidget;
class QTabWidget;
class QToolButton;

namespace platform {

class HelpBrowser;
class HelpFile;

/// The window of the help: contents, index and search on the left, the page on the right. It stands beside
/// the windows of the program, also beside a dialog that keeps all others from the user. It remembers
/// nothing.
class HelpWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit HelpWindow(std::unique_ptr<HelpFile> file);
    ~HelpWindow() override;

    /// Shows a topic in front of all windows, or the contents page for topic 0.
    void ShowTopic(int topic);

private:
    void BuildControls();
    void BuildBar();
    QAction* AddAction(const char* name, const char* text, const char* tip, void (HelpWindow::*handler)());
    QTabWidget* BuildTabs();
    QWidget* BuildIndex(QWidget* parent);
    QWidget* BuildSearch(QWidget* parent);
    QWidget* BuildFindBar();
    QToolButton* FindButton(const char* name, Qt::ArrowType arrow, const char* spoken, bool backward);
    void ConnectHandlers();
    void ConnectIndex();
    void ConnectSearch();
    void BuildShortcuts();

    void Open(const QUrl& page);
    /// In front of the windows that are there, and open to the user beside a dialog.
    void ComeForward();
    /// The page in the title and among the contents.
    void ShowPlace(const QUrl& page);
    void GoBack();
    void GoForward();
    void GoHome();
    void BeginFind();
    void EndFind();
    void FindAgain(bool backward);
    void Search();
    void ShowResults();
    void Escape();

    std::unique_ptr<HelpFile> m_file; // behind all that shows it
    HelpBrowser* m_page = nullptr;
    QTabWidget* m_tabs = nullptr;
    QLineEdit* m_txtIndex = nullptr;
    QLineEdit* m_txtSearch = nullptr;
    QListWidget* m_lstResults = nullptr;
    QLabel* m_lblResults = nullptr;
    QWidget* m_findBar = nullptr;
    QLineEdit* m_txtFind = nullptr;
    QLabel* m_lblFound = nullptr;
    QAction* m_cmdBack = nullptr;
    QAction* m_cmdForward = nullptr;
    bool m_indexed = false; // the search knows the pages
};

} // namespace platform
