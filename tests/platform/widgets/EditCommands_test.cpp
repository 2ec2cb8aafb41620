#include "platform/widgets/EditCommands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTextEdit>
#include <gtest/gtest.h>

namespace EditCommands = platform::EditCommands;

namespace {

class EditCommandsTest : public ::testing::Test
{
protected:
    EditCommandsTest() { SetClipboard("before"); }
    static void SetClipboard(const char* text)
    {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
    }
    static std::string Clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
};

TEST_F(EditCommandsTest, NothingOrAButton_NothingHappens)
{
    QPushButton button;
    for (QWidget* control : {static_cast<QWidget*>(nullptr), static_cast<QWidget*>(&button)}) {
        EditCommands::Cut(control);
        EditCommands::Copy(control);
        EditCommands::Paste(control);
    }
    EXPECT_EQ(Clipboard(), "before");
}

TEST_F(EditCommandsTest, TextBoxWithEmptyClipboard_PasteRemovesTheSelection)
{
    QLineEdit box(QStringLiteral("abc"));
    box.setSelection(1, 1);
    SetClipboard("");
    EditCommands::Paste(&box);
    EXPECT_EQ(box.text(), QStringLiteral("ac"));
}

TEST_F(EditCommandsTest, TextBoxForReading_CopiesAndChangesNothing)
{
    QLineEdit box(QStringLiteral("abc"));
    box.setReadOnly(true);
    box.selectAll();
    EditCommands::Cut(&box);
    EditCommands::Paste(&box);
    EXPECT_EQ(Clipboard(), "abc");
    EXPECT_EQ(box.text(), QStringLiteral("abc"));
}

TEST_F(EditCommandsTest, BoxOfSeveralLines_CutAndPaste)
{
    QPlainTextEdit box(QStringLiteral("one\ntwo"));
    box.selectAll();
    EditCommands::Cut(&box);
    EXPECT_EQ(Clipboard(), "one\ntwo");
    EXPECT_EQ(box.toPlainText(), QString());
    EditCommands::Paste(&box);
    EXPECT_EQ(box.toPlainText(), QStringLiteral("one\ntwo"));
    EditCommands::Cut(&box); // nothing selected
    EXPECT_EQ(Clipboard(), "one\ntwo");
}

TEST_F(EditCommandsTest, RichText_ClipsItself)
{
    QTextEdit box;
    box.setHtml(QStringLiteral("<b>bold</b>"));
    box.selectAll();
    EditCommands::Cut(&box);
    EXPECT_EQ(box.toPlainText(), QString());
    EditCommands::Paste(&box);
    EXPECT_EQ(box.toPlainText(), QStringLiteral("bold"));
    EXPECT_TRUE(box.toHtml().contains(QLatin1String("font-weight")));
}

TEST_F(EditCommandsTest, Grid_CopiesCellsAndCutsTheEditableOnes)
{
    QTableWidget grid(2, 2);
    const char* texts[] = {"a", "b", "c", "d"};
    for (int i = 0; i < 4; ++i)
        grid.setItem(i / 2, i % 2, new QTableWidgetItem(QString::fromUtf8(texts[i])));
    grid.item(0, 0)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    grid.selectAll();
    EditCommands::Copy(grid.viewport());
    EXPECT_EQ(Clipboard(), "a\tb\nc\td");
    EditCommands::Cut(&grid);
    EXPECT_EQ(grid.item(0, 0)->text(), QStringLiteral("a"));
    EXPECT_EQ(grid.item(1, 1)->text(), QString());
    EditCommands::Paste(&grid); // no cell is being edited
    EXPECT_EQ(grid.item(1, 1)->text(), QString());
}

} // namespace
