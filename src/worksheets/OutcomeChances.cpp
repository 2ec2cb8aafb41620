#include "worksheets/OutcomeChances.h"

#include "model/c52OutcomeList.h"
#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Theme.h"
#include "worksheets/WorksheetPanes.h"

#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>

#include <utility>

namespace Theme = platform::Theme;
using platform::EntryBox;

namespace {

constexpr int kPercentCharacters = 8;
constexpr int kLeastLines = 3; // of reasons that show, however small the window

/// The fixed texts of an outcome's chances, and the given name of the label above the reasons.
struct Words
{
    const char* success;
    const char* failure;
    const char* label;
    const char* discuss;
};

constexpr Words kTarget = {"%  Probability of target outcome",
                           "%  Probability fire will exceed target",
                           "lblDiscuss",
                           "Discuss probabilities"};
constexpr Words kFallback = {"%  Probability of fallback outcome if fire exceeds target",
                             "%  Probability fire will exceed fallback if fire exceeds target",
                             "lblRationale2",
                             "Discuss probabilities for fallback"};

const Words& WordsOf(Long index) { return index == c52OutcomeList::Fallback ? kFallback : kTarget; }

} // namespace

OutcomeChances::OutcomeChances(Long index, QWidget* parent) : QWidget(parent)
{
    QVBoxLayout* column = WorksheetPanes::Column(this);
    if (index == c52OutcomeList::Fallback)
        column->addWidget(WorksheetPanes::Heading(QStringLiteral("Fallback"), this));
    column->addWidget(BuildPercents(index));
    BuildReasons(index);
    column->addWidget(m_lblReasons);
    column->addWidget(m_txtRationale, 1);
}

QWidget* OutcomeChances::BuildPercents(Long index)
{
    auto* lines = new QWidget(this);
    m_txtSuccess = new EntryBox(QStringLiteral("txtSuccess%1").arg(index), lines);
    m_txtSuccess->setFixedWidth(kPercentCharacters * fontMetrics().averageCharWidth());
    m_txtSuccess->setAlignment(Qt::AlignRight);
    m_txtSuccess->SelectWholeOnEntry();
    m_lblFailure = WorksheetPanes::PlainLabel({}, lines);
    m_lblFailure->setObjectName(QStringLiteral("lblFailure_%1").arg(index));
    m_lblFailure->setAlignment(Qt::AlignRight | Qt::AlignTop);
    auto* grid = new QGridLayout(lines);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(Theme::Gap() / 2);
    grid->setColumnStretch(1, 1);
    const auto addLine = [&](int row, QWidget* field, const char* text) {
        QLabel* caption = WorksheetPanes::PlainLabel(QString::fromUtf8(text), lines);
        caption->setWordWrap(true);
        caption->setBuddy(field);
        grid->addWidget(field, row, 0);
        grid->addWidget(caption, row, 1);
    };
    addLine(0, m_txtSuccess, WordsOf(index).success);
    addLine(1, m_lblFailure, WordsOf(index).failure);
    return lines;
}

void OutcomeChances::BuildReasons(Long index)
{
    const Words& words = WordsOf(index);
    m_lblReasons = WorksheetPanes::PlainLabel(QString::fromUtf8(words.discuss), this);
    m_lblReasons->setWordWrap(true);
    m_lblReasons->setObjectName(QString::fromUtf8(words.label));
    m_txtRationale = new QPlainTextEdit(this);
    m_txtRationale->setObjectName(QStringLiteral("txtRationale%1").arg(index));
    m_txtRationale->setTabChangesFocus(true);
    m_txtRationale->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored); // as high as there is room
    m_txtRationale->setMinimumHeight(kLeastLines * fontMetrics().lineSpacing());
    m_lblReasons->setBuddy(m_txtRationale);
}
