#pragma once

#include <QWidget>

namespace platform {

class RichTextActions;
class RichTextBar;
class RichTextEdit;
class RichTextFind;
class RichTextRuler;

/// A page to write on: the bar of buttons, the ruler, the sheet, and the find bar when it is called. The
/// focus of the whole is the sheet's. Alt+F10 leads from the text to the bar, Escape back.
class RichTextEditor : public QWidget
{
    Q_OBJECT

public:
    enum class Parts { Bar, BarAndRuler };

    /// The names are those of the sheet: the control's given name and what a person reads beside it.
    RichTextEditor(const QString& bodyName, const QString& accessibleName, Parts parts, QWidget* parent);

    /// The sheet: the rich text control itself.
    RichTextEdit& Body() const { return *m_body; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Build(Parts parts);
    void AddShortcuts();

    RichTextEdit* m_body = nullptr;
    RichTextActions* m_actions = nullptr;
    RichTextBar* m_bar = nullptr;
    RichTextRuler* m_ruler = nullptr; // nothing without one
    RichTextFind* m_find = nullptr;
};

} // namespace platform
