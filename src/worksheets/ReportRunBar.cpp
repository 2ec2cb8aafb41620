#include "worksheets/ReportRunBar.h"

#include "platform/widgets/Application.h"
#include "platform/widgets/Theme.h"
#include "session/u91Trace.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSteps = 1000;
int g_patience = 400; // milliseconds

} // namespace

ReportRunBar::ReportRunBar(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("ReportRunBar"));
    m_lblProgress = new QLabel(this);
    m_lblProgress->setObjectName(QStringLiteral("lblProgress"));
    m_lblProgress->setTextFormat(Qt::PlainText);
    m_progress = new QProgressBar(this);
    m_progress->setObjectName(QStringLiteral("barProgress"));
    m_progress->setAccessibleName(QStringLiteral("Progress of the report"));
    m_progress->setRange(0, kSteps);
    m_progress->setTextVisible(false);
    m_cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    m_cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    m_cmdCancel->setShortcut(Qt::Key_Escape);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(platform::Theme::Gap());
    line->addWidget(m_lblProgress);
    line->addWidget(m_progress, 1);
    line->addWidget(m_cmdCancel);
    connect(m_cmdCancel, &QPushButton::clicked, this, [this] {
        platform::Guarded([this] { cmdCancel_Click(); });
    });
    hide();
}

void ReportRunBar::SetPatience(int milliseconds) { g_patience = milliseconds; }

void ReportRunBar::Begin()
{
    m_cancelled = false;
    m_cmdCancel->setEnabled(true);
    m_progress->setValue(0);
    m_elapsed.start();
}

void ReportRunBar::TakeOver(ReportRunBar& other)
{
    Begin();
    m_elapsed = other.m_elapsed;
    m_cancelled = other.m_cancelled;
    Tell(other.m_lblProgress->text(), static_cast<double>(other.m_progress->value()) / kSteps);
    other.End();
}

bool ReportRunBar::IsLong() const { return m_elapsed.isValid() && m_elapsed.elapsed() >= g_patience; }

void ReportRunBar::Tell(const QString& what, double part)
{
    m_lblProgress->setText(what);
    m_progress->setValue(static_cast<int>(std::lround(part * kSteps)));
    if (IsLong()) show();
}

void ReportRunBar::End()
{
    hide();
    m_elapsed.invalidate();
}

void ReportRunBar::cmdCancel_Click()
{
    u91Trace::Trace("cmdCancel_Click");
    m_cancelled = true;
    m_cmdCancel->setEnabled(false);
    m_lblProgress->setText(QStringLiteral("Cancelling ..."));
}
