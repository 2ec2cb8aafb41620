#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/LateText.h"
#include "platform/base/Numbers.h"

#include <string>

/// The body of every new item, and the rich text of new objectives and outcomes: empty, Arial 10 point.
inline constexpr const char* kDefaultBody =
    "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
    "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 \\pard \\par }";

/// One row of Items: a fixed value, a topic, an alternative's texts, a threatened item. Shared by g0Items.
/// Nothing reaches the table before SaveChanges. Reads and saves throw DatabaseError.
class c0Item
{
public:
    /// Loads the row; without one the four texts are empty.
    void Initialize(Long key);
    Long ItemKey() const { return m_itemKey; }
    const std::string& ItemName() const { return m_itemName; }
    void SetItemName(const std::string& text) { m_changed.Write(m_itemName, text); }
    const std::string& Heading() const { return m_heading; }
    void SetHeading(const std::string& text) { m_changed.Write(m_heading, text); }
    const std::string& Body() const { return m_body.Read(); }
    void SetBody(const std::string& text) { m_changed.Write(m_body, text); }
    /// Changed from now on; the text is made when it is first read.
    void SetBodyLater(platform::LateText::Maker text) { m_changed.Write(m_body, std::move(text)); }
    const std::string& ItemText() const { return m_itemText; }
    void SetItemText(const std::string& text) { m_changed.Write(m_itemText, text); }
    /// Only when changed. A row added here is a fixed single item: it gets no parent and no place.
    void SaveChanges();

private:
    Long m_itemKey = 0;
    std::string m_itemName;
    std::string m_heading;
    platform::LateText m_body;
    std::string m_itemText;
    platform::ChangedFlag m_changed;
};
