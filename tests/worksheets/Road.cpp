#include "worksheets/Road.h"

#include "platform/base/Clock.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/RichTextEdit.h"
#include "session/g0Items.h"
#include "worksheets/DecisionTreePicture.h"

#include <QAbstractItemView>
#include <QRadioButton>

namespace {

constexpr const char* kLongestSample = "granite-fork-complex";

} // namespace

Road::Road()
{
    platform::SetClock([] { return platform::LocalTime{2006, 8, 21, 7, 42, 9}; });
}

Road::~Road() { platform::SetClock({}); }

void Road::ExpectNewFile()
{
    OpenSample(kLongestSample);
    g0Items::LastItemKey();
    TestSession::Close(); // the file; a dialog has its own
    path = folder.File("Road.qel");
    desktop.ExpectFile("Create new VEXA Plus file", path);
}

void Road::NoteItemKeys() { m_lastItemKey = g0Items::LastItemKey(); }

void Road::Visit(int section, int tab)
{
    ClickTab(Sections(), section);
    visited.insert(gCurrentTab);
    ClickTab(Worksheets(), tab);
    visited.insert(gCurrentTab);
}

void Road::ClickOn(QWidget& control)
{
    auto* area = qobject_cast<QAbstractScrollArea*>(&control);
    QTest::mouseClick(area == nullptr ? &control : area->viewport(), Qt::LeftButton);
    QCoreApplication::processEvents();
}

void Road::Write(const char* name, const char* text) { WriteIn(*Find<QWidget>(name), text); }

void Road::WriteIn(QWidget& control, const char* text)
{
    ClickOn(control);
    ASSERT_TRUE(control.hasFocus()) << control.objectName().toStdString();
    GridHands::Key(Qt::Key_A, Qt::ControlModifier);
    GridHands::Key(Qt::Key_Delete);
    Type(text);
}

void Road::ClickRow(platform::ListBox& list, Long row)
{
    QListWidgetItem* item = list.item(row);
    ASSERT_NE(item, nullptr) << row;
    list.scrollToItem(item);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(item).center());
    QCoreApplication::processEvents();
}

void Road::Choose(QComboBox& combo, int row)
{
    QTest::mouseClick(&combo, Qt::LeftButton);
    QAbstractItemView& opened = *combo.view();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(opened.window()));
    QTest::qWait(QApplication::doubleClickInterval()); // a release right after the press is still the box's
    const QRect place = opened.visualRect(combo.model()->index(row, combo.modelColumn()));
    QTest::mouseMove(opened.viewport(), place.center());
    QTest::mouseClick(opened.viewport(), Qt::LeftButton, {}, place.center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.isVisible(); }));
    BackInWindow();
}

void Road::BackInWindow()
{
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

void Road::MarkOption(const char* option)
{
    auto& button = *Find<QRadioButton>(option);
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(10, button.height() / 2));
}

platform::RichTextEdit& Road::Body() { return *Find<platform::RichTextEdit>("txtBody"); }

std::string Road::TreeShown(int index)
{
    const std::string name = "picDecisionTree_" + std::to_string(index);
    return Find<DecisionTreePicture>(name.c_str())->accessibleDescription().toStdString();
}
