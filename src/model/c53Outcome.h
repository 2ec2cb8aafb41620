#pragma once

#include "platform/base/ChangedFlag.h"
#include "platform/base/Collection.h"
#include "platform/base/LateText.h"
#include "platform/base/Numbers.h"
#include "platform/data/Recordset.h"

#include <memory>
#include <string>

class c51Alternative;
class c61RatingList;
class c63BurnAreaList;
class c64BurnArea;
class c65ItemImpactList;
class c67SRUseList;

/// One predicted end of the fire under an alternative: a row of Outcomes and the lists below it, each made on
/// first need. Owned by its c52OutcomeList, the shared Extreme one by g53Outcomes. Reads of the file throw
/// DatabaseError, a figure out of range Overflow, a key unknown to a list MissingMember. Dollars and acres
/// are singles; figures are computed anew at each call.
class c53Outcome
{
public:
    /// Which cost estimate counts: a bit each, one at a time.
    enum Cost : Long { costSize = 1, costSRUse = 2, costDaily = 4, costAdjust = 8 };
    /// The Success of an outcome that is not shown.
    static constexpr Long kNotShown = -1;

    c53Outcome();
    c53Outcome(const c53Outcome&) = delete;
    c53Outcome& operator=(const c53Outcome&) = delete;
    ~c53Outcome();

    Long ItemKey() const { return m_itemKey; }
    /// 1 Target, 2 Fallback; the shared Extreme outcome has 1 too and is told apart by having no alternative.
    Long OutcomeIndex() const { return m_outcomeIndex; }
    /// Nothing for the shared Extreme outcome.
    std::shared_ptr<c51Alternative> Alternative() const;
    /// The alternative's Label and ShortName.
    std::string LongName() const;
    /// The same with the Label cut at 32 characters.
    std::string FullName() const;
    std::string ShortName() const;
    bool bShow() const { return m_success != kNotShown; }
    /// Hiding forgets the Success; showing gives 0 to an outcome that was hidden.
    void SetbShow(bool show);
    /// Rich text.
    const std::string& Description() const { return m_description.Read(); }
    void SetDescription(const std::string& text) { m_changed.Write(m_description, text); }
    /// Changed from now on; the text is made when it is first read.
    void SetDescriptionLater(platform::LateText::Maker text)
    {
        m_changed.Write(m_description, std::move(text));
    }
    /// Acres, as a single's text.
    std::string FireSize() const;
    /// Throws TypeMismatch for a text that is no number.
    void SetFireSize(const std::string& text);
    /// Days; empty for 0. The write takes the number at the text's start, halves to even.
    std::string ContainTimeString() const;
    void SetContainTimeString(const std::string& text);
    Long ContainTime() const { return m_containTime; }
    std::string ControlTimeString() const;
    void SetControlTimeString(const std::string& text);
    Long ControlTime() const { return m_controlTime; }
    /// Percent, 0 to 100; -1: not shown.
    Long Success() const { return m_success; }
    void SetSuccess(Long percent) { m_changed.Write(m_success, percent); }
    const std::string& SuccessRationale() const { return m_successRationale; }
    void SetSuccessRationale(const std::string& text) { m_changed.Write(m_successRationale, text); }

    c64BurnArea& BurnArea(Long fmuKey);
    c63BurnAreaList& BurnAreaList();
    const platform::Collection<c64BurnArea>& BurnAreaCollection();

    /// Scores, rounded to two digits. Keys are those of the objective tree and of the safety tree.
    Single TotalScore();
    Single CategoryScore(Long key);
    Single WeightedObjScore(Long key);
    Single RawObjScore(Long key);
    Single SafetyScore();
    Single WeightedSafetyScore(Long key);
    Single RawSafetyScore(Long key);

    /// Dollars lost: items and resources.
    Single EstimatedLoss();
    /// Dollars lost on burned resources; a gain is negative. Two digits.
    Single NVCLoss();
    /// Dollars per acre; negative for a loss.
    Single ImpactPerAcre();
    /// Dollars lost on one resource, 1 to 14, three digits: they need not add up to NVCLoss.
    Single NVCResourceLoss(Long resource);
    /// The share of the land unit at a place from 1, in whole percent.
    Long FMUPercent(Long position);
    Single ItemImpact();
    Single SingleItemImpact(Long itemKey);
    Double ValueProtected();
    Double SingleItemProtected(Long itemKey);

    /// Dollars by CostSource, not rounded further; 0 for a code that is none.
    Single EstimatedCost();
    Long CostSource() const { return m_costSource; }
    void SetCostSource(Long source) { m_changed.Write(m_costSource, source); }
    /// Three digits.
    Single CostBySize();
    Single CostPerAcre();
    /// Owned by this outcome; the reference ends with Reset.
    c67SRUseList& SRUseList();
    /// Three digits.
    Single SRUseCost();
    /// Three digits; a control time below the contain time is not guarded.
    Single DailyCost() const;
    /// Dollars per day up to containment, then up to control.
    Single DailyContainCost() const { return m_dailyContainCost; }
    void SetDailyContainCost(Single dollars) { m_changed.Write(m_dailyContainCost, dollars); }
    Single DailyControlCost() const { return m_dailyControlCost; }
    void SetDailyControlCost(Single dollars) { m_changed.Write(m_dailyControlCost, dollars); }
    Single AdjustedCost() const { return m_adjustedCost; }
    void SetAdjustedCost(Single dollars) { m_changed.Write(m_adjustedCost, dollars); }
    const std::string& CostRationale() const { return m_costRationale; }
    void SetCostRationale(const std::string& text) { m_changed.Write(m_costRationale, text); }

    /// Drops the resource use list; the next use reads it again.
    void Reset();
    /// Reads the row of an alternative (0: the shared Extreme one); throws DatabaseError where there is none.
    void Initialize(Long alternativeKey, Long index);
    /// Only when changed. The lists below save themselves.
    void SaveChanges();
    /// Deletes the row and all rows of the lists below it.
    void Delete();

private:
    void MoveToRow(platform::Recordset& rows) const;
    void ReadRow(const platform::Recordset& row);
    void SetColumns(platform::Recordset& row) const;
    c61RatingList& EnsureRatingList();
    c63BurnAreaList& EnsureBurnAreaList();
    c65ItemImpactList& EnsureItemImpactList();
    c67SRUseList& EnsureSRUseList();
    std::string AlternativeLabel() const;

    Long m_itemKey = 0;
    Long m_outcomeIndex = 0;
    Long m_alternativeKey = 0;
    platform::LateText m_description;
    Single m_fireSize = 0.0F;
    Long m_containTime = 0;
    Long m_controlTime = 0;
    Long m_success = 0;
    std::string m_successRationale;
    std::unique_ptr<c61RatingList> m_ratingList;
    std::unique_ptr<c63BurnAreaList> m_burnAreaList;
    std::unique_ptr<c65ItemImpactList> m_itemImpactList;
    std::unique_ptr<c67SRUseList> m_srUseList;
    Single m_dailyContainCost = 0.0F;
    Single m_dailyControlCost = 0.0F;
    Single m_adjustedCost = 0.0F;
    Long m_costSource = costSize;
    std::string m_costRationale;
    platform::ChangedFlag m_changed;
};
