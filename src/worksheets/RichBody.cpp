#include "worksheets/RichBody.h"

#include "platform/base/ProgramFolder.h"
#include "platform/richtext/NormalizeBody.h"
#include "platform/spelling/Speller.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/SpellDialog.h"
#include "platform/widgets/SpellHighlighter.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

std::string StoredForm(platform::RichTextEdit& body)
{
    return platform::richtext::NormalizeBody(body.SaveToMemory(), body.Text());
}

} // namespace

/// The text on its way from the editor to the object that asks for it.
struct RichBody::Draft
{
    platform::RichTextEdit* body = nullptr; // nothing: the text was put aside
    std::string text;
    bool unread = false;

    std::string Read()
    {
        unread = false;
        return body == nullptr ? text : StoredForm(*body);
    }
    void PutAside()
    {
        if (unread && body != nullptr) text = StoredForm(*body);
        body = nullptr;
    }
};

RichBody::RichBody(const QString& accessibleName, platform::RichTextEditor::Parts parts, QWidget* parent)
    : QWidget(parent),
      m_editor(new platform::RichTextEditor(QStringLiteral("txtBody"), accessibleName, parts, this)),
      m_cmdSpellcheck(new QPushButton(QStringLiteral("Spellcheck"), this))
{
    platform::TheSpeller().SetUserDictionary(platform::InProgramFolder("Custom.dct"));
    m_cmdSpellcheck->setObjectName(QStringLiteral("cmdSpellcheck"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(platform::Theme::Gap());
    column->addWidget(m_editor, 1);
    column->addWidget(m_cmdSpellcheck, 0, Qt::AlignLeft);
    ConnectHandlers();
}

RichBody::~RichBody() { Settle(); }

void RichBody::ConnectHandlers()
{
    using platform::Guarded;
    connect(
        &Body(), &platform::RichTextEdit::Changed, this, [this] { Guarded([this] { txtBody_Change(); }); });
    connect(
        m_cmdSpellcheck, &QPushButton::clicked, this, [this] { Guarded([this] { cmdSpellcheck_Click(); }); });
    Body().installEventFilter(this);
}

void RichBody::Show(const std::string& body, Writer writer)
{
    Settle();
    m_writer = std::move(writer);
    setEnabled(true);
    setToolTip({});
    Body().LoadFromMemory(body);
}

void RichBody::ShowNothing(const QString& reason)
{
    Show({}, nullptr);
    setEnabled(false);
    setToolTip(reason);
}

void RichBody::Settle()
{
    if (m_draft != nullptr) m_draft->PutAside();
    m_draft.reset();
}

/// Only notes that there is something to read: making the text at every key would let long texts crawl.
void RichBody::txtBody_Change()
{
    if (!UIMode::NotBusy() || !m_writer) return;
    if (m_draft == nullptr) m_draft = std::make_shared<Draft>(Draft{&Body(), {}});
    m_draft->unread = true;
    m_writer([draft = m_draft] { return draft->Read(); });
}

void RichBody::cmdSpellcheck_Click() { platform::CheckSpelling(Body()); }

/// Wrong words are marked from the first time on that one writes here: to look at a text costs nothing.
bool RichBody::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &Body() && event->type() == QEvent::FocusIn && !m_checksSpelling) {
        m_checksSpelling = true;
        new platform::SpellHighlighter(Body(), platform::TheSpeller());
    }
    return QWidget::eventFilter(watched, event);
}
