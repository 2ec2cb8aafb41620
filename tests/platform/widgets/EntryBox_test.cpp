#include "platform/widgets/EntryBox.h"

#include <QClipboard>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

class EntryBox : public ::testing::Test
{
protected:
    EntryBox()
    {
        auto* column = new QVBoxLayout(&form);
        column->addWidget(box);
        column->addWidget(next);
        box->setText(QStringLiteral("0715"));
        next->setText(QStringLiteral("after"));
        box->LeadTo(next, {Qt::Key_Return, Qt::Key_Down});
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        next->setFocus();
    }
    bool LeadsOn(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        box->setFocus();
        QTest::keyClick(box, key, modifiers);
        return next->hasFocus();
    }
    std::string Selected() const { return box->selectedText().toStdString(); }

    QWidget form;
    platform::EntryBox* box = new platform::EntryBox(QStringLiteral("txtBox"), &form);
    platform::EntryBox* next = new platform::EntryBox(QStringLiteral("txtNext"), &form);
};

TEST_F(EntryBox, ToldKeys_LeadOnAndSelectNothing)
{
    EXPECT_TRUE(LeadsOn(Qt::Key_Return));
    EXPECT_TRUE(LeadsOn(Qt::Key_Enter, Qt::KeypadModifier));
    EXPECT_TRUE(LeadsOn(Qt::Key_Down));
    EXPECT_TRUE(LeadsOn(Qt::Key_Down, Qt::KeypadModifier));
    EXPECT_FALSE(next->hasSelectedText());
}

TEST_F(EntryBox, OtherKeysAndHeldOnes_StayInTheBox)
{
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Up, Qt::Key_End, Qt::Key_A})
        EXPECT_FALSE(LeadsOn(key)) << key;
    for (const Qt::KeyboardModifier modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        EXPECT_FALSE(LeadsOn(Qt::Key_Down, modifier)) << modifier;
}

TEST_F(EntryBox, NoSuccessor_EnterStays)
{
    next->setFocus();
    QTest::keyClick(next, Qt::Key_Return);
    EXPECT_TRUE(next->hasFocus());
}

TEST_F(EntryBox, Entering_SelectsTheWholeOnlyWhereTold)
{
    box->setFocus();
    EXPECT_EQ(Selected(), "");
    next->setFocus();
    box->SelectWholeOnEntry();
    box->setFocus();
    EXPECT_EQ(Selected(), "0715");
}

TEST_F(EntryBox, EnteringByADrag_KeepsThePartDragged)
{
    box->SelectWholeOnEntry();
    const QPoint start(4, box->height() / 2);
    const QPoint end(4 + box->fontMetrics().horizontalAdvance(QStringLiteral("07")), start.y());
    QTest::mousePress(box, Qt::LeftButton, {}, start);
    QTest::mouseMove(box, end);
    QTest::mouseRelease(box, Qt::LeftButton, {}, end);
    EXPECT_EQ(Selected(), "07");
}

TEST_F(EntryBox, BackFromMenuOrAnotherWindow_IsNoEntering)
{
    box->SelectWholeOnEntry();
    box->setFocus();
    box->setSelection(1, 2);
    for (const auto reason : {Qt::MenuBarFocusReason, Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        QFocusEvent back(QEvent::FocusIn, reason);
        QApplication::sendEvent(box, &back);
        EXPECT_EQ(Selected(), "71") << reason;
    }
}

TEST_F(EntryBox, VeryLongText_TakenWhole)
{
    box->setText(QString(100000, QLatin1Char('x')));
    EXPECT_EQ(box->text().size(), 100000);
}

TEST_F(EntryBox, KeysToSeveralBoxes_EachLeadsToItsOwn)
{
    platform::EntryBox above(QStringLiteral("txtAbove"), &form);
    above.show();
    box->LeadTo(&above, {Qt::Key_Up});
    EXPECT_TRUE(LeadsOn(Qt::Key_Down));
    EXPECT_FALSE(LeadsOn(Qt::Key_Up));
    EXPECT_TRUE(above.hasFocus());
}

TEST_F(EntryBox, Entering_SelectsTheFirstCharacterWhereTold)
{
    box->SelectFirstOnEntry();
    box->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Selected(), "0");
    next->setFocus();
    box->clear();
    box->setFocus();
    EXPECT_EQ(Selected(), "");
}

TEST_F(EntryBox, TakeOnly_DropsOtherCharactersThatAreTyped)
{
    box->TakeOnly(QStringLiteral("0123456789,"));
    box->clear();
    QTest::keyClicks(box, QStringLiteral("1a2. ,-3/:"));
    EXPECT_EQ(box->text(), QStringLiteral("12,3"));
    QTest::keyClick(box, Qt::Key_Backspace);
    EXPECT_EQ(box->text(), QStringLiteral("12,"));
}

TEST_F(EntryBox, TakeOnly_PastingAndCuttingPass)
{
    box->TakeOnly(QStringLiteral("0123456789"));
    box->setFocus();
    box->selectAll();
    QTest::keyClick(box, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(box->text(), QString());
    QGuiApplication::clipboard()->setText(QStringLiteral("7.5 acres"));
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(box->text(), QStringLiteral("7.5 acres"));
}

} // namespace
