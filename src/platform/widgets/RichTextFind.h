#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace platform {

class RichTextEdit;

/// The find bar under a text: finds while one types, Return the next place, Shift+Return the one before,
/// Escape back to the text. Small and capital letters count alike.
class RichTextFind : public QWidget
{
    Q_OBJECT

public:
    RichTextFind(RichTextEdit& edit, QWidget* parent);

    /// Shows the bar; a selected word is looked for.
    void Open();
    void FindNext();
    void FindPrevious();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Close();
    void Find(int from, bool backward);

    RichTextEdit& m_edit;
    QLineEdit* m_text = nullptr;
    QLabel* m_result = nullptr;
};

} // namespace platform
