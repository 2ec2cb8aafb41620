#include "platform/widgets/QtDesktop.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <fstream>

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::Message;

namespace {

class QtDesktopTest : public ::testing::Test
{
protected:
    QtDesktopTest() { platform::SetDesktop(&desktop); }
    ~QtDesktopTest() override { platform::SetDesktop(nullptr); }

    /// Looks at the next box and ends it with a key.
    template <class Look> Answer Show(const Message& message, Qt::Key key, Look look)
    {
        bool seen = false;
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            seen = true;
            look(*box);
            QTest::keyClick(box->defaultButton(), key);
        });
        const Answer answer = desktop.Show(message);
        EXPECT_TRUE(seen);
        return answer;
    }
    Answer Show(const Message& message, Qt::Key key)
    {
        return Show(message, key, [](const QMessageBox&) {});
    }
    /// Types a name into the next file dialog and presses a button of it.
    void AnswerFileDialog(const QString& name, QDialogButtonBox::StandardButton button)
    {
        QTimer::singleShot(0, [this, name, button] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            title = dialog->windowTitle();
            folder = dialog->directory().absolutePath();
            filters = dialog->nameFilters();
            auto* line = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            offered = line->text();
            line->setText(name);
            QTest::mouseClick(
                dialog->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"))->button(button),
                Qt::LeftButton);
        });
    }

    platform::QtDesktop desktop{QStringLiteral("VEXA Basic")};
    QTemporaryDir temporary;
    QString title;
    QString folder;
    QString offered;
    QStringList filters;
};

TEST_F(QtDesktopTest, PlainBox_ProgramTitleLinesAndNoIcon)
{
    Message message;
    message.lines = {"First <b>line</b> & more", "", "Third"};
    Show(message, Qt::Key_Return, [](const QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("VEXA Basic"));
        EXPECT_EQ(box.text(), QStringLiteral("First <b>line</b> & more\n\nThird"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(box.buttons().size(), 1);
    });
}

TEST_F(QtDesktopTest, DeleteQuestion_StopIconOwnTitleAndNoByDefault)
{
    Message message;
    message.lines = {"Do you really want to delete this?"};
    message.title = "Delete";
    message.buttons = Buttons::YesNo;
    message.preset = Answer::No;
    message.icon = Icon::Stop;
    const Answer answer = Show(message, Qt::Key_Return, [](const QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Delete"));
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
    });
    EXPECT_EQ(answer, Answer::No);
}

TEST_F(QtDesktopTest, Escape_TheAnswerThatChangesNothing)
{
    Message message;
    message.lines = {"Question"};
    message.buttons = Buttons::YesNo;
    message.preset = Answer::Yes;
    EXPECT_EQ(Show(message, Qt::Key_Escape), Answer::No);
    EXPECT_EQ(Show(message, Qt::Key_Return), Answer::Yes);
    message.buttons = Buttons::OkCancel;
    message.preset = Answer::Ok;
    EXPECT_EQ(Show(message, Qt::Key_Escape), Answer::Cancel);
    message.buttons = Buttons::StayLeave;
    message.preset = Answer::Stay;
    EXPECT_EQ(Show(message, Qt::Key_Escape), Answer::Stay);
    EXPECT_EQ(Show(message, Qt::Key_Return), Answer::Stay);
}

TEST_F(QtDesktopTest, StayOrLeave_SaysWhatLeavingMeans)
{
    Message message;
    message.lines = {"Question"};
    message.buttons = Buttons::StayLeave;
    message.preset = Answer::Stay;
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        for (QAbstractButton* button : box->buttons()) {
            if (button->text() == QLatin1String("Leave without saving")) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        FAIL() << "no such button";
    });
    EXPECT_EQ(desktop.Show(message), Answer::Leave);
}

