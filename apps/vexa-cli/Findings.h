#pragma once

#include <map>
#include <string>
#include <vector>

namespace vexa_cli {

/// What a check found: a line each. Of one kind only the first few are told, then how many more there are.
class Findings
{
public:
    /// `kind` groups findings that a damaged table yields by the thousand.
    void Add(const std::string& kind, const std::string& text);
    std::vector<std::string> Lines() const;

private:
    std::vector<std::string> m_lines;
    std::map<std::string, int> m_counts;
};

} // namespace vexa_cli
