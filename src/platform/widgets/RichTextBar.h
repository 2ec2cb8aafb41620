#pragma once

#include "platform/richtext/CharacterFormat.h"

#include <QWidget>

#include <vector>

class QComboBox;
class QToolButton;

namespace platform {

class RichTextActions;
class RichTextEdit;

/// The buttons of a rich text, in as many lines as the room asks for. Tab leads to the font, the size and the
/// buttons as a whole, the arrow keys from button to button, Escape back to the text.
class RichTextBar : public QWidget
{
    Q_OBJECT

public:
    RichTextBar(RichTextEdit& edit, const RichTextActions& actions, QWidget* parent);

    /// The focus to the first control.
    void Enter();
    /// What the Tab key reaches behind the bar.
    void LeadTo(QWidget& next);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* NewGroup();
    void AddFont(QWidget* group);
    void AddSize(QWidget* group);
    void AddColor(QWidget* group);
    void AddButtons(const RichTextActions& actions, int first, int last);
    QToolButton* AddButton(QWidget* group);
    void MakeStop(QToolButton* button);
    void MoveFocus(QToolButton* from, int step);
    void ShowLook();
    void ApplyFont();
    void ApplySize();
    void ApplyColor(const richtext::Color& color);
    void ChooseColor();

    RichTextEdit& m_edit;
    QComboBox* m_font = nullptr;
    QComboBox* m_size = nullptr;
    std::vector<QToolButton*> m_buttons;
};

} // namespace platform
