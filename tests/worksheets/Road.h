#pragma once

#include "worksheets/CostTest.h"

#include <QAbstractScrollArea>
#include <QComboBox>

#include <set>
#include <string>

namespace platform {
class ListBox;
class RichTextEdit;
} // namespace platform

/// The hands for the guided way from an empty file to a decision.
class Road : public CostTest
{
protected:
    Road();
    ~Road() override;

    /// Where the user asks the new file to be; from here on it is the test's. The items' keys go on from file
    /// to file, and so from test to test: behind those of the samples.
    void ExpectNewFile();
    /// Notes the last key of the items, from which those that the user adds go on.
    void NoteItemKeys();
    Long LastItemKey() const { return m_lastItemKey; }

    /// To a worksheet, by way of its section's introduction.
    void Visit(int section, int tab);
    void ClickOn(QWidget& control);
    /// Clicks a control of this name and types over what it holds.
    void Write(const char* name, const char* text);
    void WriteIn(QWidget& control, const char* text);
    void ClickRow(platform::ListBox& list, Long row);
    /// Opens the list of a combo box and clicks a row.
    void Choose(QComboBox& combo, int row);
    void MarkOption(const char* option);
    /// After a dialog or an opened list: no window manager gives the keys back to the window here.
    void BackInWindow();

    platform::ListBox& List(const char* name) { return *Find<platform::ListBox>(name); }
    platform::Grid& GridOf(const char* name) { return *Find<platform::Grid>(name); }
    platform::RichTextEdit& Body();
    std::string TreeShown(int index);
    /// The keys of the worksheets that Visit showed.
    std::set<std::string> visited;

private:
    Long m_lastItemKey = 0;
};
