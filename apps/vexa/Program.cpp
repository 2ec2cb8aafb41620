#include "vexa/Program.h"

#include "common/ConnectConversions.h"
#include "common/ConnectStores.h"
#include "reports/ReportUtilities.h"
#include "session/SessionState.h"
#include "worksheets/ConnectScreens.h"
#include "worksheets/frmPreview.h"

Program::Program() : m_desktop(QString::fromUtf8(kProgramTitle)), m_progress(m_window)
{
    platform::SetDesktop(&m_desktop);
    ConnectStores();
    ConnectConversions();
    ConnectScreens(m_window);
}

Program::~Program()
{
    frmPreview::Unload();
    ReportUtilities::EndReports();
}

void Program::Start(const std::string& commandLine)
{
    m_window.MDIForm_Load(commandLine);
    m_window.ShowAsFitted();
}
