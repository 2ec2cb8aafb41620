#pragma once

#include "platform/widgets/EntryBox.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/RichTextEdit.h"
#include "worksheets/WindowTest.h"

#include <QPushButton>
#include <QTest>

#include <string>
#include <vector>

/// A worksheet of topics, worked by real keys and clicks.
class TopicTest : public WindowTest
{
protected:
    platform::ListBox& Topics() { return *Find<platform::ListBox>("lstTopics"); }
    platform::EntryBox& Heading() { return *Find<platform::EntryBox>("txtHeading"); }
    platform::RichTextEdit& Body() { return *Find<platform::RichTextEdit>("txtBody"); }
    QPushButton& Button(const char* name) { return *Find<QPushButton>(name); }

    std::vector<std::string> Rows()
    {
        std::vector<std::string> rows;
        for (Long row = 0; row < Topics().ListCount(); ++row)
            rows.push_back(Topics().List(row));
        return rows;
    }
    std::string HeadingText() { return Heading().text().toStdString(); }

    void ClickRow(Long row)
    {
        QListWidgetItem* item = Topics().item(row);
        ASSERT_NE(item, nullptr) << row;
        Topics().scrollToItem(item);
        QTest::mouseClick(Topics().viewport(), Qt::LeftButton, {}, Topics().visualItemRect(item).center());
        QCoreApplication::processEvents();
    }
    void ClickInto(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    /// A key to whatever has the focus.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QCoreApplication::processEvents();
    }
    /// Add Topic by its letter, whose press shows for a moment.
    void AddByLetter()
    {
        const Long rows = Topics().ListCount();
        Key(Qt::Key_A, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor([&] { return Topics().ListCount() > rows; }));
    }
    static void Keys(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    }
    /// On to that control, or back to it, with the keys that lead from field to field.
    void TabTo(const char* name, Qt::Key key = Qt::Key_Tab)
    {
        for (int i = 0; i < 60 && Focused() != name; ++i)
            Key(key, Focused() == "txtBody" ? Qt::ControlModifier : Qt::NoModifier);
        ASSERT_EQ(Focused(), name);
    }
    static std::string Focused()
    {
        const QWidget* focused = QApplication::focusWidget();
        return focused == nullptr ? "nothing" : focused->objectName().toStdString();
    }
    void TypeHeading(const char* text)
    {
        Heading().setFocus();
        Heading().selectAll();
        Keys(text);
    }
    /// At the end of the narrative.
    void TypeBody(const char* text)
    {
        Body().setFocus();
        Body().moveCursor(QTextCursor::End);
        Keys(text);
    }
    void Leave() { GoTo(2, 1); }

    /// What a program that is killed now would leave behind.
    support::Rows InFile(const std::string& sql)
    {
        const std::string copy = folder.File("AfterKill.qel");
        support::CopyFile(path, copy);
        return support::QuerySql(copy, sql);
    }
    std::string BodyInFile(Long key)
    {
        return InFile("SELECT Body FROM Items WHERE ItemKey = " + std::to_string(key)).at(0).at(0);
    }
    support::Rows RowInFile(Long key)
    {
        return InFile("SELECT ItemName, Heading, ParentKey, ChildIndex FROM Items WHERE ItemKey = " +
                      std::to_string(key));
    }
};
