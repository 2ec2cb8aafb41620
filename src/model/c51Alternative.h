#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/LateText.h"
#include "platform/base/Numbers.h"

#include <memory>
#include <string>

class c52OutcomeList;
class c53Outcome;

/// One suppression strategy under comparison: an item of the group of alternatives. Owned by g51Alternatives,
/// shared with whoever holds it. Its outcomes are read on first need. Figures throw what c52OutcomeList's
/// throw; reads and saves throw DatabaseError.
class c51Alternative
{
public:
    c51Alternative();
    c51Alternative(const c51Alternative&) = delete;
    c51Alternative& operator=(const c51Alternative&) = delete;
    ~c51Alternative();

    Long ItemKey() const { return m_itemKey; }
    /// The short letter.
    const std::string& ItemName() const { return m_itemName; }
    void SetItemName(const std::string& text) { m_changed.Write(m_itemName, text); }
    /// The name.
    const std::string& Heading() const { return m_heading; }
    void SetHeading(const std::string& text) { m_changed.Write(m_heading, text); }
    /// Letter and name: "B. Confine".
    std::string Label() const;
    /// Rich text.
    const std::string& Body() const { return m_body.Read(); }
    void SetBody(const std::string& text) { m_changed.Write(m_body, text); }
    /// Changed from now on; the text is made when it is first read.
    void SetBodyLater(platform::LateText::Maker text) { m_changed.Write(m_body, std::move(text)); }

    /// Scores, 0 to 10. Keys are those of Objectives.
    Single ExpectedScore();
    Single ExpectedCategoryScore(Long criterionKey);
    Single ExpectedWgtObjScore(Long criterionKey);
    Single ExpectedRawObjScore(Long criterionKey);
    Single ExpectedSafetyScore();
    Single ExpectedWgtSafetyScore(Long criterionKey);
    Single ExpectedRawSafetyScore(Long criterionKey);
    /// Dollars, rounded to two digits once more.
    Double ExpectedProtection();
    Single ExpectedNVCLoss();
    Single ExpectedLoss();
    Single ExpectedCost();
    /// The Target's dollars and acres, two digits.
    Single EstimatedCost();
    Long EstimatedSize();
    /// 1 Target, 2 Fallback; throws OutOfBounds for any other index.
    std::shared_ptr<c53Outcome> Outcome(Long index);
    /// Whole percent for 1 Target, 2 Fallback, 3 Extreme; 0 for any other index.
    Long OutcomePercent(Long index);

    void
    Initialize(Long key, const std::string& itemName, const std::string& heading, const std::string& body);
    /// Only when changed.
    void SaveChanges();
    /// Deletes the item and both outcomes with all below them.
    void Delete();

private:
    c52OutcomeList& EnsureOutcomeList();

    Long m_itemKey = 0;
    std::string m_itemName;
    std::string m_heading;
    platform::LateText m_body;
    platform::ChangedFlag m_changed;
    std::unique_ptr<c52OutcomeList> m_outcomeList;
};
