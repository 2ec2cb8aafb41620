#pragma once

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

/// How far a run of the report has come, with a button that cancels it. Hidden until a run has lasted so long
/// that one wonders.
class ReportRunBar : public QWidget
{
    Q_OBJECT

public:
    explicit ReportRunBar(QWidget* parent);

    /// A run begins.
    void Begin();
    /// Goes on, in sight, for a bar that a long run began with.
    void TakeOver(ReportRunBar& other);
    /// Shows what is being done and which part of the whole is done, 0 to 1, once the run is a long one.
    void Tell(const QString& what, double part);
    void End();
    /// Whether the run that began last has lasted long.
    bool IsLong() const;
    bool IsCancelled() const { return m_cancelled; }

    /// After how many milliseconds a run is a long one.
    static void SetPatience(int milliseconds);

private:
    void cmdCancel_Click();

    QLabel* m_lblProgress = nullptr;
    QProgressBar* m_progress = nullptr;
    QPushButton* m_cmdCancel = nullptr;
    QElapsedTimer m_elapsed;
    bool m_cancelled = false;
};
