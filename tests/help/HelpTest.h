#pragma once

#include "platform/widgets/HelpBrowser.h"
#include "platform/widgets/HelpFile.h"
#include "platform/widgets/HelpWindow.h"
#include "platform/widgets/Theme.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

/// The help window on the help file of this build.
class HelpTest : public ::testing::Test
{
protected:
    static QString BuiltHelp() { return QString::fromStdString(support::BuiltFile("VEXAPlus.hlp")); }
    static std::unique_ptr<platform::HelpFile> OpenFile() { return platform::HelpFile::Open(BuiltHelp()); }

    void SetUp() override
    {
        auto file = OpenFile();
        ASSERT_NE(file, nullptr);
        window = std::make_unique<platform::HelpWindow>(std::move(file));
    }
    void TearDown() override
    {
        window.reset();
        QApplication::setPalette(m_palette);
    }

    template <class Control> Control& In(const char* name)
    {
        auto* found = window->findChild<Control*>(QString::fromUtf8(name));
        if (found == nullptr) throw std::logic_error(name);
        return *found;
    }
    platform::HelpBrowser& Page() { return In<platform::HelpBrowser>("HelpPage"); }
    std::string Shown() { return Page().source().fileName().toStdString(); }
    void Show(int topic)
    {
        window->ShowTopic(topic);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        QCoreApplication::processEvents();
    }
    static void GoDark()
    {
        QApplication::setPalette(platform::Theme::WithAccent(platform::Theme::DarkPalette()));
        QCoreApplication::processEvents();
    }

    std::unique_ptr<platform::HelpWindow> window;

private:
    QPalette m_palette = QApplication::palette();
};
