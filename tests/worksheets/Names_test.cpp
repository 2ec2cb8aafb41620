#include "platform/widgets/TabStrip.h"
#include "worksheets/WindowTest.h"
#include "worksheets/WorksheetTable.h"

#include <QAccessible>
#include <QComboBox>

#include <gmock/gmock.h>

namespace {

class Names : public WindowTest
{
protected:
    static bool HasLabel(QAccessibleInterface& control)
    {
        const auto relations = control.relations(QAccessible::Label);
        return !relations.isEmpty();
    }

    /// The visible controls that take the focus and that a screen reader could not name.
    std::vector<std::string> Nameless()
    {
        std::vector<std::string> nameless;
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->focusPolicy() == Qt::NoFocus) continue;
            if (widget->objectName().startsWith(QLatin1String("qt_"))) continue;
            QAccessibleInterface* control = QAccessible::queryAccessibleInterface(widget);
            const bool combo = qobject_cast<QComboBox*>(widget) != nullptr;
            const bool named = combo ? HasLabel(*control) : !control->text(QAccessible::Name).isEmpty();
            if (!named)
                nameless.push_back(widget->objectName().toStdString() + " a " +
                                   widget->metaObject()->className());
        }
        return nameless;
    }
};

TEST_F(Names, StartForm_EveryControlHasOne)
{
    Start();
    EXPECT_THAT(Nameless(), ::testing::IsEmpty());
}

TEST_F(Names, EveryWorksheet_EveryControlHasOne)
{
    StartWithSample();
    for (const SectionEntry& section : ::Sections()) {
        if (!section.shown) continue;
        ClickTab(Sections(), section.section);
        for (int tab = 1; tab <= LastTab(section.section); ++tab) {
            ClickTab(Worksheets(), tab);
            EXPECT_THAT(Nameless(), ::testing::IsEmpty()) << section.section << ' ' << tab;
            EXPECT_FALSE(Find<QWidget>("ClientArea")->findChildren<QWidget*>().isEmpty());
        }
    }
}

TEST_F(Names, Strips_NamedAndTheirTabsByCaption)
{
    StartWithSample();
    QAccessibleInterface* strip = QAccessible::queryAccessibleInterface(&Sections());
    std::vector<std::string> tabs;
    for (int i = 0; i < strip->childCount(); ++i) {
        if (strip->child(i)->role() == QAccessible::PageTab) {
            tabs.push_back(strip->child(i)->text(QAccessible::Name).toStdString());
        }
    }
    EXPECT_THAT(tabs,
                ::testing::ElementsAre(
                    "Situation", "Objectives", "Alternatives", "Analysis", "Comparison", "Report"));
}

TEST_F(Names, TabPressedByAScreenReader_SameOrderOfEvents)
{
    StartWithSample();
    Mark();
    QAccessibleInterface* strip = QAccessible::queryAccessibleInterface(&Worksheets());
    strip->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(NewLines().at(0), " Start switch to worksheet 2");
    EXPECT_EQ(NewLines().at(1), "   a3VEXAforms.UpdateCurrentWorksheet tab11");
    EXPECT_EQ(NewLines().back(), " Finished switching worksheets");
}

} // namespace
