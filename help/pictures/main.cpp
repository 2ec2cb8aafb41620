// vexa-help-pictures FIRE PROGRAM_FOLDER FOLDER: the pictures of the help, taken without a display from the
// program as it is built, with a copy of a sample fire opened in it. They are the same at every run.

#include "pictures/Photographer.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/Theme.h"
#include "session/a1VEXA.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>

namespace {

/// A program folder of its own, so that no log and no user's words lie in that of the build.
bool FillProgramFolder(const QTemporaryDir& home, const QString& fire, const QString& programFolder)
{
    return home.isValid() && QFile::copy(fire, home.filePath(QStringLiteral("Smith Creek.qel"))) &&
           QFile::copy(programFolder + QStringLiteral("/Custom.dct"),
                       home.filePath(QStringLiteral("Custom.dct")));
}

bool TakeAll(Photographer& photographer, Program& program, const QString& fire)
{
    program.Start("");
    photographer.TakeStart();
    a1VEXA::StartWithFile(fire.toStdString());
    if (program.Window().Tabs() == nullptr) return false;
    photographer.TakeWorksheets();
    photographer.TakeDialogs();
    photographer.TakePreview();
    photographer.TakeChances();
    program.Window().close();
    return photographer.AllWritten();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fputs("usage: vexa-help-pictures FIRE PROGRAM_FOLDER FOLDER\n", stderr);
        return 2;
    }
    const QTemporaryDir home;
    if (!FillProgramFolder(home, QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]))) {
        std::fputs("vexa-help-pictures: the fire or the words cannot be copied\n", stderr);
        return 1;
    }
    // The same light windows wherever it is built.
    qputenv("VEXA_HOME", home.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("GTK_THEME", "light");
    QStandardPaths::setTestModeEnabled(true); // the fire is no document that a user opened
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    QApplication::setCursorFlashTime(0); // the caret is seen in every picture
    Program program;
    const QString folder = QString::fromLocal8Bit(argv[3]);
    QDir().mkpath(folder);
    Photographer photographer(program, folder);
    if (TakeAll(photographer, program, home.filePath(QStringLiteral("Smith Creek.qel")))) return 0;
    std::fputs("vexa-help-pictures: not every picture could be taken\n", stderr);
    return 1;
}
