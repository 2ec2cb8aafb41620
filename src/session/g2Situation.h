#pragma once

#include "session/c0Item.h"

#include <memory>
#include <string>
#include <vector>

/// The facts and topics of the Situation section. All throw DatabaseError.
namespace g2Situation {

std::vector<std::shared_ptr<c0Item>> GetSituationTopics();
std::shared_ptr<c0Item> GetItem(Long key);
void SaveAllItems();
/// The new topic's key.
Long NewSituationTopic(const std::string& name);

} // namespace g2Situation
