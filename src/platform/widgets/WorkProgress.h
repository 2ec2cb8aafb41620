#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <string>

class QProgressDialog;
class QWidget;

namespace platform {

/// Shows how far a long work on a data file has come, in a small window ahead of the others, once the work
/// has lasted long enough for somebody to wonder. While it stands nothing else can be commanded. One at a
/// time listens.
class WorkProgress : public QObject
{
    Q_OBJECT

public:
    /// The window stands ahead of the parent, which outlives it.
    explicit WorkProgress(QWidget& parent);
    ~WorkProgress() override;

private:
    void Tell(const std::string& what, double part);
    void Begin();
    void End();

    QWidget& m_parent;
    QPointer<QProgressDialog> m_window; // nothing: no work is under way
    QElapsedTimer m_begun;
    QElapsedTimer m_since; // the last time that it was drawn
};

} // namespace platform
