#pragma once

#include "reports/ReportRun.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

#include <functional>

class ReportRunBar;

/// A run of the report as the screen sees it, from constructor to destructor. The print control is told its
/// printer and paper. A bar tells how far the run is and can cancel it; every other command, the tabs, the
/// menus and the close are disabled meanwhile. A preview that stands keeps its picture until the end; a long
/// run for the preview shows its first pages before the last are made.
class ReportScreenRun : public QObject
{
    Q_OBJECT

public:
    /// Where the pages go.
    enum class To { Preview, Elsewhere };

    /// The bar belongs to the form whose command it is.
    ReportScreenRun(To to, ReportRunBar& bar);
    ~ReportScreenRun() override;

    /// The pages are whole.
    void Finish() { m_finished = true; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Follow(const ReportRun::Progress& progress);
    void ShowEarly();
    /// The preview at the end of the run.
    void ShowPreview();
    void DisableMain();
    void DisablePreview();
    /// All but bars and pages.
    void DisableCommands(QWidget* widget);
    void Disable(QObject* object);
    void EnableAll();

    To m_to;
    QPointer<ReportRunBar> m_bar;
    QElapsedTimer m_sinceEvents;
    QList<QPointer<QObject>> m_disabled;
    QPointer<QWidget> m_focus;
    bool m_shownEarly = false;
    bool m_openedEarly = false; // no preview stood before
    bool m_finished = false;
};

/// Runs what may print or write; a failure of that is told in its own sentence, and a cancelled one is no
/// error. Any other error goes on.
void TellPrintErrors(const std::function<void()>& action);
/// Runs a command that produces the report, and tells its print errors.
void RunReport(ReportScreenRun::To to, ReportRunBar& bar, const std::function<void()>& run);
/// Lays the pages that the preview shows out again where the printer's paper is another by now.
void FollowPaper();
