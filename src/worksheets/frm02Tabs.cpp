#include "worksheets/frm02Tabs.h"

#include "platform/base/Numbers.h"
#include "platform/widgets/TabStrip.h"
#include "platform/widgets/Theme.h"
#include "session/SessionState.h"
#include "session/u91Trace.h"
#include "worksheets/WorksheetTable.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm0_VEXA.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <string>

namespace Theme = platform::Theme;
using platform::TabStrip;

namespace {

constexpr int kFirstSection = 2;
constexpr int kHeight = 675; // twips, as all lengths here
constexpr int kNarrower = 135;

/// "|Setup|Situation|...": tab 0 stands ahead of the first bar and is empty.
std::string SectionCaptions()
{
    std::string captions;
    for (const SectionEntry& section : Sections())
        captions += std::string("|") + section.tabCaption;
    return captions;
}

std::string WorksheetCaptions(int section)
{
    std::string captions;
    for (int tab = 1; tab <= LastTab(section); ++tab) {
        captions += std::string("|") + FindWorksheet(section, tab)->tabCaption;
    }
    return captions;
}

/// Disabled while it lives, so that no tab click enters; the focus comes back to where it was, unless a
/// worksheet has taken it.
class Disabled
{
public:
    explicit Disabled(QWidget& form) : m_form(form), m_focus(QApplication::focusWidget())
    {
        form.setEnabled(false);
        m_focusMeanwhile = QApplication::focusWidget();
    }
    Disabled(const Disabled&) = delete;
    Disabled& operator=(const Disabled&) = delete;
    ~Disabled()
    {
        m_form.setEnabled(true);
        const bool taken = QApplication::focusWidget() != m_focusMeanwhile;
        if (!taken && m_focus != nullptr && m_form.isAncestorOf(m_focus)) m_focus->setFocus();
    }

private:
    QWidget& m_form;
    QPointer<QWidget> m_focus;
    QPointer<QWidget> m_focusMeanwhile; // where the toolkit put it when the form was disabled
};

} // namespace

frm02Tabs::frm02Tabs(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("frm02Tabs"));
    setAccessibleName(QStringLiteral("Sections and worksheets"));
    u91Trace::TraceLoad("frm02Tabs");
    m_vsTab1 = new TabStrip(QStringLiteral("vsTab1"), TabStrip::Captions::Bold, this);
    m_vsTab1->setAccessibleName(QStringLiteral("Sections"));
    m_vsTab1->SetCaptions(SectionCaptions());
    for (const int hidden : {1, 8, 0})
        m_vsTab1->SetTabHidden(hidden);
    m_vsTab2 = new TabStrip(QStringLiteral("vsTab2"), TabStrip::Captions::Plain, this);
    m_vsTab2->setAccessibleName(QStringLiteral("Worksheets"));
    m_vsTab2->SetCaptions(WorksheetCaptions(kFirstSection));
    m_vsTab2->SetTabHidden(0);
    m_vsTab1->Switch = [this](int tab) { return vsTab1_Switch(tab); };
    m_vsTab1->Click = [this] { vsTab1_Click(); };
    m_vsTab2->Switch = [this](int tab) { return vsTab2_Switch(tab); };
    m_vsTab2->Click = [this] { vsTab2_Click(); };
}

void frm02Tabs::Unload() { u91Trace::TraceUnload("frm02Tabs"); }

void frm02Tabs::InitializeTabs()
{
    const a3VEXAforms::FileWasReplaced replaced;
    m_vsTab1->SetCurrTab(kFirstSection);
    gCurrentSection = kFirstSection;
    m_vsTab2->SetCurrTab(1);
    update();
}

bool frm02Tabs::vsTab1_Switch(int newSection)
{
    u91Trace::TraceStart("switch to section " + std::to_string(newSection));
    if (!a3VEXAforms::UpdateBeforeLeaving()) return false;
    if (m_vsTab2->CurrTab() == 1) a3VEXAforms::UnloadCurrentWorksheet();
    m_sectionLeft = m_vsTab1->CurrTab();
    gCurrentSection = static_cast<Integer>(newSection);
    return true;
}

void frm02Tabs::vsTab1_Click()
{
    if (!ChangeSections()) {
        m_vsTab1->PutBack(m_sectionLeft);
        gCurrentSection = static_cast<Integer>(m_sectionLeft);
        return;
    }
    if (m_vsTab2->CurrTab() == 1) a3VEXAforms::DisplayWorksheet(1);
    u91Trace::TraceFinished("switching sections");
}

bool frm02Tabs::ChangeSections()
{
    u91Trace::Trace("ChangeSections");
    // Away from another worksheet this shows the Introduction once, and vsTab1_Click shows it again.
    if (!m_vsTab2->SetCurrTab(1)) return false;
    MainWindow().SectionMenu_Check(gCurrentSection);
    SetWorksheetCaptions();
    return true;
}

void frm02Tabs::SetWorksheetCaptions()
{
    m_vsTab2->SetCaptions(WorksheetCaptions(gCurrentSection));
    MainWindow().SetWorksheetMenu(gCurrentSection);
}

bool frm02Tabs::vsTab2_Switch(int newTab)
{
    u91Trace::TraceStart("switch to worksheet " + std::to_string(newTab));
    if (!a3VEXAforms::UpdateBeforeLeaving()) return false;
    a3VEXAforms::UnloadCurrentWorksheet();
    return true;
}

void frm02Tabs::vsTab2_Click()
{
    {
        const Disabled disabled(*this);
        a3VEXAforms::DisplayWorksheet(m_vsTab2->CurrTab());
    }
    u91Trace::TraceFinished("switching worksheets");
}

int frm02Tabs::StripHeight() const
{
    return std::max(Theme::Pixels(kHeight), m_vsTab1->sizeHint().height() + m_vsTab2->sizeHint().height());
}

void frm02Tabs::resizeEvent(QResizeEvent*)
{
    const int upper = height() / 2;
    m_vsTab1->setGeometry(0, 0, width(), upper);
    const bool wide = Theme::Twips(width()) > kNarrower + 1;
    m_vsTab2->setGeometry(
        0, upper, wide ? width() - Theme::Pixels(kNarrower) : m_vsTab2->width(), height() - upper);
}

void frm02Tabs::paintEvent(QPaintEvent*)
{
    // Beside the narrower strip.
    QPainter painter(this);
    painter.fillRect(rect(), Theme::StripGround(palette()));
    painter.setPen(Theme::Rule(palette()));
    painter.drawLine(0, m_vsTab2->y(), width(), m_vsTab2->y());
}
