#pragma once

#include "platform/base/LateText.h"
#include "platform/widgets/RichTextEditor.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <string>

class QPushButton;

/// The narrative of a worksheet: `txtBody`, its bar, and `cmdSpellcheck` below it. What the user changes goes
/// to the object whose text is shown, as a text that is made when it is first read, and at the latest before
/// another one is shown or the form goes.
class RichBody : public QWidget
{
    Q_OBJECT

public:
    using Writer = std::function<void(platform::LateText::Maker)>;

    RichBody(const QString& accessibleName, platform::RichTextEditor::Parts parts, QWidget* parent);
    ~RichBody() override;

    /// Shows a stored body; every change by the user, while not busy, goes to the writer.
    void Show(const std::string& body, Writer writer);
    /// Empty and disabled: there is no object to write for. The reason is its tool tip.
    void ShowNothing(const QString& reason);

    platform::RichTextEdit& Body() const { return m_editor->Body(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Draft;

    void ConnectHandlers();
    /// Puts the text of the draft aside, ahead of a text that is to be shown.
    void Settle();
    void txtBody_Change();
    void cmdSpellcheck_Click();

    platform::RichTextEditor* m_editor = nullptr;
    QPushButton* m_cmdSpellcheck = nullptr;
    Writer m_writer;
    std::shared_ptr<Draft> m_draft;
    bool m_checksSpelling = false;
};
