#include "vexa/Program.h"

#include "common/ConnectConversions.h"
#include "common/ConnectStores.h"
#include "session/SessionState.h"
#include "worksheets/ConnectScreens.h"

Program::Program() : m_desktop(QString::fromUtf8(kProgramTitle))
{
    platform::SetDesktop(&m_desktop);
    ConnectStores();
    ConnectConversions();
    ConnectScreens(m_window);
}

Program::~Program() = default;

void Program::Start(const std::string& commandLine)
{
    m_window.MDIForm_Load(commandLine);
    m_window.ShowAsFitted();
}
