#include "worksheets/ModalForm.h"

#include "platform/base/Desktop.h"
#include "platform/widgets/HelpKey.h"
#include "platform/widgets/Theme.h"
#include "session/u21Display.h"
#include "session/u91Trace.h"
#include "worksheets/frm0_VEXA.h"

#include <exception>

namespace Theme = platform::Theme;

namespace {

constexpr double kShareOfMain = 2.0 / 3.0;

u21Display::Box BoxOf(const QRect& place)
{
    return {Theme::Twips(place.x()),
            Theme::Twips(place.y()),
            Theme::Twips(place.width()),
            Theme::Twips(place.height())};
}

} // namespace

ModalForm::ModalForm(const QString& name, int helpContextID, QWidget* parent) : QDialog(parent)
{
    setObjectName(name);
    platform::HelpKey::SetTopic(*this, helpContextID);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void ModalForm::BeginSetup(int width, int height)
{
    u91Trace::Trace(objectName().toStdString() + ".Setup");
    Form_Load(width, height);
}

void ModalForm::Form_Load(int width, int height)
{
    u91Trace::TraceLoad(objectName().toStdString());
    m_loaded = true;
    BuildControls();
    resize(QSize(Theme::Pixels(width), Theme::Pixels(height))
               .expandedTo(minimumSizeHint())
               .expandedTo(MainWindow().size() * kShareOfMain));
    CenterOnMain();
}

void ModalForm::CenterOnMain()
{
    const u21Display::Box centred =
        u21Display::CenterOnMain(BoxOf(geometry()), BoxOf(MainWindow().geometry()));
    setGeometry(QRect(QPoint(Theme::Pixels(centred.left), Theme::Pixels(centred.top)), size()));
}

void ModalForm::done(int result)
{
    if (m_loaded && !MayClose()) return;
    if (m_loaded) {
        m_loaded = false;
        Form_Unload();
        u91Trace::TraceUnload(objectName().toStdString());
    }
    QDialog::done(result);
}

bool ModalForm::MayClose()
{
    try {
        SaveChanges();
        return true;
    } catch (const std::exception& error) {
        u91Trace::TraceError(objectName().toStdString() + ".SaveChanges: " + error.what());
        platform::Message message;
        message.lines = {UnsavedText(error.what())};
        message.buttons = platform::Buttons::StayLeave;
        message.preset = platform::Answer::Stay;
        message.icon = platform::Icon::Stop;
        return platform::TheDesktop().Show(message) == platform::Answer::Leave;
    }
}
