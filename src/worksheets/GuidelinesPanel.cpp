#include "worksheets/GuidelinesPanel.h"

#include "platform/widgets/FormattedLabel.h"
#include "platform/widgets/ReadingArea.h"
#include "platform/widgets/Theme.h"
#include "worksheets/WorksheetPanes.h"

#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

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
    m_scroll = BuildText(markup);
    column->addWidget(m_scroll, 1);
}

QScrollArea* GuidelinesPanel::BuildText(std::string_view markup)
{
    auto* scroll = new platform::ReadingArea(QStringLiteral("scrGuidelines"), m_title->text(), this);
    m_text = new platform::FormattedLabel(scroll);
    m_text->setObjectName(QStringLiteral("FLabel1"));
    m_text->SetMarkup(markup);
    scroll->setWidget(m_text);
    m_text->setAutoFillBackground(false); // the tint shows through
    return scroll;
}

int GuidelinesPanel::Room() const
{
    const QMargins margins = layout()->contentsMargins();
    return width() - margins.left() - margins.right();
}

int GuidelinesPanel::TextHeight() const
{
    // High enough beside the scroll bar too, or one that was needed would never go away.
    const int frame = 2 * m_scroll->frameWidth();
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return m_text->heightForWidth(Room() - frame - bar) + frame;
}

int GuidelinesPanel::WholeHeight() const
{
    const QMargins margins = layout()->contentsMargins();
    return margins.top() + m_title->heightForWidth(Room()) + layout()->spacing() + TextHeight() +
           margins.bottom();
}

/// No wider than what it stands below: its text breaks where the column ends.
QSize GuidelinesPanel::sizeHint() const { return {minimumSizeHint().width(), WholeHeight()}; }

void GuidelinesPanel::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    const int few = kLeastLines * m_text->fontMetrics().lineSpacing() + 2 * m_scroll->frameWidth();
    m_scroll->setMinimumHeight(std::min(few, TextHeight()));
    setMaximumHeight(WholeHeight());
    layout()->setGeometry(rect()); // a panel that is not shown yet is not told that it has become smaller
    updateGeometry();
}

void GuidelinesPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::StripGround(palette()));
}
