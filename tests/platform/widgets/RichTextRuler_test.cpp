#include "RichTextFixture.h"
#include "platform/widgets/RichTextRuler.h"

namespace {

class RichTextRuler : public RichTextFixture
{
protected:
    RichTextRuler() { Type("word"); }

    QPoint Low(Long twips) { return {ruler.XOf(twips), ruler.height() * 3 / 4}; }
    QPoint High(Long twips) { return {ruler.XOf(twips), ruler.height() / 4}; }
    void Drag(const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(&ruler, Qt::LeftButton, {}, from);
        QTest::mouseMove(&ruler, to);
        QTest::mouseRelease(&ruler, Qt::LeftButton, {}, to);
    }

    platform::RichTextRuler& ruler = Find<platform::RichTextRuler>("TXRuler1");
};

TEST_F(RichTextRuler, DraggedIndents_AreTheParagraphs)
{
    Drag(Low(0), Low(720));
    EXPECT_EQ(Stored(), "\\pard\\li720 word\\par }");
    Drag(High(720), High(360));
    EXPECT_EQ(Stored(), "\\pard\\li720\\fi-360 word\\par }");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextRuler, DraggedRightIndent_IsTheParagraphs)
{
    const Long width = platform::RichTextFormats::Twips(body.viewport()->width() -
                                                        2.0 * platform::RichTextEdit::SheetMargin());
    Drag(Low(width), Low(width - 1440));
    EXPECT_NEAR(body.ParagraphLook().indentRight, 1440, 45); // a step of the ruler, of a width that is none
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextRuler, ClickDragAndThrowAway_SetMoveAndRemoveATab)
{
    QTest::mouseClick(&ruler, Qt::LeftButton, {}, Low(1440));
    EXPECT_EQ(Stored(), "\\pard\\tx1440 word\\par }");
    Drag(Low(1440), Low(2880));
    EXPECT_EQ(Stored(), "\\pard\\tx2880 word\\par }");
    Drag(Low(2880), Low(2880) + QPoint(0, 200));
    EXPECT_EQ(Stored(), "\\pard word\\par }");
}

TEST_F(RichTextRuler, DoubleClick_TurnsTheTab)
{
    QTest::mouseClick(&ruler, Qt::LeftButton, {}, Low(1440));
    QTest::mouseDClick(&ruler, Qt::LeftButton, {}, Low(1440));
    EXPECT_EQ(Stored(), "\\pard\\tqc\\tx1440 word\\par }");
    QTest::mouseDClick(&ruler, Qt::LeftButton, {}, Low(1440));
    EXPECT_EQ(Stored(), "\\pard\\tqr\\tx1440 word\\par }");
    EXPECT_EQ(StoredAgain(), body.SaveToMemory());
}

TEST_F(RichTextRuler, OneDrag_IsOneStepOfUndo)
{
    const std::string before = body.SaveToMemory();
    Drag(Low(0), Low(1440));
    EXPECT_NE(body.SaveToMemory(), before);
    body.undo();
    EXPECT_EQ(body.SaveToMemory(), before);
    body.redo();
    EXPECT_EQ(Stored(), "\\pard\\li1440 word\\par }");
}

TEST_F(RichTextRuler, PressWithoutMove_ChangesNothing)
{
    changes = 0;
    QTest::mouseClick(&ruler, Qt::LeftButton, {}, Low(0));
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(ruler.hasFocus());
}

TEST_F(RichTextRuler, Keys_DoWhatTheMouseDoes)
{
    ruler.setFocus();
    QTest::keyClick(&ruler, Qt::Key_Right); // the first line's indent
    EXPECT_EQ(Stored(), "\\pard\\fi90 word\\par }");
    QTest::keyClick(&ruler, Qt::Key_Insert);
    EXPECT_EQ(Stored(), "\\pard\\fi90\\tx720 word\\par }");
    QTest::keyClick(&ruler, Qt::Key_Right);
    EXPECT_EQ(Stored(), "\\pard\\fi90\\tx810 word\\par }");
    QTest::keyClick(&ruler, Qt::Key_Delete);
    EXPECT_EQ(Stored(), "\\pard\\fi90 word\\par }");
    QTest::keyClick(&ruler, Qt::Key_Escape);
    EXPECT_TRUE(body.hasFocus());
}

TEST_F(RichTextRuler, Description_TellsTheMarks)
{
    Drag(Low(0), Low(720));
    EXPECT_TRUE(ruler.accessibleDescription().startsWith(
        QStringLiteral("First line indent 0.5 in\nLeft indent 0.5 in\n")))
        << ruler.accessibleDescription().toStdString();
}

TEST_F(RichTextRuler, Tab_StandsUnderItsMarkAlsoInAnIndentedParagraph)
{
    body.LoadFromMemory("");
    Drag(Low(0), Low(720));
    Drag(High(720), High(360));
    QTest::mouseClick(&ruler, Qt::LeftButton, {}, Low(2880));
    Type("a");
    Press(Qt::Key_Tab);
    const int x = body.viewport()->mapTo(&editor, body.cursorRect().topLeft()).x();
    EXPECT_LE(std::abs(x - ruler.mapTo(&editor, QPoint(ruler.XOf(2880), 0)).x()), 2);
}

} // namespace
