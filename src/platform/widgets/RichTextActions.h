#pragma once

#include "platform/richtext/RichList.h"

#include <QAction>
#include <QObject>

#include <array>

namespace platform {

class RichTextEdit;

/// The commands on a rich text: captions, shortcuts, and whether they hold where the cursor stands. The bar
/// shows them; their shortcuts work while the text has the focus.
class RichTextActions : public QObject
{
    Q_OBJECT

public:
    enum Command {
        Bold,
        Italic,
        Underline,
        Left,
        Center,
        Right,
        Justify,
        Bullets,
        Numbers,
        MoveOut,
        MoveIn,
        Undo,
        Redo,
        Picture,
        Clear,
        PastePlain,
        Find,
        Count
    };

    explicit RichTextActions(RichTextEdit& edit);

    QAction& Of(Command command) const { return *m_actions[static_cast<std::size_t>(command)]; }

private:
    void Add(Command command, const char* icon, const char* caption, const char* shortcut, bool checkable);
    void AddAll();
    void Connect();
    void On(Command command, std::function<void()> handler);
    void Align(Qt::Alignment alignment);
    void ChoosePicture();
    void ShowCharacters();
    void ShowParagraph();
    void SetChecked(Command command, bool checked);

    RichTextEdit& m_edit;
    std::array<QAction*, Count> m_actions{};
};

} // namespace platform
