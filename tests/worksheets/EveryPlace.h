#pragma once

#include "worksheets/WindowTest.h"

#include <QDialog>

#include <functional>
#include <string>

/// Goes to every place of the program where somebody works: the start form, every worksheet, every dialog and
/// the preview.
class EveryPlace : public WindowTest
{
protected:
    /// The window that is worked in, and what it is called where a check fails.
    using Visitor = std::function<void(QWidget& window, const std::string& place)>;

    ~EveryPlace() override;

    void VisitStart(const Visitor& visit);
    /// Every worksheet of the open file, as a click on its tab brings it up.
    void VisitWorksheets(const Visitor& visit);
    /// The dialogs that worksheets open, in each of their states.
    void VisitDialogs(const Visitor& visit);
    /// The preview of the report, and it with its find box in use.
    void VisitPreview(const Visitor& visit);
    /// The message boxes of the program, as the desktop shows them.
    void VisitBoxes(const Visitor& visit);

    /// All of the sample, then what an empty file shows.
    void VisitAll(const Visitor& visit);
    void VisitEmptyFile(const Visitor& visit);

    /// Lets layouts and queued work come to rest.
    static void Settle();
    /// Runs what opens a dialog, does something in it and closes it.
    void InDialog(const std::function<void()>& open, const std::function<void(QDialog& dialog)>& work);

    /// The size that the window has at each visit.
    QSize windowSize = {800, 600};

private:
    void VisitResources(QDialog& dialog, const Visitor& visit);
    void VisitSpelling(const Visitor& visit);

    bool m_empty = false;
};
