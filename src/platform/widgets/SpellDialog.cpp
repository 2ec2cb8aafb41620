#include "platform/widgets/SpellDialog.h"

#include "platform/base/Desktop.h"
#include "platform/widgets/AccessibleRoles.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/SpellHighlighter.h"
#include "platform/widgets/SpellMarks.h"
#include "platform/widgets/SpellWalk.h"
#include "platform/widgets/Theme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTextEdit>
#include <QVBoxLayout>

namespace platform {

namespace {

/// With a frame that says that keys go here: what is chosen in it looks the same without the focus.
template <class View> class Framed : public View
{
public:
    using View::View;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        View::paintEvent(event);
        QPainter painter(View::viewport());
        if (View::hasFocus()) Theme::PaintFocusFrame(painter, View::palette(), View::viewport()->rect());
    }
    void focusInEvent(QFocusEvent* event) override
    {
        View::focusInEvent(event);
        View::viewport()->update();
    }
    void focusOutEvent(QFocusEvent* event) override
    {
        View::focusOutEvent(event);
        View::viewport()->update();
    }
};

constexpr int kSentenceLines = 4;
constexpr int kSuggestionLines = 6;
constexpr int kWidth = 64; // characters

QVBoxLayout* Column()
{
    auto* column = new QVBoxLayout;
    column->setSpacing(Theme::Gap() / 2);
    return column;
}

void RefreshMarks(QTextEdit& editor)
{
    for (auto* marks : editor.findChildren<SpellHighlighter*>())
        marks->MarkAgain();
}

} // namespace

SpellDialog::SpellDialog(SpellWalk& walk, QWidget* parent) : QDialog(parent), m_walk(walk)
{
    setObjectName(QStringLiteral("SpellDialog"));
    setWindowTitle(QStringLiteral("Spelling"));
    BuildControls();
    ConnectHandlers();
    ShowWord();
}

// ---- Controls

void SpellDialog::BuildControls()
{
    auto* column = new QVBoxLayout(this);
    const int margin = Theme::Margin();
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(Theme::GroupGap());
    column->addLayout(BuildWord());
    column->addLayout(BuildChange(), 1);
    m_cmdUndo = Button("cmdUndo", "&Undo");
    m_cmdCancel = Button("cmdCancel", "Cancel");
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::Gap());
    row->addWidget(m_cmdUndo);
    row->addStretch();
    row->addWidget(m_cmdCancel);
    column->addLayout(row);
    m_cmdChange->setDefault(true);
    m_txtChangeTo->setFocus();
}

QLayout* SpellDialog::BuildWord()
{
    m_txtSentence = new Framed<QTextEdit>(this);
    m_txtSentence->setObjectName(QStringLiteral("txtSentence"));
    m_txtSentence->setReadOnly(true);
    m_txtSentence->setTabChangesFocus(true);
    m_txtSentence->setMinimumWidth(kWidth * fontMetrics().averageCharWidth());
    m_txtSentence->setFixedHeight(kSentenceLines * fontMetrics().lineSpacing() + 2 * Theme::Gap());
    auto* word = Column();
    word->addWidget(Caption("&Not in dictionary", m_txtSentence));
    word->addWidget(m_txtSentence);
    word->addStretch();
    m_cmdIgnore = Button("cmdIgnore", "&Ignore");
    m_cmdIgnoreAll = Button("cmdIgnoreAll", "I&gnore All");
    m_cmdAdd = Button("cmdAdd", "&Add");
    m_cmdAdd->setToolTip(QStringLiteral("Puts the word into your own dictionary"));
    auto* buttons = Column();
    for (QPushButton* button : {m_cmdIgnore, m_cmdIgnoreAll, m_cmdAdd})
        buttons->addWidget(button);
    buttons->addStretch();
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::Gap());
    row->addLayout(word, 1);
    row->addLayout(buttons);
    return row;
}

QLayout* SpellDialog::BuildChange()
{
    m_txtChangeTo = new QLineEdit(this);
    m_txtChangeTo->setObjectName(QStringLiteral("txtChangeTo"));
    m_lstSuggestions = new Framed<QListWidget>(this);
    m_lstSuggestions->setObjectName(QStringLiteral("lstSuggestions"));
    m_lstSuggestions->setAccessibleName(QStringLiteral("Suggestions"));
    m_lstSuggestions->setMinimumHeight(kSuggestionLines * fontMetrics().lineSpacing());
    auto* texts = Column();
    texts->addWidget(Caption("Change &to", m_txtChangeTo));
    texts->addWidget(m_txtChangeTo);
    texts->addWidget(Caption("&Suggestions", m_lstSuggestions));
    texts->addWidget(m_lstSuggestions, 1);
    m_cmdChange = Button("cmdChange", "&Change");
    m_cmdChangeAll = Button("cmdChangeAll", "Change A&ll");
    auto* buttons = Column();
    buttons->addSpacing(fontMetrics().lineSpacing() + Theme::Gap() / 2); // beside the box, below its caption
    buttons->addWidget(m_cmdChange);
    buttons->addWidget(m_cmdChangeAll);
    buttons->addStretch();
    auto* row = new QHBoxLayout;
    row->setSpacing(Theme::Gap());
    row->addLayout(texts, 1);
    row->addLayout(buttons);
    return row;
}

QLabel* SpellDialog::Caption(const char* text, QWidget* control)
{
    auto* caption = new QLabel(QString::fromUtf8(text), this);
    caption->setBuddy(control);
    return caption;
}

