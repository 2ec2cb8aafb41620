#include "platform/widgets/RichTextBar.h"

#include "platform/base/Texts.h"
#include "platform/widgets/FlowLayout.h"
#include "platform/widgets/RichTextActions.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/RichTextIcons.h"
#include "platform/widgets/Theme.h"

#include <QColorDialog>
#include <QComboBox>
#include <QCompleter>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace platform {

namespace {

constexpr int kFontCharacters = 22; // average ones, with the arrow
constexpr int kSizeCharacters = 9;

struct NamedColor
{
    const char* name;
    richtext::Color color;
};

const std::array<NamedColor, 9> kColors = {{{"Automatic", {}},
                                            {"Dark red", 0xA80000},
                                            {"Red", 0xE00000},
                                            {"Orange", 0xC05A00},
                                            {"Green", 0x1E7B34},
                                            {"Teal", 0x00707A},
                                            {"Blue", 0x0050C8},
                                            {"Purple", 0x7A2F9E},
                                            {"Gray", 0x606060}}};

/// The families on the machine, and those that bodies name and the machine has a substitute for.
QStringList Families()
{
    QStringList families = QFontDatabase::families();
    for (const char* usual : {"Arial", "Times New Roman", "Courier New"}) {
        const QString name = QString::fromLatin1(usual);
        if (!families.contains(name)) families << name;
    }
    families.sort(Qt::CaseInsensitive);
    return families;
}

QString SizeText(Long halfPoints)
{
    return QString::number(halfPoints / 2) + (halfPoints % 2 != 0 ? QStringLiteral(".5") : QString());
}

/// "cmdAlignLeft" for "Align left".
QString ButtonName(const QString& caption)
{
    QString name = QStringLiteral("cmd");
    for (const QString& word : caption.split(QLatin1Char(' ')))
        name += word.at(0).toUpper() + word.mid(1);
    return name;
}

/// With its place in the list: a text that is not the chosen entry's would count as typed when Tab leaves the
/// box.
void ShowIn(QComboBox& box, const QString& text)
{
    const bool inStep = box.currentIndex() < 0 || box.itemText(box.currentIndex()) == text;
    if (inStep && box.currentText() == text) return;
    box.setCurrentIndex(box.findText(text));
    box.setEditText(text);
}

QLabel* HiddenLabel(const QString& text, QComboBox* box, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setBuddy(box);
    label->hide(); // a screen reader takes a combo box's name from its label
    return label;
}

} // namespace

RichTextBar::RichTextBar(RichTextEdit& edit, const RichTextActions& actions, QWidget* parent)
    : QWidget(parent), m_edit(edit)
{
    setObjectName(QStringLiteral("TXButtonBar1"));
    setAccessibleName(QStringLiteral("Formatting"));
    auto* layout = new FlowLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Theme::Gap() / 2);
    QWidget* font = NewGroup();
    AddFont(font);
    AddSize(font);
    AddButtons(actions, RichTextActions::Bold, RichTextActions::Underline);
    AddColor(m_buttons.back()->parentWidget());
    AddButtons(actions, RichTextActions::Left, RichTextActions::Justify);
    AddButtons(actions, RichTextActions::Bullets, RichTextActions::MoveIn);
    AddButtons(actions, RichTextActions::Undo, RichTextActions::Redo);
    AddButtons(actions, RichTextActions::Picture, RichTextActions::Clear);
    AddButtons(actions, RichTextActions::Find, RichTextActions::Find);
    MakeStop(m_buttons.front());
    connect(&edit, &QTextEdit::currentCharFormatChanged, this, [this] { ShowLook(); });
    ShowLook();
}

QWidget* RichTextBar::NewGroup()
{
    auto* group = new QWidget(this);
    auto* row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    layout()->addWidget(group);
    return group;
}

void RichTextBar::AddFont(QWidget* group)
{
    m_font = new QComboBox(group);
    m_font->setObjectName(QStringLiteral("cboFont"));
    m_font->setEditable(true);
    m_font->setInsertPolicy(QComboBox::NoInsert);
    m_font->addItems(Families());
    m_font->completer()->setCompletionMode(QCompleter::PopupCompletion);
    m_font->setToolTip(QStringLiteral("Font"));
    m_font->lineEdit()->setAccessibleName(QStringLiteral("Font"));
    m_font->setFixedWidth(std::max(Theme::Pixels(2250), kFontCharacters * fontMetrics().averageCharWidth()));
    m_font->installEventFilter(this);
    HiddenLabel(QStringLiteral("Font"), m_font, group);
    group->layout()->addWidget(m_font);
    connect(m_font, &QComboBox::activated, this, [this] { ApplyFont(); });
}

void RichTextBar::AddSize(QWidget* group)
{
    m_size = new QComboBox(group);
    m_size->setObjectName(QStringLiteral("cboSize"));
    m_size->setEditable(true);
    m_size->setInsertPolicy(QComboBox::NoInsert);
    for (const int points : {8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 28, 36, 48, 72})
        m_size->addItem(QString::number(points));
    m_size->setToolTip(QStringLiteral("Font size, points"));
    m_size->lineEdit()->setAccessibleName(QStringLiteral("Font size"));
    m_size->setFixedWidth(std::max(Theme::Pixels(960), kSizeCharacters * fontMetrics().averageCharWidth()));
    m_size->installEventFilter(this);
    HiddenLabel(QStringLiteral("Font size"), m_size, group);
    group->layout()->addWidget(m_size);
    connect(m_size, &QComboBox::activated, this, [this] { ApplySize(); });
}

