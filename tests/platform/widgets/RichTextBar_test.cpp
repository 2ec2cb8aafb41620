#include "RichTextFixture.h"
#include "platform/widgets/RichTextBar.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>

namespace {

using RichTextBar = RichTextFixture;

TEST_F(RichTextBar, EveryControl_HasANameAndAToolTip)
{
    for (const QWidget* child : Find<QWidget>("TXButtonBar1").findChildren<QWidget*>()) {
        const auto* button = qobject_cast<const QToolButton*>(child);
        if (button == nullptr) continue;
        if (button->objectName().startsWith(QLatin1String("cmd"))) {
            auto* seen = QAccessible::queryAccessibleInterface(const_cast<QToolButton*>(button));
            EXPECT_FALSE(seen->text(QAccessible::Name).isEmpty()) << button->objectName().toStdString();
            EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
        }
    }
    EXPECT_EQ(Find<QToolButton>("cmdBold").toolTip(), QStringLiteral("Bold (Ctrl+B)"));
    EXPECT_EQ(Find<QToolButton>("cmdRedo").toolTip(), QStringLiteral("Redo (Ctrl+Y)"));
    for (const char* box : {"cboFont", "cboSize"}) {
        const auto relations = QAccessible::queryAccessibleInterface(&Find<QComboBox>(box))->relations();
        EXPECT_FALSE(relations.isEmpty()) << box;
    }
}

TEST_F(RichTextBar, Click_LeavesTheFocusInTheText)
{
    QTest::mouseClick(&Find<QToolButton>("cmdBold"), Qt::LeftButton);
    EXPECT_TRUE(body.hasFocus());
    Type("b");
    EXPECT_EQ(Stored(), "\\pard \\b b\\b0\\par }");
}

TEST_F(RichTextBar, Buttons_ShowWhereTheCursorStands)
{
    body.LoadFromMemory("plain");
    SelectAll();
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_TRUE(Find<QToolButton>("cmdBold").isChecked());
    Press(Qt::Key_B, Qt::ControlModifier);
    EXPECT_FALSE(Find<QToolButton>("cmdBold").isChecked());
    Press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_TRUE(Find<QToolButton>("cmdCenter").isChecked());
    EXPECT_FALSE(Find<QToolButton>("cmdAlignLeft").isChecked());
}

TEST_F(RichTextBar, FontAndSize_AreAppliedAndShown)
{
    Type("word");
    SelectAll();
    auto& font = Find<QComboBox>("cboFont");
    font.setFocus();
    font.lineEdit()->selectAll();
    QTest::keyClicks(&font, QStringLiteral("Times New Roman"));
    QTest::keyClick(&font, Qt::Key_Return);
    EXPECT_TRUE(body.hasFocus());
    auto& size = Find<QComboBox>("cboSize");
    size.setFocus();
    size.lineEdit()->selectAll();
    QTest::keyClicks(&size, QStringLiteral("10.5"));
    QTest::keyClick(&size, Qt::Key_Return);
    EXPECT_EQ(Stored(), "\\pard \\f1\\fs21 word\\f0\\fs20\\par }");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
    EXPECT_EQ(font.currentText(), QStringLiteral("Times New Roman"));
    EXPECT_EQ(size.currentText(), QStringLiteral("10.5"));
}

TEST_F(RichTextBar, NoSize_LeavesTheSizeAsItWas)
{
    Type("word");
    SelectAll();
    auto& size = Find<QComboBox>("cboSize");
    for (const char* nothing : {"big", "0", "-4", "9999"}) {
        size.setFocus();
        size.setEditText(QString::fromLatin1(nothing));
        QTest::keyClick(&size, Qt::Key_Return);
        EXPECT_EQ(Stored(), "\\pard word\\par }") << nothing;
        EXPECT_EQ(size.currentText(), QStringLiteral("10")) << nothing;
    }
}

TEST_F(RichTextBar, Color_IsSetAndTakenBack)
{
    Type("word");
    SelectAll();
    const QList<QAction*> colors = Find<QToolButton>("cmdColor").menu()->actions();
    colors[2]->trigger();
    EXPECT_EQ(Stored(), "\\pard \\cf3 word\\cf0\\par }");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
    colors[0]->trigger();
    EXPECT_EQ(Stored(), "\\pard word\\par }");
}

TEST_F(RichTextBar, AltF10_LeadsToTheBarAndEscapeBack)
{
    Press(Qt::Key_F10, Qt::AltModifier);
    EXPECT_TRUE(Find<QComboBox>("cboFont").hasFocus() || Find<QComboBox>("cboFont").lineEdit()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(body.hasFocus());
}

TEST_F(RichTextBar, ArrowKeys_ReachEveryButton)
{
    QWidget* first = &Find<QToolButton>("cmdBold");
    first->setFocus();
    std::vector<std::string> reached;
    do {
        reached.push_back(QApplication::focusWidget()->objectName().toStdString());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    } while (QApplication::focusWidget() != first && reached.size() < 50);
    EXPECT_EQ(reached,
              (std::vector<std::string>{"cmdBold",
                                        "cmdItalic",
                                        "cmdUnderline",
                                        "cmdColor",
                                        "cmdAlignLeft",
                                        "cmdCenter",
                                        "cmdAlignRight",
                                        "cmdJustify",
                                        "cmdBullets",
                                        "cmdNumbers",
                                        "cmdDecreaseIndent",
                                        "cmdIncreaseIndent",
                                        "cmdInsertPicture",
                                        "cmdClearFormatting",
                                        "cmdFind"}));
}

TEST_F(RichTextBar, AnotherTextLoaded_NothingToUndoAndItsLookIsShown)
{
    Type("a");
    EXPECT_TRUE(Find<QToolButton>("cmdUndo").isEnabled());
    body.LoadFromMemory("{\\rtf1\\pard\\qc\\b bold\\par }");
    EXPECT_FALSE(Find<QToolButton>("cmdUndo").isEnabled());
    EXPECT_TRUE(Find<QToolButton>("cmdBold").isChecked());
    EXPECT_TRUE(Find<QToolButton>("cmdCenter").isChecked());
    EXPECT_EQ(Find<QComboBox>("cboSize").currentText(), QStringLiteral("12"));
}

TEST_F(RichTextBar, NarrowRoom_NothingHides)
{
    editor.resize(420, 500);
    QTest::qWait(10);
    const QWidget& bar = Find<QWidget>("TXButtonBar1");
    for (const QToolButton* button : bar.findChildren<QToolButton*>()) {
        const QRect place(button->mapTo(&bar, QPoint()), button->size());
        EXPECT_TRUE(bar.rect().contains(place)) << button->objectName().toStdString();
    }
}

TEST_F(RichTextBar, FindBar_FindsGoesOnAndCloses)
{
    body.LoadFromMemory("Ridge road and ridge line");
    Press(Qt::Key_F, Qt::ControlModifier);
    auto& box = Find<QLineEdit>("txtFind");
    ASSERT_TRUE(box.hasFocus());
    QTest::keyClicks(&box, QStringLiteral("ridge"));
    EXPECT_EQ(body.textCursor().selectionStart(), 0);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(body.textCursor().selectionStart(), 15);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(body.textCursor().selectionStart(), 0);
    EXPECT_EQ(Find<QLabel>("lblFind").text(), QStringLiteral("Went on from the start"));
    QTest::keyClick(&box, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(body.textCursor().selectionStart(), 15);
    QTest::keyClicks(&box, QStringLiteral("x"));
    EXPECT_EQ(Find<QLabel>("lblFind").text(), QStringLiteral("Not found"));
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_TRUE(body.hasFocus());
    EXPECT_EQ(changes, 0);
}

} // namespace