QPushButton* SpellDialog::Button(const char* name, const char* text)
{
    auto* button = new QPushButton(QString::fromUtf8(text), this);
    button->setObjectName(QString::fromUtf8(name));
    button->setAutoDefault(false); // Enter changes the word wherever the focus is
    return button;
}

void SpellDialog::ConnectHandlers()
{
    const auto click = [this](QPushButton* button, void (SpellDialog::*handler)()) {
        connect(button, &QPushButton::clicked, this, [this, handler] {
            Guarded([this, handler] { (this->*handler)(); });
        });
    };
    click(m_cmdIgnore, &SpellDialog::cmdIgnore_Click);
    click(m_cmdIgnoreAll, &SpellDialog::cmdIgnoreAll_Click);
    click(m_cmdAdd, &SpellDialog::cmdAdd_Click);
    click(m_cmdChange, &SpellDialog::cmdChange_Click);
    click(m_cmdChangeAll, &SpellDialog::cmdChangeAll_Click);
    click(m_cmdUndo, &SpellDialog::cmdUndo_Click);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_txtChangeTo, &QLineEdit::textChanged, this, &SpellDialog::txtChangeTo_Change);
    connect(m_lstSuggestions, &QListWidget::currentRowChanged, this, &SpellDialog::lstSuggestions_Click);
    connect(m_lstSuggestions, &QListWidget::itemDoubleClicked, m_cmdChange, &QPushButton::click);
}

// ---- The word

void SpellDialog::ShowWord()
{
    ShowSentence();
    FillSuggestions();
    txtChangeTo_Change();
    if (m_txtChangeTo->hasFocus()) m_txtChangeTo->selectAll();
    m_cmdUndo->setEnabled(m_walk.CanUndo());
    m_cmdUndo->setToolTip(m_walk.CanUndo() ? QString() : QStringLiteral("Nothing has been done yet"));
}

void SpellDialog::ShowSentence()
{
    m_txtSentence->setPlainText(m_walk.Sentence());
    SetAccessibleWords(*m_txtSentence, m_walk.Word());
    QTextCharFormat mark = WrongWordFormat(palette());
    mark.setFontWeight(QFont::Bold);
    QTextCursor word = m_txtSentence->textCursor();
    word.setPosition(m_walk.PlaceInSentence());
    word.movePosition(
        QTextCursor::NextCharacter, QTextCursor::KeepAnchor, static_cast<int>(m_walk.Word().size()));
    word.mergeCharFormat(mark);
    word.clearSelection();
    m_txtSentence->setTextCursor(word);
    m_txtSentence->ensureCursorVisible();
}

void SpellDialog::FillSuggestions()
{
    const QSignalBlocker filling(m_lstSuggestions);
    m_lstSuggestions->clear();
    m_lstSuggestions->addItems(m_walk.Suggestions());
    const bool some = m_lstSuggestions->count() > 0;
    m_lstSuggestions->setEnabled(some);
    if (some) {
        m_lstSuggestions->setCurrentRow(0);
    } else {
        m_lstSuggestions->addItem(QStringLiteral("There are no suggestions."));
    }
    m_txtChangeTo->setText(some ? m_lstSuggestions->item(0)->text() : m_walk.Word());
}

void SpellDialog::GoOn()
{
    if (m_walk.Next()) {
        ShowWord();
    } else {
        accept();
    }
}

// ---- Handlers

void SpellDialog::cmdIgnore_Click()
{
    m_walk.Ignore();
    GoOn();
}

void SpellDialog::cmdIgnoreAll_Click()
{
    m_walk.IgnoreAll();
    GoOn();
}

void SpellDialog::cmdAdd_Click()
{
    if (m_walk.Add() == AddResult::NotWritten && !m_toldNotWritten) {
        m_toldNotWritten = true;
        ShowMessage({"Your own dictionary could not be written, so added words count only until the program "
                     "ends.",
                     "Check that the file Custom.dct in the program folder is not read-only."});
    }
    GoOn();
}

void SpellDialog::cmdChange_Click()
{
    m_walk.Change(m_txtChangeTo->text());
    GoOn();
}

void SpellDialog::cmdChangeAll_Click()
{
    m_walk.ChangeAll(m_txtChangeTo->text());
    GoOn();
}

void SpellDialog::cmdUndo_Click()
{
    m_walk.Undo();
    GoOn();
}

void SpellDialog::lstSuggestions_Click()
{
    if (const QListWidgetItem* chosen = m_lstSuggestions->currentItem())
        m_txtChangeTo->setText(chosen->text());
}

void SpellDialog::txtChangeTo_Change()
{
    const QString text = m_txtChangeTo->text();
    const bool changes = !text.isEmpty() && text != m_walk.Word();
    for (QPushButton* button : {m_cmdChange, m_cmdChangeAll}) {
        button->setEnabled(changes);
        button->setToolTip(changes ? QString() : QStringLiteral("Type another word first"));
    }
}

// ----

void CheckSpelling(QTextEdit& editor, Speller& speller)
{
    if (!speller.IsReady()) {
        ShowMessage(Speller::MissingDictionary());
        return;
    }
    const QTextCursor caret = editor.textCursor();
    SpellWalk walk(editor, speller);
    if (walk.Next()) {
        SpellDialog dialog(walk, editor.window());
        const bool through = dialog.exec() == QDialog::Accepted;
        RefreshMarks(editor);
        if (!through) return;
    }
    editor.setTextCursor(caret);
    ShowMessage({"The spelling check is complete."});
}

} // namespace platform
