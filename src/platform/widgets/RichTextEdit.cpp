#include "platform/widgets/RichTextEdit.h"

#include "platform/base/Desktop.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/widgets/RichTextBridge.h"
#include "platform/widgets/RichTextClipboard.h"
#include "platform/widgets/RichTextListGroups.h"
#include "platform/widgets/RichTextLists.h"
#include "platform/widgets/RichTextPictures.h"
#include "platform/widgets/RichTextSelection.h"
#include "platform/widgets/Theme.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>

namespace platform {

namespace {

constexpr Long kIndentStep = 360;     // twips, as far as a list's level
constexpr Long kWidestPicture = 8640; // twips, six inches

QFont TextFont()
{
    const richtext::CharacterFormat look;
    QFont font(QString::fromStdString(look.font));
    font.setPointSizeF(look.halfPoints / 2.0);
    return font;
}

} // namespace

RichTextEdit::RichTextEdit(QWidget* parent) : QTextEdit(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFont(TextFont());
    setTabChangesFocus(false);
    setCursorWidth(std::max(1, Theme::Pixels(20)));
    Show(richtext::PlainDocument({}));
    connect(this, &QTextEdit::textChanged, this, &RichTextEdit::OnTextChanged);
}

int RichTextEdit::SheetMargin() { return Theme::Pixels(480); }

void RichTextEdit::LoadFromMemory(const std::string& body) { Show(richtext::ReadRtf(body)); }

/// A new document, so that nothing of the old one can be undone.
void RichTextEdit::Show(const richtext::RichDocument& text)
{
    m_loading = true;
    auto* document =
        new RichTextDocument(std::make_shared<RichTextPool>(), RichTextFormats::ColorsOf(palette()), this);
    document->setUndoRedoEnabled(false);
    document->setDefaultFont(TextFont());
    document->setDocumentMargin(isReadOnly() ? Theme::Gap() : SheetMargin());
    RichTextBridge::Fill(*document, text);
    document->setUndoRedoEnabled(true);
    document->setModified(false);
    setDocument(document);                // which drops the document that it had
    setTextCursor(QTextCursor(document)); // or the first key would have no look
    m_document = document;
    m_stale = true;
    m_loading = false;
    Q_EMIT undoAvailable(false);
    Q_EMIT redoAvailable(false);
    Q_EMIT currentCharFormatChanged(currentCharFormat());
    Q_EMIT cursorPositionChanged();
}

/// The same text in the colours of another palette. The steps of undo are lost, nothing else.
void RichTextEdit::ShowAgain()
{
    const int position = textCursor().position();
    const int scrolled = verticalScrollBar()->value();
    Show(RichTextBridge::TextOf(*m_document));
    QTextCursor cursor(m_document);
    cursor.setPosition(std::min(position, m_document->characterCount() - 1));
    setTextCursor(cursor);
    verticalScrollBar()->setValue(scrolled);
}

void RichTextEdit::OnTextChanged()
{
    if (m_loading) return;
    m_stale = true;
    Q_EMIT Changed();
}

const std::string& RichTextEdit::SaveToMemory()
{
    if (m_stale) m_saved = richtext::WriteRtf(RichTextBridge::TextOf(*m_document));
    m_stale = false;
    return m_saved;
}

std::string RichTextEdit::Text() const { return richtext::PlainText(RichTextBridge::TextOf(*m_document)); }

bool RichTextEdit::IsEmpty() const { return m_document->isEmpty(); }

void RichTextEdit::Clip(int action)
{
    switch (action) {
    case 1: cut(); break;
    case 2: copy(); break;
    case 3: paste(); break;
    default: break;
    }
}

void RichTextEdit::PastePlain()
{
    const QMimeData* offered = QGuiApplication::clipboard()->mimeData();
    if (offered != nullptr && offered->hasText() && !isReadOnly()) InsertPlain(offered->text());
}

void RichTextEdit::InsertPlain(const QString& text)
{
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    lines.remove(QChar::ObjectReplacementCharacter);
    QTextCursor cursor = textCursor();
    cursor.insertText(lines, currentCharFormat());
    setTextCursor(cursor);
    ensureCursorVisible();
}

void RichTextEdit::Insert(const richtext::RichDocument& text)
{
    const QTextCharFormat typed = currentCharFormat();
    RichTextDocument piece(m_document->SharedPool(), m_document->Colors(), nullptr);
    RichTextBridge::Fill(piece, text);
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.insertFragment(QTextDocumentFragment(&piece));
    RichTextListGroups::CountAll(*m_document);
    cursor.endEditBlock();
    setTextCursor(cursor);
    setCurrentCharFormat(typed);
    ensureCursorVisible();
}

void RichTextEdit::InsertPicture(const QByteArray& bytes)
{
    auto picture = RichTextPictures::Taken(bytes, WidestPicture());
    if (picture == nullptr) {
        Refuse();
    } else {
        Insert(RichTextClipboard::PictureAlone(std::move(picture), CharacterLook()));
    }
}

void RichTextEdit::Refuse() { ShowMessage({RichTextPictures::kRefused}); }

Long RichTextEdit::WidestPicture() const
{
    const Long room = RichTextFormats::Twips(viewport()->width() - 2.0 * SheetMargin());
    return std::clamp(room, 1440, kWidestPicture);
}

richtext::CharacterFormat RichTextEdit::CharacterLook() const
{
    return RichTextFormats::LookOf(currentCharFormat());
}

richtext::ParagraphFormat RichTextEdit::ParagraphLook() const
{
    const QTextBlock block = textCursor().block();
    richtext::ParagraphFormat look = RichTextFormats::LookOf(block.blockFormat());
    look.list = RichTextDocument::ListOf(block);
    look.level = RichTextDocument::LevelOf(block);
    return look;
}

void RichTextEdit::ChangeCharacters(const std::function<void(QTextCharFormat&)>& change)
{
    const QTextCursor cursor = textCursor();
    if (cursor.hasSelection()) RichTextSelection::ChangeCharacters(cursor, change);
    QTextCharFormat typed = currentCharFormat();
    change(typed);
    if (!cursor.hasSelection()) setCurrentCharFormat(typed);
    Q_EMIT currentCharFormatChanged(typed);
}

void RichTextEdit::ChangeParagraphs(const std::function<void(QTextBlockFormat&)>& change)
{
    RichTextSelection::ChangeParagraphs(textCursor(), change);
    Q_EMIT cursorPositionChanged();
}

void RichTextEdit::ClearFormatting()
{
    QTextCursor cursor = textCursor();
    QTextCursor selection = cursor;
    if (!selection.hasSelection()) selection.select(QTextCursor::BlockUnderCursor);
    cursor.beginEditBlock();
    RichTextLists::Remove(*m_document, cursor);
    RichTextSelection::ChangeParagraphs(cursor, [](QTextBlockFormat& format) {
        const QVariant filler = format.property(RichTextFormats::Filler);
        format = QTextBlockFormat();
        format.setProperty(RichTextFormats::Filler, filler);
    });
    RichTextSelection::ChangeCharacters(selection, [](QTextCharFormat& format) {
        if (!format.isImageFormat()) format = QTextCharFormat();
    });
    cursor.endEditBlock();
    if (!textCursor().hasSelection()) setCurrentCharFormat(QTextCharFormat());
    Q_EMIT currentCharFormatChanged(currentCharFormat());
    Q_EMIT cursorPositionChanged();
}

void RichTextEdit::MoveIn(Long step)
{
    if (RichTextLists::AllAreItems(textCursor())) {
        RichTextLists::MoveLevel(*m_document, textCursor(), step);
        Q_EMIT cursorPositionChanged();
        return;
    }
    ChangeParagraphs([step](QTextBlockFormat& format) {
        if (format.objectIndex() != -1) return; // an item among paragraphs keeps its level
        richtext::ParagraphFormat look = RichTextFormats::LookOf(format);
        look.indentLeft = std::max(0, look.indentLeft + step * kIndentStep);
        RichTextFormats::SetIndents(format, look);
    });
}

QVariant RichTextEdit::loadResource(int, const QUrl&) { return {}; }

QMimeData* RichTextEdit::createMimeDataFromSelection() const
{
    return new RichTextClipboard::Selection(textCursor().selection(), *m_document);
}

bool RichTextEdit::canInsertFromMimeData(const QMimeData* source) const
{
    return source != nullptr && RichTextClipboard::CanTake(*source);
}

void RichTextEdit::insertFromMimeData(const QMimeData* source)
{
    using Kind = RichTextClipboard::Taken::Kind;
    if (source == nullptr || isReadOnly()) return;
    const auto taken = RichTextClipboard::Take(*source, WidestPicture(), CharacterLook());
    switch (taken.kind) {
    case Kind::Text: InsertPlain(taken.text); break;
    case Kind::Rich: Insert(taken.rich); break;
    case Kind::RefusedPicture: Refuse(); break;
    case Kind::Nothing: break;
    }
}

} // namespace platform
