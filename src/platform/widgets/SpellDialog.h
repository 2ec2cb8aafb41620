#pragma once

#include "platform/spelling/Speller.h"

#include <QDialog>

class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTextEdit;

namespace platform {

class SpellWalk;

/// The dialog of a spell check: the wrong word in its sentence, suggestions, and what to do about it. It is
/// accepted when the text is through.
class SpellDialog : public QDialog
{
    Q_OBJECT

public:
    /// The walk stands at a wrong word and outlives the dialog.
    SpellDialog(SpellWalk& walk, QWidget* parent);

private:
    void BuildControls();
    QLayout* BuildWord();
    QLayout* BuildChange();
    QLabel* Caption(const char* text, QWidget* control);
    QPushButton* Button(const char* name, const char* text);
    void ConnectHandlers();

    void ShowWord();
    void ShowSentence();
    void FillSuggestions();
    /// On to the next wrong word; at the end of the text the dialog is done.
    void GoOn();

    void cmdIgnore_Click();
    void cmdIgnoreAll_Click();
    void cmdAdd_Click();
    void cmdChange_Click();
    void cmdChangeAll_Click();
    void cmdUndo_Click();
    void lstSuggestions_Click();
    /// A change needs a text, and another one than the word.
    void txtChangeTo_Change();

    SpellWalk& m_walk;
    QTextEdit* m_txtSentence = nullptr;
    QLineEdit* m_txtChangeTo = nullptr;
    QListWidget* m_lstSuggestions = nullptr;
    QPushButton* m_cmdIgnore = nullptr;
    QPushButton* m_cmdIgnoreAll = nullptr;
    QPushButton* m_cmdAdd = nullptr;
    QPushButton* m_cmdChange = nullptr;
    QPushButton* m_cmdChangeAll = nullptr;
    QPushButton* m_cmdUndo = nullptr;
    QPushButton* m_cmdCancel = nullptr;
    bool m_toldNotWritten = false;
};

/// Checks the whole text of an editor from its start, with the dialog for each wrong word, and says when it
/// is through; the caret is then where it was. After Cancel it stays at the word. Without a dictionary it
/// only says so. The editor's SpellHighlighter follows what was ignored or added.
void CheckSpelling(QTextEdit& editor, Speller& speller = TheSpeller());

} // namespace platform
