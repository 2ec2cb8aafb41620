#pragma once

#include "platform/widgets/EntryBox.h"
#include "platform/widgets/Grid.h"
#include "session/SessionState.h"
#include "values/ValueRows.h"
#include "worksheets/GridHands.h"
#include "worksheets/ModalForm.h"
#include "worksheets/WindowTest.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <string>

/// The cost worksheet and its two dialogs.
class CostTest : public WindowTest
{
protected:
    /// The outcomes of the sample smith-creek, by their rows in the grid.
    enum SmithCreek : Long { ATarget = 1, BTarget = 2, BFallback = 3, CTarget = 4, Extreme = 5 };
    static constexpr Long kCost = 5; // the column

    void ShowCosts(const std::string& sql = {}, const std::string& sample = "smith-creek")
    {
        StartWithSample(sample, sql);
        GoToCosts();
    }
    void ShowCostsOfNewFile(const std::string& sql = {})
    {
        StartWithNewFile(sql);
        GoToCosts();
    }
    void GoToCosts()
    {
        GoTo(5, 5);
        ASSERT_EQ(gCurrentTab, "tab56");
    }
    void Leave() { ClickTab(Worksheets(), 1); }

    /// Presses the button that opens a dialog, does what a user does in it, and closes it if it is still
    /// open.
    void InDialog(const char* button, const std::function<void()>& work)
    {
        bool came = false;
        QTimer::singleShot(0, window.get(), [&] {
            m_dialog = qobject_cast<ModalForm*>(QApplication::activeModalWidget());
            if (m_dialog == nullptr) return;
            came = QTest::qWaitFor([this] { return m_dialog->isAncestorOf(QApplication::focusWidget()); });
            work();
            if (m_dialog->isVisible()) Close();
            m_dialog = nullptr;
        });
        Find<QPushButton>(button)->click();
        QCoreApplication::processEvents();
        EXPECT_TRUE(came) << button;
    }
    void InCostPerAcre(const std::function<void()>& work) { InDialog("cmdSize", work); }
    void InResources(const std::function<void()>& work) { InDialog("cmdSRUse", work); }
    ModalForm& Dialog() { return *m_dialog; }
    template <class Control> Control& In(const char* name)
    {
        auto* found = m_dialog->findChild<Control*>(QString::fromUtf8(name));
        if (found == nullptr) throw std::logic_error(name);
        return *found;
    }
    platform::Grid& GridIn(const char* name) { return In<platform::Grid>(name); }
    /// A button of the dialog, with the mouse.
    void Click(const char* button)
    {
        QTest::mouseClick(&In<QPushButton>(button), Qt::LeftButton);
        QCoreApplication::processEvents();
    }
    void Close() { Click("cmdClose"); }

    platform::Grid& Outcomes() { return *Find<platform::Grid>("grdOutcomes"); }
    std::string CostOf(Long row) { return Outcomes().Text(row, kCost); }
    static void Type(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    }
    static void TypeInto(QWidget& box, const char* text)
    {
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, QString::fromUtf8(text));
    }
    static void Paste(const char* text);

private:
    ModalForm* m_dialog = nullptr;
};

/// Puts a text on the clipboard and pastes it into whatever has the focus.
inline void CostTest::Paste(const char* text)
{
    QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
    QCoreApplication::processEvents();
}