TEST_F(QtDesktopTest, BoxUnderTheHourglass_PlainPointerMeanwhile)
{
    desktop.SetPointer(platform::Pointer::Hourglass);
    desktop.SetPointer(platform::Pointer::Hourglass);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Message message;
    message.lines = {"Line"};
    Show(message, Qt::Key_Return, [](const QMessageBox&) {
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    });
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.SetPointer(platform::Pointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

platform::FileRequest Request(platform::FileRequest::Kind kind, const QString& folder)
{
    platform::FileRequest request;
    request.kind = kind;
    request.title = "Create new VEXA Plus file";
    request.folder = folder.toStdString();
    request.extension = "qel";
    request.fileName = kind == platform::FileRequest::Kind::Save ? "Fire1.qel" : "";
    request.filter = "VEXA Plus files (*.qel)|*.qel|All Files (*.*)|*.*";
    return request;
}

TEST_F(QtDesktopTest, SaveDialog_ItsSettingsAndTheExtensionAdded)
{
    AnswerFileDialog(QStringLiteral("Other"), QDialogButtonBox::Save);
    const auto path = desktop.AskFile(Request(platform::FileRequest::Kind::Save, temporary.path()));
    EXPECT_EQ(title, QStringLiteral("Create new VEXA Plus file"));
    EXPECT_EQ(folder, temporary.path());
    EXPECT_EQ(offered, QStringLiteral("Fire1.qel"));
    EXPECT_EQ(filters,
              QStringList({QStringLiteral("VEXA Plus files (*.qel)"), QStringLiteral("All Files (*)")}));
    EXPECT_EQ(path, temporary.filePath(QStringLiteral("Other.qel")).toStdString());
}

TEST_F(QtDesktopTest, SaveDialogOnAFileThatExists_DoesNotAskItself)
{
    std::ofstream(temporary.filePath(QStringLiteral("Old.qel")).toStdString()) << "x";
    AnswerFileDialog(QStringLiteral("Old.qel"), QDialogButtonBox::Save);
    const auto path = desktop.AskFile(Request(platform::FileRequest::Kind::Save, temporary.path()));
    EXPECT_EQ(path, temporary.filePath(QStringLiteral("Old.qel")).toStdString());
}

TEST_F(QtDesktopTest, DialogCancelled_Nothing)
{
    AnswerFileDialog(QString(), QDialogButtonBox::Cancel);
    EXPECT_EQ(desktop.AskFile(Request(platform::FileRequest::Kind::Open, temporary.path())), std::nullopt);
}

TEST_F(QtDesktopTest, NoFolder_WhereTheLastDialogWasLeft)
{
    AnswerFileDialog(QStringLiteral("Other"), QDialogButtonBox::Save);
    desktop.AskFile(Request(platform::FileRequest::Kind::Save, temporary.path()));
    AnswerFileDialog(QString(), QDialogButtonBox::Cancel);
    desktop.AskFile(Request(platform::FileRequest::Kind::Save, QString()));
    EXPECT_EQ(folder, temporary.path());
}

TEST_F(QtDesktopTest, HelpFileMissing_SaysSo)
{
    QString text;
    QTimer::singleShot(0, [&text] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        text = box->text();
        box->accept();
    });
    desktop.ShowHelp(temporary.filePath(QStringLiteral("VEXAPlus.hlp")).toStdString(), 4210);
    EXPECT_EQ(text,
              QStringLiteral("The help file VEXAPlus.hlp is missing.\nIt belongs into the folder %1.")
                  .arg(temporary.path()));
}

TEST_F(QtDesktopTest, ProgramThatIsNotThere_CannotBeStarted)
{
    EXPECT_FALSE(desktop.StartProgram(temporary.filePath(QStringLiteral("none")).toStdString(), ""));
    EXPECT_TRUE(desktop.StartProgram("/bin/true", ""));
}

TEST_F(QtDesktopTest, Screen_InTwips)
{
    EXPECT_EQ(desktop.ScreenWidth(), 800 * 15);
    EXPECT_EQ(desktop.ScreenHeight(), 800 * 15);
}

} // namespace
