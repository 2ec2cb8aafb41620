#include "worksheets/TopicForm.h"

#include "platform/widgets/Application.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/Theme.h"
#include "session/UIMode.h"
#include "session/g0Items.h"
#include "session/u91Trace.h"
#include "worksheets/RichBody.h"
#include "worksheets/TopicInstructions.h"
#include "worksheets/WorksheetPanes.h"
#include "worksheets/WorksheetParts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>

namespace Theme = platform::Theme;
using platform::EntryBox;
using platform::Guarded;
using platform::ListBox;

namespace {

constexpr int kFewestLines = 4; // of the list that always show

const QString kNoTopic = QStringLiteral("There are no topics yet. Press Add Topic, then give the topic a "
                                        "heading and write its narrative here.");

void KeepRowsInSight(ListBox& list)
{
    const int line = list.fontMetrics().lineSpacing() + 2 * list.spacing();
    list.setMinimumHeight(kFewestLines * line + 2 * list.frameWidth());
}

} // namespace

TopicForm::TopicForm(const QString& name, const QString& title, QWidget* parent) : Worksheet(name, parent)
{
    setWindowTitle(title);
    setAccessibleName(title);
}

void TopicForm::SaveChanges()
{
    if (m_currentTopic != nullptr) m_currentTopic->SaveChanges();
}

// ---- Controls

void TopicForm::BuildControls()
{
    QVBoxLayout* column = WorksheetParts::Column(this);
    column->addWidget(WorksheetParts::Title(windowTitle(), this));
    BuildHead(*column);
    QWidget* left = BuildLeft();
    column->addWidget(WorksheetPanes::SideBySide(left, BuildRight(), this), 1);
    ConnectHandlers();
}

QWidget* TopicForm::BuildLeft()
{
    auto* left = new QWidget(this);
    QVBoxLayout* column = WorksheetPanes::Column(left);
    QLabel* caption = BuildAboveList(*column);
    m_lstTopics = new ListBox(QStringLiteral("lstTopics"), caption->text(), left);
    KeepRowsInSight(*m_lstTopics);
    caption->setBuddy(m_lstTopics);
    column->addWidget(m_lstTopics, 1);
    BuildBelowList(*column);
    m_instructions = new TopicInstructions(left);
    column->addWidget(m_instructions);
    column->addStretch();
    return left;
}

QWidget* TopicForm::BuildRight()
{
    auto* right = new QWidget(this);
    QVBoxLayout* column = WorksheetPanes::Column(right);
    m_lblNoTopic = new platform::QuietLabel(kNoTopic, right);
    m_lblNoTopic->setObjectName(QStringLiteral("lblNoTopic"));
    m_lblNoTopic->hide();
    auto* caption = new QLabel(QStringLiteral("Heading"), right);
    m_txtHeading = new EntryBox(QStringLiteral("txtHeading"), right);
    caption->setBuddy(m_txtHeading);
    m_body = new RichBody(QStringLiteral("Narrative"), platform::RichTextEditor::Parts::BarAndRuler, right);
    auto* line = new QHBoxLayout;
    line->setSpacing(Theme::Gap());
    line->addWidget(caption);
    line->addWidget(m_txtHeading, 1);
    column->addWidget(m_lblNoTopic);
    column->addLayout(line);
    column->addWidget(m_body, 1);
    return right;
}

QLabel* TopicForm::AddValue(QVBoxLayout& column, const char* caption, const char* name)
{
    auto* head = new platform::QuietLabel(QString::fromUtf8(caption), column.parentWidget());
    auto* value = new QLabel(column.parentWidget());
    value->setObjectName(QString::fromUtf8(name));
    value->setTextFormat(Qt::PlainText);
    value->setWordWrap(true);
    head->setBuddy(value);
    auto* pair = new QVBoxLayout;
    pair->setSpacing(Theme::Gap() / 4);
    pair->addWidget(head);
    pair->addWidget(value);
    column.addLayout(pair);
    return value;
}

void TopicForm::ConnectHandlers()
{
    connect(m_lstTopics, &ListBox::Click, this, [this] { Guarded([this] { lstTopics_Click(); }); });
    connect(m_txtHeading, &EntryBox::textChanged, this, [this] { Guarded([this] { txtHeading_Change(); }); });
}

// ---- The topic on the screen

void TopicForm::ShowTopic()
{
    const UIMode::Busy busy;
    m_lblNoTopic->hide();
    m_txtHeading->setEnabled(true);
    m_txtHeading->setToolTip({});
    m_txtHeading->setText(QString::fromStdString(m_currentTopic->Heading()));
    m_txtHeading->home(false); // a long text shows its beginning
    m_body->Show(m_currentTopic->Body(), [topic = m_currentTopic](platform::LateText::Maker text) {
        topic->SetBodyLater(std::move(text));
    });
    TopicShown();
}

void TopicForm::ShowNoTopic()
{
    const UIMode::Busy busy;
    m_lblNoTopic->show();
    m_txtHeading->clear();
    m_txtHeading->setEnabled(false);
    m_txtHeading->setToolTip(kNoTopic);
    m_body->ShowNothing(kNoTopic);
    m_instructions->SetText({});
}

void TopicForm::SelectCurrentTopicLater()
{
    // The toolkit still marks the row that was clicked when its handlers are done.
    QMetaObject::invokeMethod(
        this, [this] { SelectCurrentTopic(); }, Qt::QueuedConnection);
}

void TopicForm::SelectCurrentTopic()
{
    const QSignalBlocker quiet(m_lstTopics);
    Long row = m_lstTopics->ListCount() - 1;
    while (row >= 0 && (m_currentTopic == nullptr || m_lstTopics->ItemData(row) != m_currentTopic->ItemKey()))
        --row;
    m_lstTopics->setCurrentRow(row);
}

// ---- Handlers

std::string TopicForm::ClickName() const { return objectName().toStdString() + ".lstTopics_Click "; }

void TopicForm::lstTopics_Click()
{
    const Long row = m_lstTopics->ListIndex();
    u91Trace::Trace(ClickName() + m_lstTopics->List(row));
    try {
        SaveChanges();
        m_currentTopic = g0Items::GetItem(m_lstTopics->ItemData(row));
    } catch (...) {
        SelectCurrentTopicLater();
        throw;
    }
    ShowTopic();
    m_instructions->SetText(QString::fromStdString(m_currentTopic->ItemText()));
}

void TopicForm::txtHeading_Change()
{
    if (!UIMode::NotBusy() || m_currentTopic == nullptr) return;
    WriteHeading(*m_currentTopic, m_txtHeading->text().toStdString());
}

void TopicForm::WriteHeading(c0Item& topic, const std::string& heading) { topic.SetHeading(heading); }
