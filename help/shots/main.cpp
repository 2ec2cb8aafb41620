// helpshots FILE FOLDER [WIDTH HEIGHT]: the help window with each page of a help file as pictures, light and
// dark, to be looked at after a change. Runs without a display.

#include "platform/widgets/Application.h"
#include "platform/widgets/HelpFile.h"
#include "platform/widgets/HelpWindow.h"
#include "platform/widgets/Theme.h"

#include <QAction>
#include <QHelpEngine>
#include <QLineEdit>
#include <QTabWidget>
#include <QTextBrowser>

#include <cstdio>

namespace {

constexpr int kReading = 20; // milliseconds, until the contents are there

void Save(QWidget& window, const QString& name)
{
    for (int wait = 0; wait < kReading; ++wait)
        QApplication::processEvents(QEventLoop::AllEvents, 1);
    window.grab().save(name);
}

/// Index, search with its results, and the find bar.
void TakeTabs(QWidget& window, const QString& folder)
{
    auto* tabs = window.findChild<QTabWidget*>(QStringLiteral("HelpTabs"));
    tabs->setCurrentIndex(1);
    Save(window, folder + QStringLiteral("/tab-index.png"));
    tabs->setCurrentIndex(2);
    auto* words = window.findChild<QLineEdit*>(QStringLiteral("txtSearch"));
    words->setText(QStringLiteral("extreme outcome"));
    Q_EMIT words->returnPressed();
    window.findChild<QAction*>(QStringLiteral("cmdFind"))->trigger();
    Save(window, folder + QStringLiteral("/tab-search.png"));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("usage: helpshots FILE FOLDER [WIDTH HEIGHT]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    auto file = platform::HelpFile::Open(QString::fromLocal8Bit(argv[1]));
    if (file == nullptr) return 1;
    const QList<QUrl> pages =
        file->Engine().files(QStringLiteral("vexa.basic.help"), QStringList(), QStringLiteral("html"));
    platform::HelpWindow window(std::move(file));
    if (argc >= 5) window.resize(QByteArray(argv[3]).toInt(), QByteArray(argv[4]).toInt());
    window.ShowTopic(0);
    const QPalette light = QGuiApplication::palette();
    for (const bool dark : {false, true}) {
        if (dark) QApplication::setPalette(platform::Theme::WithAccent(platform::Theme::DarkPalette()));
        for (const QUrl& page : pages) {
            window.findChild<QTextBrowser*>(QStringLiteral("HelpPage"))->setSource(page);
            const QString name = page.fileName().section(QLatin1Char('.'), 0, 0);
            Save(window,
                 QStringLiteral("%1/%2%3.png")
                     .arg(QString::fromLocal8Bit(argv[2]), name, dark ? QStringLiteral("-dark") : QString()));
        }
    }
    QApplication::setPalette(light);
    TakeTabs(window, QString::fromLocal8Bit(argv[2]));
    return 0;
}
