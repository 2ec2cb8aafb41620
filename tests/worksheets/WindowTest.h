#pragma once

#include "platform/data/Database.h"
#include "support/TestSession.h"
#include "worksheets/frm0_VEXA.h"

#include <QAction>
#include <QMenu>

#include <memory>
#include <string>
#include <vector>

class Worksheet;
namespace platform {
class TabStrip;
}

/// A main window of its own for each test, connected to the session as the program connects it.
class WindowTest : public support::TestSession
{
protected:
    WindowTest();
    ~WindowTest() override;

    /// Starts with this command line and shows the window.
    void Start(const std::string& commandLine = {});
    /// Starts with a copy of a built sample.
    void StartWithSample(const std::string& name = "smith-creek", const std::string& sql = {});
    void StartWithNewFile(const std::string& sql = {});

    template <class Control> Control* Find(const char* name)
    {
        auto* found = window->findChild<Control*>(QString::fromUtf8(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QMenu* Menu(const char* name) { return Find<QMenu>(name); }
    QAction* Entry(const char* menu, int number);
    /// Picks a menu entry that a user could pick.
    void Pick(const char* menu, int number);
    /// Presses a button and lets its command run.
    void Press(const char* button);
    platform::TabStrip& Sections();
    platform::TabStrip& Worksheets();
    /// Clicks a tab with the mouse.
    void ClickTab(platform::TabStrip& strip, int number);
    /// To a worksheet by clicks on both strips.
    void GoTo(int section, int tab);

    Worksheet& Shown();
    /// The title and the text of a label of the worksheet shown.
    std::string Title() { return LabelText("lblTitle"); }
    std::string LabelText(const char* label);
    /// What all its labels say, in no order.
    std::vector<std::string> LabelTexts();

    /// The log's lines without times, blank lines and resizes.
    std::vector<std::string> Lines() const;
    /// Those written since the last call of Mark.
    std::vector<std::string> NewLines() const;
    void Mark() { m_marked = Lines().size(); }
    std::string Caption() const { return window->windowTitle().toStdString(); }
    /// As if the drive had gone read-only, and come back: from then on the engine refuses every write.
    void ForbidWrites() { Reopen(platform::Database::Mode::ReadOnly); }
    void AllowWrites() { Reopen(platform::Database::Mode::Exclusive); }
    static constexpr const char* kReadOnly = "attempt to write a readonly database";
    /// The sentence of a worksheet that cannot be left with such a drive.
    static constexpr const char* kNotLeft = "This worksheet could not be saved (attempt to write a readonly "
                                            "database), so it stays on the screen until it can be.";

    /// The message of a command that failed.
    void ExpectReport(const std::string& cause = kReadOnly);
    void ExpectNotLeft() { desktop.ExpectText({kNotLeft}); }
    /// The question before something is deleted; `what` has the question mark.
    void ExpectDelete(const std::string& what, platform::Answer answer);
    /// The question of a close that would lose what cannot be saved.
    void ExpectStayOrLeave(const std::string& sentence, platform::Answer answer);

    std::unique_ptr<frm0_VEXA> window;

private:
    void Reopen(platform::Database::Mode mode);

    std::size_t m_marked = 0;
};
