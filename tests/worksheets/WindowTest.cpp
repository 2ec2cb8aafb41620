#include "worksheets/WindowTest.h"

#include "platform/widgets/TabStrip.h"
#include "session/SessionState.h"
#include "worksheets/ConnectScreens.h"
#include "worksheets/Worksheet.h"
#include "worksheets/a3VEXAforms.h"
#include "worksheets/frm02Tabs.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <stdexcept>

using platform::TabStrip;

WindowTest::WindowTest() : window(std::make_unique<frm0_VEXA>()) { ConnectScreens(*window); }

WindowTest::~WindowTest() = default;

void WindowTest::Start(const std::string& commandLine)
{
    window->MDIForm_Load(commandLine);
    window->ShowAsFitted();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

void WindowTest::StartWithSample(const std::string& name, const std::string& sql)
{
    path = CopySample(name, sql);
    Start(path);
    ASSERT_TRUE(gDatabaseOpen);
}

void WindowTest::StartWithNewFile(const std::string& sql)
{
    path = MakeFile(sql);
    Start(path);
    ASSERT_TRUE(gDatabaseOpen);
}

QAction* WindowTest::Entry(const char* menu, int number)
{
    const QString name = QStringLiteral("%1_%2").arg(QString::fromUtf8(menu)).arg(number);
    return Find<QAction>(name.toUtf8().constData());
}

void WindowTest::Pick(const char* menu, int number)
{
    ASSERT_TRUE(Menu(menu)->isEnabled()) << menu;
    QAction* entry = Entry(menu, number);
    ASSERT_TRUE(entry->isEnabled() && entry->isVisible()) << menu << ' ' << number;
    entry->trigger();
}

void WindowTest::Press(const char* button)
{
    QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton);
    QCoreApplication::processEvents();
}

TabStrip& WindowTest::Sections() { return *Find<TabStrip>("vsTab1"); }
TabStrip& WindowTest::Worksheets() { return *Find<TabStrip>("vsTab2"); }

void WindowTest::ClickTab(TabStrip& strip, int number)
{
    const int index = strip.IndexOf(number);
    ASSERT_GE(index, 0) << number;
    QTest::mouseClick(&strip, Qt::LeftButton, {}, strip.tabRect(index).center());
}

void WindowTest::GoTo(int section, int tab)
{
    ClickTab(Sections(), section);
    ClickTab(Worksheets(), tab);
}

Worksheet& WindowTest::Shown()
{
    Worksheet* shown = a3VEXAforms::CurrentWorksheet();
    if (shown == nullptr) throw std::logic_error("no worksheet is shown");
    return *shown;
}

std::string WindowTest::LabelText(const char* label)
{
    const auto* found = Shown().findChild<QLabel*>(QString::fromUtf8(label));
    return found == nullptr ? "no label " + std::string(label) : found->text().toStdString();
}

std::vector<std::string> WindowTest::LabelTexts()
{
    std::vector<std::string> texts;
    for (const QLabel* label : Shown().findChildren<QLabel*>())
        texts.push_back(label->text().toStdString());
    return texts;
}

void WindowTest::ExpectReport(const std::string& cause)
{
    desktop.ExpectText(
        {"Something went wrong: " + cause + ".", "You can go on working; what was saved before is safe."});
}

void WindowTest::ExpectDelete(const std::string& what, platform::Answer answer)
{
    platform::Message message;
    message.title = "Delete";
    message.lines = {"Do you really want to delete " + what};
    message.buttons = platform::Buttons::YesNo;
    message.preset = platform::Answer::No;
    message.icon = platform::Icon::Stop;
    desktop.Expect(message, answer);
}

void WindowTest::ExpectStayOrLeave(const std::string& sentence, platform::Answer answer)
{
    platform::Message message;
    message.lines = {sentence};
    message.buttons = platform::Buttons::StayLeave;
    message.preset = platform::Answer::Stay;
    message.icon = platform::Icon::Stop;
    desktop.Expect(message, answer);
}

std::vector<std::string> WindowTest::Lines() const
{
    std::vector<std::string> lines;
    for (const std::string& line : LogLines()) {
        if (!line.empty() && line.find("frm0_VEXA_Resize") == std::string::npos) lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> WindowTest::NewLines() const
{
    const std::vector<std::string> lines = Lines();
    return {lines.begin() + static_cast<std::ptrdiff_t>(m_marked), lines.end()};
}

void WindowTest::Reopen(platform::Database::Mode mode)
{
    gProperties.reset();
    gDatabase.reset();
    gDatabase = std::make_unique<platform::Database>(path, mode);
    gProperties = std::make_unique<platform::Recordset>(gDatabase->OpenTable("Properties"));
}
