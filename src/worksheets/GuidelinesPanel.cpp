#include "worksheets/GuidelinesPanel.h"

#include "platform/widgets/FormattedLabel.h"
#include "platform/widgets/Theme.h"
#include "worksheets/WorksheetPanes.h"

#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QVBoxLayout>

namespace Theme = platform::Theme;

namespace {

constexpr int kLeastLines = 4; // of text that show, however small the window

} // namespace

GuidelinesPanel::GuidelinesPanel(const QString& title, std::string_view markup, QWidget* parent)
    : QFrame(parent), m_title(WorksheetPanes::Heading(title, this))
{
    setObjectName(QStringLiteral("pnlGuidelines"));
    setAccessibleName(title);
    m_title->setObjectName(QStringLiteral("lblGuidelines"));
    m_title->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    const int gap = Theme::Gap();
    column->setContentsMargins(gap, gap, gap, gap);
    column->setSpacing(gap / 2);
    column->addWidget(m_title);
    column->addWidget(BuildText(markup), 1);
}

QScrollArea* GuidelinesPanel::BuildText(std::string_view markup)
{
    auto* scroll = new QScrollArea(this);
    scroll->setObjectName(QStringLiteral("scrGuidelines"));
    scroll->setAccessibleName(m_title->text());
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_text = new platform::FormattedLabel(scroll);
    m_text->setObjectName(QStringLiteral("FLabel1"));
    m_text->SetMarkup(markup);
    scroll->setWidget(m_text);
    // The panel's ground shows through.
    m_text->setAutoFillBackground(false);
    scroll->viewport()->setAutoFillBackground(false);
    scroll->setMinimumHeight(kLeastLines * m_text->fontMetrics().lineSpacing());
    // A stop for the Tab key only where there is something to scroll.
    scroll->setFocusPolicy(Qt::NoFocus);
    connect(scroll->verticalScrollBar(), &QScrollBar::rangeChanged, scroll, [scroll](int, int last) {
        scroll->setFocusPolicy(last > 0 ? Qt::StrongFocus : Qt::NoFocus);
    });
    return scroll;
}

int GuidelinesPanel::WholeHeight() const
{
    const QMargins margins = layout()->contentsMargins();
    const int room = width() - margins.left() - margins.right();
    // High enough beside the scroll bar too, or one that was needed would never go away.
    const int narrower = room - style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return margins.top() + m_title->heightForWidth(room) + layout()->spacing() +
           m_text->heightForWidth(narrower) + margins.bottom();
}

/// No wider than what it stands below: its text breaks where the column ends.
QSize GuidelinesPanel::sizeHint() const { return {minimumSizeHint().width(), WholeHeight()}; }

void GuidelinesPanel::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    setMaximumHeight(WholeHeight());
    updateGeometry();
}

void GuidelinesPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::StripGround(palette()));
}
