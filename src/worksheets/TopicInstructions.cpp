#include "worksheets/TopicInstructions.h"

#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/Theme.h"

#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace Theme = platform::Theme;

namespace {

const QString kCaption = QStringLiteral("Special instructions for this topic:");
constexpr int kFewestLines = 4;
constexpr int kShare = 2; // the part of its parent's height that the panel may take

QLabel* Quiet(const char* name, const QString& text, QWidget* parent)
{
    auto* label = new platform::QuietLabel(text, parent);
    label->setObjectName(QString::fromUtf8(name));
    return label;
}

} // namespace

TopicInstructions::TopicInstructions(QWidget* parent)
    : ReadingArea(QStringLiteral("pnlInstructions"), kCaption, parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    const int gap = Theme::Gap();
    column->setContentsMargins(gap, gap, gap, gap);
    column->setSpacing(gap / 2);
    column->addWidget(new QLabel(kCaption, page));
    m_lblInstructions = Quiet("lblInstructions", {}, page);
    m_lblNone = Quiet("lblNoInstructions", QStringLiteral("There are none."), page);
    column->addWidget(m_lblInstructions);
    column->addWidget(m_lblNone);
    column->addStretch();
    setWidget(page);
    page->setAutoFillBackground(false); // the tint is the viewport's
    SetText({});
}

void TopicInstructions::SetText(const QString& text)
{
    m_lblInstructions->setText(text);
    m_lblInstructions->setVisible(!text.isEmpty());
    m_lblNone->setVisible(text.isEmpty());
    verticalScrollBar()->setValue(0);
    updateGeometry();
}

int TopicInstructions::heightForWidth(int width) const
{
    const int frame = 2 * frameWidth();
    const int bar = verticalScrollBar()->sizeHint().width();
    // High enough beside a scroll bar too, or one that a longer text needed would never go away.
    const int whole = frame + widget()->layout()->heightForWidth(width - frame - bar);
    const int room = parentWidget() == nullptr ? whole : parentWidget()->height() / kShare;
    return std::min(whole, std::max(room, minimumSizeHint().height()));
}

QSize TopicInstructions::sizeHint() const
{
    const int width = widget()->sizeHint().width() + 2 * frameWidth();
    return {width, heightForWidth(width)};
}

QSize TopicInstructions::minimumSizeHint() const
{
    const int frame = 2 * frameWidth();
    return {widget()->minimumSizeHint().width() + frame, kFewestLines * fontMetrics().lineSpacing() + frame};
}
