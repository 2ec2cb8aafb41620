#include "datafile_builder/FireKeys.h"

namespace datafile_builder {

namespace {

void AddKey(std::map<std::string, Long>& keys, const SourceObject& source, const std::string& name, Long key)
{
    if (!keys.emplace(name, key).second) source.Refuse("\"" + name + "\" is there twice");
}

Long FindKey(const std::map<std::string, Long>& keys,
             const SourceObject& source,
             const std::string& kind,
             const std::string& name)
{
    const auto found = keys.find(name);
    if (found == keys.end()) source.Refuse("there is no " + kind + " \"" + name + "\"");
    return found->second;
}

} // namespace

FireKeys::FireKeys(DatafileWriter& writer)
{
    constexpr Long objectiveRoot = 1;
    const Long last = writer.LastKey("Objectives", "Key");
    for (Long key = 1; key <= last; ++key) {
        const auto row = writer.FirstRow("SELECT 1 FROM Objectives WHERE \"Key\" = ? AND ParentKey = ?",
                                         {std::int64_t{key}, std::int64_t{objectiveRoot}});
        if (!row.empty()) m_criteria.emplace(std::to_string(key), key);
    }
}

void FireKeys::AddCriterion(const SourceObject& source, const std::string& reference, Long key)
{
    AddKey(m_criteria, source, reference, key);
}

void FireKeys::AddAlternative(const SourceObject& source, const std::string& name, Long key)
{
    AddKey(m_alternatives, source, name, key);
}

void FireKeys::AddOutcome(const SourceObject& source, const std::string& name, Long key)
{
    AddKey(m_outcomes, source, name, key);
}

Long FireKeys::Criterion(const SourceObject& source, const std::string& reference) const
{
    return FindKey(m_criteria, source, "criterion", reference);
}

Long FireKeys::Alternative(const SourceObject& source, const std::string& name) const
{
    return FindKey(m_alternatives, source, "alternative", name);
}

Long FireKeys::Outcome(const SourceObject& source, const std::string& name) const
{
    return FindKey(m_outcomes, source, "outcome", name);
}

} // namespace datafile_builder
