#pragma once

#include "datafile_builder/DatafileWriter.h"
#include "datafile_builder/SourceObject.h"

#include <map>
#include <optional>
#include <string>

namespace datafile_builder {

/// The keys that the names of one source stand for. Each read and write takes the object that used the name,
/// which is blamed in the BuildError when the name is unknown or taken.
class FireKeys
{
public:
    /// Knows the template's categories, the children of objective 1, by their keys as text.
    explicit FireKeys(DatafileWriter& writer);

    void AddCriterion(const SourceObject& source, const std::string& reference, Long key);
    void AddAlternative(const SourceObject& source, const std::string& name, Long key);
    /// `name` is "A.Target", "B.Fallback" or "Extreme".
    void AddOutcome(const SourceObject& source, const std::string& name, Long key);

    Long Criterion(const SourceObject& source, const std::string& reference) const;
    Long Alternative(const SourceObject& source, const std::string& name) const;
    Long Outcome(const SourceObject& source, const std::string& name) const;

    /// The Target of the first alternative, once there is one: new burn areas take their mix from it.
    std::optional<Long> FuelSource() const { return m_fuelSource; }
    void SetFuelSource(Long target) { m_fuelSource = m_fuelSource.value_or(target); }

private:
    using Keys = std::map<std::string, Long>;

    Keys m_criteria;
    Keys m_alternatives;
    Keys m_outcomes;
    std::optional<Long> m_fuelSource;
};

} // namespace datafile_builder
