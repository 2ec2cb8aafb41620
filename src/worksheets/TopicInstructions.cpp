#include "worksheets/TopicInstructions.h"

#include "platform/widgets/QuietLabel.h"
#include "platform/widgets/Theme.h"

#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace Theme = platform::Theme;

namespace {

constexpr int kFewestLines = 4;
constexpr int kShare = 2; // the part of its parent's height that the panel may take

QLabel* Quiet(const char* name, const QString& text, QWidget* parent)
{
    auto* label = new platform::QuietLabel(text, parent);
    label->setObjectName(QString::fromUtf8(name));
    return label;
}

} // namespace

TopicInstructions::TopicInstructions(QWidget* parent) : QScrollArea(parent)
{
    const QString caption = QStringLiteral("Special instructions for this topic:");
    setObjectName(QStringLiteral("pnlInstructions"));
    setAccessibleName(caption);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* page = new QWidget(this);
    auto* column = new QVBoxLayout(page);
    const int gap = Theme::Gap();
    column->setContentsMargins(gap, gap, gap, gap);
    column->setSpacing(gap / 2);
    column->addWidget(new QLabel(caption, page));
    m_lblInstructions = Quiet("lblInstructions", {}, page);
    m_lblNone = Quiet("lblNoInstructions", QStringLiteral("There are none."), page);
    column->addWidget(m_lblInstructions);
    column->addWidget(m_lblNone);
    column->addStretch();
    setWidget(page);
    page->setAutoFillBackground(false); // the tint is the viewport's
    // A stop for the Tab key only where there is something to scroll.
    setFocusPolicy(Qt::NoFocus);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int last) {
        setFocusPolicy(last > 0 ? Qt::StrongFocus : Qt::NoFocus);
    });
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
    // High enough beside a scroll bar too, or one that a longer text needed would never go away.
    const int whole = widget()->layout()->heightForWidth(width - verticalScrollBar()->sizeHint().width());
    const int room = parentWidget() == nullptr ? whole : parentWidget()->height() / kShare;
    return std::min(whole, std::max(room, minimumSizeHint().height()));
}

QSize TopicInstructions::sizeHint() const
{
    const int width = widget()->sizeHint().width();
    return {width, heightForWidth(width)};
}

QSize TopicInstructions::minimumSizeHint() const
{
    return {widget()->minimumSizeHint().width(), kFewestLines * fontMetrics().lineSpacing()};
}

bool TopicInstructions::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Paint) {
        QPainter painter(viewport());
        painter.fillRect(viewport()->rect(), Theme::StripGround(palette()));
    }
    return QScrollArea::viewportEvent(event);
}
