#pragma once

#include "platform/widgets/RichTextEdit.h"
#include "platform/widgets/RichTextEditor.h"
#include "support/ScriptedDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QTest>
#include <gtest/gtest.h>

#include <string>

/// The body of an item that nobody wrote into yet.
inline const std::string kEmptyBody =
    "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
    "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 \\pard \\par }";

/// An editor on the screen, with the focus in its text.
class RichTextFixture : public ::testing::Test
{
protected:
    RichTextFixture()
        : editor(QStringLiteral("txtBody"),
                 QStringLiteral("Narrative"),
                 platform::RichTextEditor::Parts::BarAndRuler,
                 nullptr)
    {
        editor.resize(760, 500);
        editor.show();
        body.LoadFromMemory(kEmptyBody);
        QObject::connect(&body, &platform::RichTextEdit::Changed, &body, [this] { ++changes; });
        EXPECT_TRUE(QTest::qWaitForWindowActive(&editor));
        body.setFocus();
    }

    void Type(const char* text) { QTest::keyClicks(&body, QString::fromUtf8(text)); }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&body, static_cast<Qt::Key>(key), modifiers);
    }
    void SelectAll() { body.selectAll(); }
    template <typename Widget> Widget& Find(const char* name)
    {
        auto* widget = editor.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    /// The text between the prologue and the end of the stored form.
    std::string Stored()
    {
        const std::string rtf = body.SaveToMemory();
        const std::string start = "\\plain\\f0\\fs20 ";
        const std::size_t at = rtf.find(start);
        return at == std::string::npos ? rtf : rtf.substr(at + start.size());
    }
    /// What is stored, loaded and stored again.
    std::string StoredAgain()
    {
        platform::RichTextEdit other;
        other.LoadFromMemory(body.SaveToMemory());
        return other.SaveToMemory();
    }

    platform::RichTextEditor editor;
    platform::RichTextEdit& body = editor.Body();
    int changes = 0;
};
