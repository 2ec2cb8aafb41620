#pragma once

#include <QTabBar>

#include <functional>
#include <map>
#include <set>
#include <string_view>

namespace platform {

/// A strip of tabs at the lower edge of a sheet, as in a spreadsheet book. Tabs are numbered from 0, hidden
/// ones counted. Whichever way the user picks a tab, by mouse, keys, menu or screen reader, the order is:
/// Switch, the change, Click. Nothing is raised when the tab set is the one shown.
class TabStrip : public QTabBar
{
    Q_OBJECT

public:
    enum class Captions { Plain, Bold };
    TabStrip(const QString& name, Captions captions, QWidget* parent);

    /// Before the change, with the number of the new tab; false refuses it and the strip stays as it is.
    std::function<bool(int newTab)> Switch;
    /// After the change.
    std::function<void()> Click;

    /// The captions, parted by "|"; what stands before the first bar is tab 0. The current number stays.
    void SetCaptions(std::string_view captions);
    void SetTabHidden(int number);
    int CurrTab() const { return m_current; }
    /// Raises Switch, changes, raises Click. False when Switch refused. A number without a tab does nothing.
    bool SetCurrTab(int number);
    /// Shows a tab and raises nothing.
    void PutBack(int number);
    /// The visible tab `step` places on; the last one at either end.
    int Neighbour(int step) const;
    /// The place of a visible tab in the strip, or -1.
    int IndexOf(int number) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;

private:
    void Rebuild();
    void ShowCurrent();
    /// The user picked a place in the strip.
    void TabPicked(int index);
    QFont FontOf(bool shown) const;
    void PaintOther(QPainter& painter, int index) const;
    void PaintShown(QPainter& painter, int index) const;

    std::map<int, QString> m_captions; // by number, hidden ones too
    std::set<int> m_hidden;
    Captions m_weight;
    int m_current = 0;
    bool m_quiet = false;     // a change of our own
    bool m_switching = false; // Switch or Click is running
};

} // namespace platform