QToolButton* RichTextBar::AddButton(QWidget* group)
{
    auto* button = new QToolButton(group);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus); // a click leaves the focus in the text
    button->setIconSize(QSize(Theme::Pixels(240), Theme::Pixels(240)));
    button->installEventFilter(this);
    group->layout()->addWidget(button);
    m_buttons.push_back(button);
    return button;
}

void RichTextBar::AddButtons(const RichTextActions& actions, int first, int last)
{
    QWidget* group = NewGroup();
    for (int command = first; command <= last; ++command) {
        QAction& action = actions.Of(static_cast<RichTextActions::Command>(command));
        QToolButton* button = AddButton(group);
        button->setDefaultAction(&action);
        button->setAccessibleName(action.text());
        button->setObjectName(ButtonName(action.text()));
    }
}

void RichTextBar::AddColor(QWidget* group)
{
    QToolButton* button = AddButton(group);
    button->setObjectName(QStringLiteral("cmdColor"));
    button->setIcon(RichTextIcons::Of(QStringLiteral("color")));
    button->setAccessibleName(QStringLiteral("Text color"));
    button->setToolTip(QStringLiteral("Text color"));
    button->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(button);
    for (const NamedColor& named : kColors) {
        const QColor shown = named.color ? QColor(QRgb(*named.color)) : palette().color(QPalette::Text);
        menu->addAction(RichTextIcons::Swatch(shown), QString::fromLatin1(named.name), this, [this, named] {
            ApplyColor(named.color);
        });
    }
    menu->addSeparator();
    menu->addAction(QStringLiteral("More Colors..."), this, [this] { ChooseColor(); });
    button->setMenu(menu);
}

void RichTextBar::Enter() { m_font->setFocus(Qt::ShortcutFocusReason); }

void RichTextBar::LeadTo(QWidget& next)
{
    QToolButton& last = *m_buttons.back();
    const Qt::FocusPolicy policy = last.focusPolicy();
    last.setFocusPolicy(Qt::TabFocus); // else it has no place in the order
    setTabOrder(&last, &next);
    last.setFocusPolicy(policy);
}

/// One button is the stop of the Tab key: the one used last.
void RichTextBar::MakeStop(QToolButton* stop)
{
    for (QToolButton* button : m_buttons)
        button->setFocusPolicy(button == stop ? Qt::TabFocus : Qt::NoFocus);
}

void RichTextBar::MoveFocus(QToolButton* from, int step)
{
    const int count = static_cast<int>(m_buttons.size());
    int at = static_cast<int>(std::find(m_buttons.begin(), m_buttons.end(), from) - m_buttons.begin());
    for (int tried = 0; tried < count; ++tried) {
        at = (at + step + count) % count;
        QToolButton* next = m_buttons[static_cast<std::size_t>(at)];
        if (!next->isEnabled()) continue;
        MakeStop(next);
        next->setFocus(Qt::TabFocusReason);
        return;
    }
}

bool RichTextBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
        ShowLook();
        m_edit.setFocus();
        return true;
    }
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == m_font || watched == m_size) {
        if (enter) watched == m_font ? ApplyFont() : ApplySize();
        return enter;
    }
    auto* button = qobject_cast<QToolButton*>(watched);
    if (button == nullptr) return false;
    if (enter) button->click();
    if (key == Qt::Key_Right || key == Qt::Key_Down) MoveFocus(button, 1);
    if (key == Qt::Key_Left || key == Qt::Key_Up) MoveFocus(button, -1);
    return enter || key == Qt::Key_Right || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Up;
}

/// Called at every move of the cursor: writes into the boxes only what differs.
void RichTextBar::ShowLook()
{
    const QTextCharFormat format = m_edit.currentCharFormat();
    const QString font = RichTextFormats::FamilyOf(format);
    const Long halfPoints = RichTextFormats::HalfPointsOf(format);
    ShowIn(*m_font, font);
    ShowIn(*m_size, SizeText(halfPoints));
}

void RichTextBar::ApplyFont()
{
    const QString font = m_font->currentText().trimmed();
    m_edit.setFocus();
    if (!font.isEmpty()) {
        m_edit.ChangeCharacters([&](QTextCharFormat& format) { format.setFontFamilies({font}); });
    }
    ShowLook();
}

/// What is no size leaves the size as it was.
void RichTextBar::ApplySize()
{
    const std::string text = m_size->currentText().toStdString();
    m_edit.setFocus();
    if (IsNumeric(text) && Val(text) >= 1 && Val(text) <= 1638) {
        const double points = ToLong(Val(text) * 2) / 2.0;
        m_edit.ChangeCharacters([points](QTextCharFormat& format) { format.setFontPointSize(points); });
    }
    ShowLook();
}

void RichTextBar::ApplyColor(const richtext::Color& color)
{
    m_edit.setFocus();
    m_edit.ChangeCharacters([&](QTextCharFormat& format) {
        RichTextFormats::SetTextColor(format, color, m_edit.Document().Colors());
    });
}

void RichTextBar::ChooseColor()
{
    const richtext::Color now = m_edit.CharacterLook().color;
    const QColor chosen = QColorDialog::getColor(
        now ? QColor(QRgb(*now)) : QColor(Qt::black), window(), QStringLiteral("Text Color"));
    if (chosen.isValid()) ApplyColor(RichTextFormats::Rgb(chosen));
}

} // namespace platform
