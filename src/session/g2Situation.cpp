#include "session/g2Situation.h"

#include "session/g0Items.h"

namespace g2Situation {

std::vector<std::shared_ptr<c0Item>> GetSituationTopics()
{
    return g0Items::GetChildren(g0Items::SituationGroup);
}

std::shared_ptr<c0Item> GetItem(Long key) { return g0Items::GetItem(key); }

void SaveAllItems() { g0Items::SaveAllItems(); }

Long NewSituationTopic(const std::string& name) { return g0Items::NewItem(name, g0Items::SituationGroup); }

} // namespace g2Situation
