#include "vexa-cli/Findings.h"

namespace vexa_cli {

namespace {
constexpr int kTold = 10;
} // namespace

void Findings::Add(const std::string& kind, const std::string& text)
{
    if (++m_counts[kind] <= kTold) {
        m_lines.push_back(kind + ": " + text);
    }
}

std::vector<std::string> Findings::Lines() const
{
    std::vector<std::string> lines = m_lines;
    for (const auto& [kind, count] : m_counts) {
        if (count > kTold) {
            lines.push_back(kind + ": " + std::to_string(count - kTold) + " more of this kind");
        }
    }
    return lines;
}

} // namespace vexa_cli
