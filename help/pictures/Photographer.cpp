#include "pictures/Photographer.h"

#include "model/c52OutcomeList.h"
#include "model/g51Alternatives.h"
#include "pictures/ChancePicture.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/TabStrip.h"
#include "worksheets/frm02Tabs.h"
#include "worksheets/frmPreview.h"

#include <QApplication>
#include <QDialog>
#include <QPainter>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr int kWidth = 800; // the first size of the window
constexpr int kHeight = 600;
const QColor kFrame(0x90, 0x90, 0x90);

/// A worksheet and the page it is shown on.
struct Place
{
    int section;
    int tab;
    const char* name;
};
constexpr Place kPlaces[] = {
    {2, 1, "introduction"},
    {2, 2, "general-information"},
    {2, 3, "conditions"},
    {3, 2, "safety-issues"},
    {3, 3, "describe-objectives"},
    {4, 2, "identify-alternatives"},
    {4, 3, "outcomes"},
    {4, 4, "probabilities"},
    {5, 2, "safety-ratings"},
    {5, 3, "objective-ratings"},
    {5, 4, "loss-analysis"},
    {5, 5, "cost-analysis"},
    {6, 2, "decision-tree"},
    {6, 3, "decision"},
    {7, 2, "topics"},
    {7, 3, "preview-and-print"},
};

} // namespace

void Photographer::TakeStart() { Take("start"); }

void Photographer::TakeWorksheets()
{
    frm0_VEXA& window = m_program.Window();
    for (const Place& place : kPlaces) {
        GoTo(place.section, place.tab);
        // The alternative with a Fallback, and an issue rather than their heading.
        if (auto* list = window.findChild<platform::ListBox*>(QStringLiteral("lstAlternatives")))
            list->SetListIndex(1);
        if (QByteArray(place.name) == "safety-issues")
            window.findChild<platform::Grid*>(QStringLiteral("Grid1"))->SetRow(2);
        Take(place.name);
    }
}

void Photographer::TakeDialogs()
{
    GoTo(5, 5);
    TakeDialog("cost-per-acre", "cmdSize");
    TakeDialog("resource-list", "cmdSRUse");
}

void Photographer::TakePreview()
{
    GoTo(7, 3);
    m_program.Window().findChild<QPushButton*>(QStringLiteral("cmdPreview"))->click();
    frmPreview* preview = frmPreview::Loaded();
    if (preview == nullptr) {
        m_allWritten = false;
        return;
    }
    preview->resize(kWidth, kHeight);
    TakeFrom(*preview, "print-preview");
    frmPreview::Unload();
}

void Photographer::TakeChances()
{
    for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
        if (!alternative->Outcome(c52OutcomeList::Fallback)->bShow()) continue;
        Save(ChancePicture(*alternative, false), QStringLiteral("chances"));
        Save(ChancePicture(*alternative, true), QStringLiteral("chances-dark"));
        return;
    }
    m_allWritten = false;
}

void Photographer::GoTo(int section, int tab)
{
    frm02Tabs& tabs = *m_program.Window().Tabs();
    tabs.vsTab1().SetCurrTab(section);
    tabs.vsTab2().SetCurrTab(tab);
}

void Photographer::Take(const char* name)
{
    m_program.Window().resize(kWidth, kHeight);
    TakeFrom(m_program.Window(), name);
}

void Photographer::TakeFrom(QWidget& window, const char* name)
{
    QApplication::processEvents();
    QImage picture = window.grab().toImage();
    QPainter painter(&picture);
    painter.setPen(kFrame);
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    painter.end();
    Save(picture, QString::fromUtf8(name));
}

void Photographer::TakeDialog(const char* name, const char* button)
{
    QTimer::singleShot(0, &m_program.Window(), [this, name] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        TakeFrom(*dialog, name);
        dialog->reject();
    });
    m_program.Window().findChild<QPushButton*>(QString::fromUtf8(button))->click();
}

void Photographer::Save(const QImage& picture, const QString& name)
{
    if (!picture.save(m_folder + QLatin1Char('/') + name + QStringLiteral(".png"))) m_allWritten = false;
}
