#pragma once

#include "platform/base/Desktop.h"
#include "platform/print/PrintControl.h"
#include "platform/widgets/PageView.h"
#include "reports/ReportRun.h"
#include "reports/ReportUtilities.h"
#include "worksheets/ReportRunBar.h"
#include "worksheets/WindowTest.h"
#include "worksheets/frmPreview.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <functional>

/// A desktop on which something happens where the program lets events run.
class BusyDesktop : public support::ScriptedDesktop
{
public:
    void LetEventsRun() override
    {
        if (!whenEventsRun) return;
        const auto happens = std::exchange(whenEventsRun, {});
        happens();
    }
    platform::Answer Show(const platform::Message& message) override
    {
        if (!takesAnyBox) return ScriptedDesktop::Show(message);
        taken.push_back(message.lines.at(0));
        return platform::Answer::Ok;
    }
    void PrinterSetup() override
    {
        ScriptedDesktop::PrinterSetup();
        if (whenSetUp) whenSetUp();
    }
    /// Called once.
    std::function<void()> whenEventsRun;
    std::function<void()> whenSetUp;
    /// Boxes whose words are not our own.
    bool takesAnyBox = false;
    std::vector<std::string> taken;
};

/// The worksheet Preview and Print of a file, with a preview of its own for each test.
class PreviewTest : public WindowTest
{
protected:
    PreviewTest()
    {
        platform::SetDesktop(&busy);
        qputenv("CUPS_SERVER", "/nowhere/cups.sock"); // no test prints on a printer of this computer
        ReportRunBar::SetPatience(0);                 // every run is a long one
    }
    ~PreviewTest() override
    {
        frmPreview::Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ReportUtilities::EndReports();
        busy.CheckDone();
        platform::SetDesktop(&desktop);
    }

    void StartReports(const std::string& sql = {})
    {
        StartWithSample("smith-creek", sql);
        GoTo(7, 3);
    }
    void Tick(const std::vector<int>& sections)
    {
        Press("cmdClear");
        for (const int section : sections)
            Box(section)->setChecked(true);
    }
    QCheckBox* Box(int section) { return Find<QCheckBox>(("chkSection_" + std::to_string(section)).c_str()); }
    static frmPreview& Shown() { return *frmPreview::Loaded(); }
    template <class Control> static Control* InPreview(const char* name)
    {
        auto* found = Shown().findChild<Control*>(QString::fromUtf8(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    static void PressInPreview(const char* button)
    {
        QTest::mouseClick(InPreview<QAbstractButton>(button), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    static platform::PageView& Pages() { return *InPreview<platform::PageView>("PageView1"); }
    static std::string Text(const char* label) { return InPreview<QLabel>(label)->text().toStdString(); }
    static platform::print::PrintControl& Printer() { return ReportUtilities::VSPrinter1(); }
    static Long PageCount() { return static_cast<Long>(Printer().Pages().pages.size()); }

    BusyDesktop busy;
};
