#include "platform/widgets/WorkProgress.h"

#include "platform/base/LongWork.h"

#include <QApplication>
#include <QProgressDialog>

#include <limits>

namespace platform {

namespace {

constexpr int kSteps = 1000;
constexpr int kWonder = 400; // milliseconds, from which on one would like to know
constexpr int kRedraw = 50;  // milliseconds between two drawings: the work goes first

} // namespace

WorkProgress::WorkProgress(QWidget& parent) : m_parent(parent)
{
    SetProgressListener([this](const std::string& what, double part) { Tell(what, part); });
}

WorkProgress::~WorkProgress() { SetProgressListener({}); }

void WorkProgress::Tell(const std::string& what, double part)
{
    if (what.empty()) return End();
    if (m_window == nullptr) Begin();
    if (m_begun.elapsed() < kWonder || (m_since.isValid() && m_since.elapsed() < kRedraw)) return;
    m_window->setLabelText(QStringLiteral("Bringing the file into today's form.\n") +
                           QString::fromStdString(what));
    m_window->show();
    m_window->setValue(static_cast<int>(part * kSteps)); // draws; nothing else gets in
    m_since.start();
}

void WorkProgress::Begin()
{
    m_window = new QProgressDialog(&m_parent);
    m_window->setObjectName(QStringLiteral("dlgProgress"));
    m_window->setAccessibleName(QStringLiteral("Progress"));
    m_window->setWindowTitle(m_parent.windowTitle());
    m_window->setWindowModality(Qt::ApplicationModal);
    m_window->setCancelButton(nullptr); // a step that has begun is ended: half a file is of no use to anybody
    m_window->setRange(0, kSteps);
    m_window->setAutoReset(false);
    m_window->setAutoClose(false);
    m_window->setMinimumDuration(std::numeric_limits<int>::max()); // its own guess is of the steps
    m_begun.start();
    m_since.invalidate();
}

void WorkProgress::End() { delete m_window; }

} // namespace platform
