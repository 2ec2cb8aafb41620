#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Collection.h"
#include "platform/base/LateText.h"
#include "platform/base/Numbers.h"

#include <memory>
#include <string>

/// One row of Objectives: a root, a category, an objective or a safety issue. Owned by the caches of
/// g41Objectives and g42SafetyIssues, shared with whoever holds it. Reads and saves throw DatabaseError.
class c41Objective
{
public:
    /// The roots of the two trees.
    static constexpr Long kRootKey = 1;
    static constexpr Long kSafetyRootKey = 2;

    Long ItemKey() const { return m_itemKey; }
    const std::string& ItemName() const { return m_itemName; }
    void SetItemName(const std::string& text) { m_changed.Write(m_itemName, text); }
    /// Rich text.
    const std::string& Description() const { return m_description.Read(); }
    void SetDescription(const std::string& text) { m_changed.Write(m_description, text); }
    /// Changed from now on; the text is made when it is first read.
    void SetDescriptionLater(platform::LateText::Maker text)
    {
        m_changed.Write(m_description, std::move(text));
    }
    Long ParentKey() const { return m_parentKey; }
    bool bRoot() const { return m_itemKey == kRootKey; }
    bool bCategory() const { return m_parentKey == kRootKey; }
    /// None of root, category, safety root and safety issue.
    bool bObjective() const;
    bool bSafetyRoot() const { return m_itemKey == kSafetyRootKey; }
    // On purpose the same test as bSafetyIssue: the safety tree has no category level.
    bool bSafetyCategory() const { return m_parentKey == kSafetyRootKey; }
    bool bSafetyIssue() const { return m_parentKey == kSafetyRootKey; }
    Long Priority() const { return m_priority; }
    void SetPriority(Long priority) { m_changed.Write(m_priority, priority); }
    /// The share of this row among all rows below the category level of its tree (among all safety issues), 0
    /// to 1; the roots have 1. Throws Overflow, and DivisionByZero where there is no such row.
    Single Weight() const;
    /// The sum of Priority over the rows of the objective tree directly below this one. Throws Overflow.
    Long ChildrenPriorities() const;

    void Initialize(
        Long key, const std::string& name, const std::string& description, Long priority, Long parentKey);
    /// Only when changed: name, description and priority, never the links.
    void SaveChanges();
    /// Unlinks and deletes the row, then its ratings. Rows below it are not touched.
    void Delete();

private:
    platform::Collection<std::shared_ptr<c41Objective>> GetChildren() const;
    Single CalculateWeight() const;
    Long SumChildrenPriorities() const;
    void UnlinkRow() const;
    void DeleteRow() const;

    Long m_itemKey = 0;
    std::string m_itemName;
    platform::LateText m_description;
    Long m_parentKey = 0;
    Long m_priority = 0;
    platform::ChangedFlag m_changed;
};
