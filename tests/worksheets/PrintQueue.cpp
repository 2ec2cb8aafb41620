#include "worksheets/PrintQueue.h"

#include "support/TempFolder.h"

#include <QLibrary>
#include <QStandardPaths>
#include <QThread>
#include <sys/socket.h>
#include <unistd.h>

#include <arpa/inet.h>
#include <filesystem>
#include <netinet/in.h>

namespace fs = std::filesystem;

namespace {

constexpr int kTries = 200; // of 50 ms each
constexpr unsigned long kPause = 50;

/// A port that nothing listens on.
int FreePort()
{
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* any = reinterpret_cast<sockaddr*>(&address);
    ::bind(socket, any, size);
    ::getsockname(socket, any, &size);
    ::close(socket);
    return ntohs(address.sin_port);
}

QString ProgramPath(const char* name)
{
    const QString program = QString::fromUtf8(name);
    const QString found = QStandardPaths::findExecutable(program);
    return found.isEmpty() ? QStandardPaths::findExecutable(program, {QStringLiteral("/usr/sbin")}) : found;
}

/// The service that this thread talks to: the library asks the environment once only.
void TalkTo(const std::string& server)
{
    qputenv("CUPS_SERVER", QByteArray::fromStdString(server));
    QLibrary library(QStringLiteral("cups"), 2);
    if (auto* set = reinterpret_cast<void (*)(const char*)>(library.resolve("cupsSetServer")))
        set(server.c_str());
}

std::string Sizes(const char* keyword, const std::string& paper)
{
    std::string text =
        std::string("*OpenUI *") + keyword + ": PickOne\n*Default" + keyword + ": " + paper + "\n";
    for (const char* size :
         {"Letter: \"<</PageSize[612 792]", "A4: \"<</PageSize[595 842]", "Legal: \"<</PageSize[612 1008]"})
        text += std::string("*") + keyword + " " + size + ">>setpagedevice\"\n";
    return text + "*CloseUI: *" + keyword + "\n";
}

/// What the service is told of a printer that takes PDF as it is.
std::string Description(const std::string& paper)
{
    return "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
           "*LanguageEncoding: ISOLatin1\n*PCFileName: \"TEST.PPD\"\n*Manufacturer: \"Test\"\n"
           "*Product: \"(Test)\"\n*ModelName: \"Test\"\n*ShortNickName: \"Test\"\n*NickName: \"Test\"\n"
           "*PSVersion: \"(3010.000) 0\"\n*LanguageLevel: \"3\"\n*ColorDevice: True\n"
           "*DefaultColorSpace: RGB\n*FileSystem: False\n*cupsManualCopies: True\n"
           "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n" +
           Sizes("PageSize", paper) + Sizes("PageRegion", paper) + "*DefaultImageableArea: " + paper +
           "\n*ImageableArea Letter: \"18 18 594 774\"\n*ImageableArea A4: \"18 18 577 824\"\n"
           "*ImageableArea Legal: \"18 18 594 990\"\n*DefaultPaperDimension: " +
           paper +
           "\n*PaperDimension Letter: \"612 792\"\n*PaperDimension A4: \"595 842\"\n"
           "*PaperDimension Legal: \"612 1008\"\n*DefaultResolution: 600dpi\n";
}

} // namespace

PrintQueue::PrintQueue(const std::string& folder) : m_folder(folder)
{
    m_server = "127.0.0.1:" + std::to_string(FreePort());
    for (const char* name : {"cupsd", "lpadmin", "lpstat"}) {
        if (ProgramPath(name).isEmpty()) return;
    }
    WriteSettings();
    Start();
}

PrintQueue::~PrintQueue() { End(); }

void PrintQueue::WriteSettings() const
{
    // Its filters run as a user of less rights.
    fs::permissions(m_folder, fs::perms(0755));
    std::string files;
    for (const char* place : {"ServerRoot", "CacheDir", "StateDir", "RequestRoot", "TempDir", "Printed"}) {
        fs::create_directories(fs::path(m_folder) / place);
        if (std::string(place) != "Printed")
            files += std::string(place) + " " + m_folder + "/" + place + "\n";
    }
    for (const char* log : {"AccessLog", "ErrorLog", "PageLog"})
        files += std::string(log) + " " + m_folder + "/" + log + "\n";
    support::WriteFile(m_folder + "/files.conf", files + "FileDevice Yes\nPrintcap\n");
    support::WriteFile(m_folder + "/service.conf",
                       "Listen " + m_server +
                           "\nBrowsing No\nWebInterface No\nDefaultAuthType None\n<Location />\nAllow all\n"
                           "</Location>\n<Policy default>\n<Limit All>\nOrder deny,allow\nAllow all\n"
                           "</Limit>\n</Policy>\n");
}

void PrintQueue::Start()
{
    TalkTo(m_server);
    m_service = std::make_unique<QProcess>();
    const QString folder = QString::fromStdString(m_folder);
    m_service->start(ProgramPath("cupsd"),
                     {QStringLiteral("-f"),
                      QStringLiteral("-c"),
                      folder + QStringLiteral("/service.conf"),
                      QStringLiteral("-s"),
                      folder + QStringLiteral("/files.conf")});
    for (int attempt = 0; !m_runs && attempt < kTries && m_service->state() != QProcess::NotRunning;
         ++attempt) {
        QThread::msleep(kPause);
        m_runs = Output("lpstat", {QStringLiteral("-r")}).contains(QStringLiteral("is running"));
    }
}

void PrintQueue::End()
{
    if (m_service == nullptr) return;
    m_service->terminate();
    m_service->waitForFinished();
    m_service.reset();
    TalkTo("/nowhere/cups.sock");
}

void PrintQueue::AddPrinter(const std::string& name, const std::string& paper)
{
    const std::string description = m_folder + "/" + name + ".ppd";
    support::WriteFile(description, Description(paper));
    const QString printer = QString::fromStdString(name);
    const QString device =
        QStringLiteral("file://") + QString::fromStdString(m_folder) + QStringLiteral("/Printed/");
    const bool added = Command("lpadmin",
                               {QStringLiteral("-p"),
                                printer,
                                QStringLiteral("-E"),
                                QStringLiteral("-v"),
                                device + printer,
                                QStringLiteral("-P"),
                                QString::fromStdString(description),
                                QStringLiteral("-o"),
                                QStringLiteral("PageSize=") + QString::fromStdString(paper)});
    if (!added) m_runs = false;
}

void PrintQueue::MakeDefault(const std::string& name)
{
    Command("lpadmin", {QStringLiteral("-d"), QString::fromStdString(name)});
}

void PrintQueue::Reject(const std::string& name) { Command("cupsreject", {QString::fromStdString(name)}); }

void PrintQueue::Accept(const std::string& name) { Command("cupsaccept", {QString::fromStdString(name)}); }

std::string PrintQueue::Printed(const std::string& printer) const
{
    for (int attempt = 0; attempt < kTries; ++attempt) {
        if (Output("lpstat", {QStringLiteral("-o")}).trimmed().isEmpty()) break;
        QThread::msleep(kPause);
    }
    const std::string path = m_folder + "/Printed/" + printer;
    return fs::exists(path) ? path : std::string();
}

bool PrintQueue::Command(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(ProgramPath(program), arguments);
    return process.waitForFinished() && process.exitCode() == 0;
}

QString PrintQueue::Output(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(ProgramPath(program), arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}
