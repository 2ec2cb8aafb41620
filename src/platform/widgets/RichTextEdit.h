#pragma once

#include "platform/richtext/CharacterFormat.h"
#include "platform/richtext/ParagraphFormat.h"
#include "platform/richtext/RichDocument.h"
#include "platform/widgets/RichTextDocument.h"

#include <QTextEdit>

#include <functional>
#include <string>

namespace platform {

/// The rich text control: the sheet that one writes on. What it costs to type does not grow with the text;
/// the stored form is made only when it is asked for.
class RichTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit RichTextEdit(QWidget* parent = nullptr);

    /// Shows a stored body, rich or plain. No step of undo, and no Changed.
    void LoadFromMemory(const std::string& body);
    /// The text in the form in which bodies are stored. Made at the first call after a change.
    const std::string& SaveToMemory();
    /// The text alone, lines ended by a line feed.
    std::string Text() const;
    bool IsEmpty() const;
    /// 1 cut, 2 copy, 3 paste.
    void Clip(int action);
    void PastePlain();

    /// Puts a rich text in place of the selection; what is typed next looks as before. One step of undo.
    void Insert(const richtext::RichDocument& text);
    /// Puts a PNG or JPEG picture in place of the selection; says so when it is refused.
    void InsertPicture(const QByteArray& bytes);

    RichTextDocument& Document() { return *m_document; }
    const RichTextDocument& Document() const { return *m_document; }
    /// The look of what is typed next.
    richtext::CharacterFormat CharacterLook() const;
    /// The look of the cursor's paragraph; its list is the document's number for it.
    richtext::ParagraphFormat ParagraphLook() const;

    /// Changes the look of the selected characters, or of what is typed next.
    void ChangeCharacters(const std::function<void(QTextCharFormat&)>& change);
    /// Changes the selected paragraphs' looks.
    void ChangeParagraphs(const std::function<void(QTextBlockFormat&)>& change);
    /// Takes every look away from the selection, or from the cursor's paragraph: plain text remains.
    void ClearFormatting();
    /// Moves items of lists a level, other paragraphs a step, further in or out.
    void MoveIn(Long step);

    /// The room beside the text on the sheet, pixels.
    static int SheetMargin();

Q_SIGNALS:
    /// The user changed the text or its look. Nothing has been computed yet.
    void Changed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    QVariant loadResource(int type, const QUrl& name) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void Show(const richtext::RichDocument& text);
    void ShowAgain();
    void OnTextChanged();
    void InsertPlain(const QString& text);
    void Refuse();
    Long WidestPicture() const;
    void PlaceSheet();
    bool LeavesText(const QKeyEvent& event);
    bool ListKey(const QKeyEvent& event);
    bool EnterKey();
    bool BackspaceKey();
    bool TabKey(Long step);

    RichTextDocument* m_document = nullptr;
    std::string m_saved; // the stored form, unless stale
    bool m_stale = true;
    bool m_loading = false;
};

} // namespace platform
