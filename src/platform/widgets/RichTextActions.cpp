#include "platform/widgets/RichTextActions.h"

#include "platform/base/Desktop.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/RichTextIcons.h"
#include "platform/widgets/RichTextLists.h"
#include "platform/widgets/RichTextPictures.h"

#include <QFile>

namespace platform {

namespace {

using richtext::Alignment;
using richtext::ListKind;

} // namespace

RichTextActions::RichTextActions(RichTextEdit& edit) : QObject(&edit), m_edit(edit)
{
    AddAll();
    Connect();
    ShowCharacters();
    ShowParagraph();
}

void RichTextActions::AddAll()
{
    Add(Bold, "bold", "Bold", "Ctrl+B", true);
    Add(Italic, "italic", "Italic", "Ctrl+I", true);
    Add(Underline, "underline", "Underline", "Ctrl+U", true);
    Add(Left, "left", "Align left", "Ctrl+L", true);
    Add(Center, "center", "Center", "Ctrl+E", true);
    Add(Right, "right", "Align right", "Ctrl+R", true);
    Add(Justify, "justify", "Justify", "Ctrl+J", true);
    Add(Bullets, "bullets", "Bullets", "Ctrl+Shift+L", true);
    Add(Numbers, "numbers", "Numbers", "Ctrl+Shift+N", true);
    Add(MoveOut, "less", "Decrease indent", "Ctrl+Shift+M", false);
    Add(MoveIn, "more", "Increase indent", "Ctrl+M", false);
    Add(Undo, "undo", "Undo", "Ctrl+Z", false);
    Add(Redo, "redo", "Redo", "Ctrl+Y", false);
    Add(Picture, "picture", "Insert picture", "Ctrl+Shift+P", false);
    Add(Clear, "clear", "Clear formatting", "Ctrl+Space", false);
    Add(PastePlain, "paste", "Paste as plain text", "Ctrl+Shift+V", false);
    Add(Find, "find", "Find", "Ctrl+F", false);
}

void RichTextActions::Add(
    Command command, const char* icon, const char* caption, const char* shortcut, bool checkable)
{
    const QString text = QString::fromLatin1(caption);
    auto* action = new QAction(RichTextIcons::Of(QString::fromLatin1(icon)), text, this);
    action->setShortcut(QKeySequence(QString::fromLatin1(shortcut)));
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setToolTip(text + QLatin1String(" (") + action->shortcut().toString(QKeySequence::NativeText) +
                       QLatin1Char(')'));
    action->setCheckable(checkable);
    m_edit.addAction(action);
    m_actions[static_cast<std::size_t>(command)] = action;
}

void RichTextActions::On(Command command, std::function<void()> handler)
{
    connect(&Of(command), &QAction::triggered, this, std::move(handler));
}

void RichTextActions::Connect()
{
    RichTextEdit* edit = &m_edit;
    On(Bold, [this] {
        m_edit.ChangeCharacters([on = Of(Bold).isChecked()](QTextCharFormat& format) {
            format.setFontWeight(on ? QFont::Bold : QFont::Normal);
        });
    });
    On(Italic, [this] {
        m_edit.ChangeCharacters(
            [on = Of(Italic).isChecked()](QTextCharFormat& format) { format.setFontItalic(on); });
    });
    On(Underline, [this] {
        m_edit.ChangeCharacters([on = Of(Underline).isChecked()](QTextCharFormat& format) {
            RichTextFormats::SetUnderline(format,
                                          on ? richtext::Underline::Single : richtext::Underline::None);
        });
    });
    On(Left, [this] { Align(Qt::AlignLeft); });
    On(Center, [this] { Align(Qt::AlignHCenter); });
    On(Right, [this] { Align(Qt::AlignRight); });
    On(Justify, [this] { Align(Qt::AlignJustify); });
    for (const Command command : {Bullets, Numbers}) {
        On(command, [this, kind = command == Bullets ? ListKind::Bullet : ListKind::Number] {
            RichTextLists::Toggle(m_edit.Document(), m_edit.textCursor(), kind);
            ShowParagraph();
        });
    }
    On(MoveOut, [this] { m_edit.MoveIn(-1); });
    On(MoveIn, [this] { m_edit.MoveIn(1); });
    On(Undo, [this] { m_edit.undo(); });
    On(Redo, [this] { m_edit.redo(); });
    On(Picture, [this] { ChoosePicture(); });
    On(Clear, [this] { m_edit.ClearFormatting(); });
    On(PastePlain, [this] { m_edit.PastePlain(); });
    Of(Undo).setEnabled(false);
    Of(Redo).setEnabled(false);
    connect(edit, &QTextEdit::undoAvailable, &Of(Undo), &QAction::setEnabled);
    connect(edit, &QTextEdit::redoAvailable, &Of(Redo), &QAction::setEnabled);
    connect(edit, &QTextEdit::currentCharFormatChanged, this, [this] { ShowCharacters(); });
    connect(edit, &QTextEdit::cursorPositionChanged, this, [this] { ShowParagraph(); });
}

void RichTextActions::Align(Qt::Alignment alignment)
{
    m_edit.ChangeParagraphs([alignment](QTextBlockFormat& format) { format.setAlignment(alignment); });
}

void RichTextActions::ChoosePicture()
{
    FileRequest request;
    request.title = "Insert Picture";
    request.filter = "Pictures (*.png, *.jpg)|*.png *.jpg *.jpeg *.PNG *.JPG *.JPEG";
    const auto path = TheDesktop().AskFile(request);
    if (!path) return;
    QFile file(QString::fromStdString(*path));
    const bool fits = file.size() <= qint64(richtext::maxPictureBytes);
    m_edit.InsertPicture(fits && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

/// Costs the same wherever the cursor stands, and touches only what differs.
void RichTextActions::ShowCharacters()
{
    const QTextCharFormat format = m_edit.currentCharFormat();
    SetChecked(Bold, format.fontWeight() > QFont::Medium);
    SetChecked(Italic, format.fontItalic());
    SetChecked(Underline, format.intProperty(RichTextFormats::UnderlineKind) != 0);
}

void RichTextActions::ShowParagraph()
{
    const QTextBlock block = m_edit.textCursor().block();
    const Qt::Alignment alignment = block.blockFormat().alignment();
    const bool center = alignment.testFlag(Qt::AlignHCenter);
    const bool right = alignment.testFlag(Qt::AlignRight);
    const bool justify = alignment.testFlag(Qt::AlignJustify);
    SetChecked(Center, center);
    SetChecked(Right, right);
    SetChecked(Justify, justify);
    SetChecked(Left, !center && !right && !justify);
    const Long list = RichTextDocument::ListOf(block);
    const ListKind kind = list == 0
                              ? ListKind::None
                              : m_edit.Document().Pool().Level(list, RichTextDocument::LevelOf(block)).kind;
    SetChecked(Bullets, kind == ListKind::Bullet);
    SetChecked(Numbers, kind == ListKind::Number);
}

void RichTextActions::SetChecked(Command command, bool checked)
{
    if (Of(command).isChecked() != checked) Of(command).setChecked(checked);
}

} // namespace platform
