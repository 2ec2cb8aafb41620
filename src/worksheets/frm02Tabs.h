#pragma once

#include <QWidget>

namespace platform {
class TabStrip;
}

/// The two strips of tabs at the lower edge of the window: sections over the worksheets of the current
/// section.
class frm02Tabs : public QWidget
{
    Q_OBJECT

public:
    explicit frm02Tabs(QWidget* parent);
    /// Traces the unload, ahead of the deletion. A form that goes with the process is not unloaded.
    void Unload();

    /// The section strip to Situation, the worksheet strip to the Introduction; gCurrentSection is 2 then,
    /// also where the strips stood there before and raised nothing.
    void InitializeTabs();
    /// Shows the current section's worksheets in strip and menu, the first one in front. False when the
    /// worksheet that was shown could not be saved: then nothing was changed.
    bool ChangeSections();

    platform::TabStrip& vsTab1() { return *m_vsTab1; }
    platform::TabStrip& vsTab2() { return *m_vsTab2; }
    /// The height that both strips need, in pixels; never less than the given one.
    int StripHeight() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool vsTab1_Switch(int newSection);
    void vsTab1_Click();
    bool vsTab2_Switch(int newTab);
    void vsTab2_Click();
    void SetWorksheetCaptions();

    platform::TabStrip* m_vsTab1 = nullptr;
    platform::TabStrip* m_vsTab2 = nullptr;
    int m_sectionLeft = 0; // the section that the strip is leaving
};
