#include "platform/widgets/QtDesktop.h"

#include "platform/base/Texts.h"
#include "platform/widgets/Printing.h"
#include "platform/widgets/RecentDocuments.h"
#include "platform/widgets/Theme.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>

#include <utility>

namespace platform {

namespace {

/// While a box stands the pointer is the plain one.
class PlainPointer
{
public:
    explicit PlainPointer(bool hourglass) : m_hourglass(hourglass)
    {
        if (m_hourglass) QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;
    ~PlainPointer()
    {
        if (m_hourglass) QApplication::restoreOverrideCursor();
    }

private:
    bool m_hourglass;
};

/// The buttons of a box, in their order. The last one is what Escape and closing the box answer.
std::vector<Answer> AnswersOf(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok: return {Answer::Ok};
    case Buttons::OkCancel: return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo: return {Answer::Yes, Answer::No};
    case Buttons::StayLeave: return {Answer::Leave, Answer::Stay};
    }
    return {Answer::Ok};
}

QPushButton* AddButton(QMessageBox& box, Answer answer)
{
    switch (answer) {
    case Answer::Ok: return box.addButton(QMessageBox::Ok);
    case Answer::Cancel: return box.addButton(QMessageBox::Cancel);
    case Answer::Yes: return box.addButton(QMessageBox::Yes);
    case Answer::No: return box.addButton(QMessageBox::No);
    case Answer::Stay: return box.addButton(QStringLiteral("Stay"), QMessageBox::RejectRole);
    case Answer::Leave:
        return box.addButton(QStringLiteral("Leave without saving"), QMessageBox::DestructiveRole);
    }
    return nullptr;
}

QMessageBox::Icon IconOf(Icon icon)
{
    switch (icon) {
    case Icon::Stop: return QMessageBox::Critical;
    case Icon::Question: return QMessageBox::Question;
    case Icon::None: break;
    }
    return QMessageBox::NoIcon;
}

/// "Captions|patterns|..." by turns as the dialog's own list of captions with patterns.
QStringList NameFilters(const std::string& filter)
{
    const QStringList parts = QString::fromStdString(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // "*.*" is every file here too, also one without a point.
        const QString pattern = parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
        const QString caption = parts[i].section(QLatin1String(" ("), 0, 0);
        filters.append(caption + QLatin1String(" (") + pattern + QLatin1Char(')'));
    }
    return filters;
}

void Prepare(QFileDialog& dialog, const FileRequest& request)
{
    const bool open = request.kind == FileRequest::Kind::Open;
    dialog.setAcceptMode(open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialog.setFileMode(open ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.asksBeforeReplacing);
    dialog.setNameFilters(NameFilters(request.filter));
    dialog.setDefaultSuffix(QString::fromStdString(request.extension));
    if (!request.fileName.empty()) dialog.selectFile(QString::fromStdString(request.fileName));
}

} // namespace

Answer QtDesktop::Show(const Message& message)
{
    const PlainPointer plain(m_hourglass);
    QMessageBox box(QApplication::activeWindow());
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(JoinLines(message.lines)));
    box.setWindowTitle(message.title.empty() ? m_programTitle : QString::fromStdString(message.title));
    box.setIcon(IconOf(message.icon));
    std::vector<std::pair<QPushButton*, Answer>> buttons;
    for (const Answer answer : AnswersOf(message.buttons)) {
        buttons.emplace_back(AddButton(box, answer), answer);
        if (answer == message.preset) box.setDefaultButton(buttons.back().first);
    }
    box.setEscapeButton(buttons.back().first);
    box.exec();
    for (const auto& [button, answer] : buttons) {
        if (box.clickedButton() == button) return answer;
    }
    return buttons.back().second;
}

std::optional<std::string> QtDesktop::AskFile(const FileRequest& request)
{
    const PlainPointer plain(m_hourglass);
    const QString folder = request.folder.empty() ? m_lastFolder : QString::fromStdString(request.folder);
    QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(request.title), folder);
    dialog.setObjectName(QStringLiteral("FileDialog"));
    Prepare(dialog, request);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    m_lastFolder = dialog.directory().absolutePath();
    return dialog.selectedFiles().constFirst().toStdString();
}

void QtDesktop::SetPointer(Pointer pointer)
{
    const bool hourglass = pointer == Pointer::Hourglass;
    if (hourglass == m_hourglass) return;
    m_hourglass = hourglass;
    if (hourglass) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void QtDesktop::LetEventsRun() { QCoreApplication::processEvents(); }

void QtDesktop::PrinterSetup()
{
    const PlainPointer plain(m_hourglass);
    Printing::SetUp(QApplication::activeWindow());
}

void QtDesktop::ShowHelp(const std::string& helpFile, int topic) { m_help.Show(helpFile, topic); }

bool QtDesktop::StartProgram(const std::string& program, const std::string& argument)
{
    const QStringList arguments =
        argument.empty() ? QStringList() : QStringList(QString::fromStdString(argument));
    return QProcess::startDetached(QString::fromStdString(program), arguments);
}

void QtDesktop::NoteRecentFile(const std::string& path)
{
    if (!QStandardPaths::isTestModeEnabled()) RecentDocuments().Note(QString::fromStdString(path));
}

int QtDesktop::ScreenWidth() { return Theme::Twips(QGuiApplication::primaryScreen()->geometry().width()); }
int QtDesktop::ScreenHeight() { return Theme::Twips(QGuiApplication::primaryScreen()->geometry().height()); }

} // namespace platform
