#pragma once

#include "platform/base/Numbers.h"
#include "support/TestSession.h"

#include <string>
#include <utility>

/// What the road leaves in its file, table by table. No session may have the file open.
class RoadFile
{
public:
    /// The path, and the last key that the items had before the road.
    RoadFile(std::string path, Long lastItemKey) : m_path(std::move(path)), m_lastItemKey(lastItemKey) {}

    void CheckItems() const;
    void CheckLooksOfConditions() const;
    void CheckObjectives() const;
    void CheckScores() const;
    void CheckOutcomes() const;
    void CheckLosses() const;
    void CheckCosts() const;
    void CheckTheRest() const;

private:
    /// The key of the item that the user added as the n-th.
    std::string Added(Long n) const { return std::to_string(m_lastItemKey + n); }
    /// The rows of a table that the template has not, by their first columns; rich texts as plain text.
    support::Rows Written(const std::string& table) const;
    /// How many rows a table has more than the template's.
    Long More(const std::string& table) const;
    support::Rows Ask(const std::string& query) const;

    std::string m_path;
    Long m_lastItemKey = 0;
};
