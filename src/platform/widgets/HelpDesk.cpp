#include "platform/widgets/HelpDesk.h"

#include "platform/base/Desktop.h"
#include "platform/widgets/HelpFile.h"
#include "platform/widgets/HelpWindow.h"

#include <QApplication>
#include <QFileInfo>

namespace platform {

namespace {

std::unique_ptr<HelpFile> OpenSaying(const QFileInfo& file)
{
    const std::string name = file.fileName().toStdString();
    const std::string folder = file.absolutePath().toStdString();
    if (!file.exists()) {
        ShowMessage({"The help file " + name + " is missing.", "It belongs into the folder " + folder + "."});
        return nullptr;
    }
    const Hourglass hourglass;
    std::unique_ptr<HelpFile> help = HelpFile::Open(file.absoluteFilePath());
    if (help == nullptr) {
        ShowMessage({"The help file " + name + " cannot be read.",
                     "Put the one that came with the program into the folder " + folder + "."});
    }
    return help;
}

} // namespace

HelpDesk::HelpDesk() = default;

HelpDesk::~HelpDesk() = default;

void HelpDesk::Show(const std::string& helpFile, int topic)
{
    if (m_window == nullptr) {
        std::unique_ptr<HelpFile> file = OpenSaying(QFileInfo(QString::fromStdString(helpFile)));
        if (file == nullptr) return;
        m_window = std::make_unique<HelpWindow>(std::move(file));
    }
    m_window->ShowTopic(topic);
}

} // namespace platform
