#include "vexa-cli/CheckLinks.h"
#include "vexa-cli/LongRows.h"

#include <map>
#include <set>

namespace vexa_cli {

namespace {

constexpr Long kRoots[] = {1, 2};
const std::string kKind = "Objectives links";

/// Walks both trees by their first-child and next-sibling links.
class TreeWalk
{
public:
    TreeWalk(const LongRows& rows, Findings& findings) : m_findings(findings)
    {
        for (const std::vector<LongCell>& row : rows.Rows()) {
            if (row[0]) {
                m_rows[*row[0]] = {row[1].value_or(0), row[2].value_or(0), row[3].value_or(0)};
            }
        }
    }

    void Run()
    {
        for (const Long root : kRoots) {
            m_seen.insert(root);
        }
        for (const Long root : kRoots) {
            if (m_rows.contains(root)) {
                WalkBelow(root);
            }
        }
        for (const auto& [key, row] : m_rows) {
            if (!m_seen.contains(key)) {
                m_findings.Add(kKind, Name(key) + " is in neither tree");
            }
        }
    }

private:
    struct Row
    {
        Long parent = 0;
        Long child = 0;
        Long sibling = 0;
    };

    static std::string Name(Long key) { return "row " + std::to_string(key); }

    /// Not by recursion: a hostile file may nest without end.
    void WalkBelow(Long root)
    {
        std::vector<Long> parents{root};
        while (!parents.empty()) {
            const Long parent = parents.back();
            parents.pop_back();
            WalkChildren(parent, parents);
        }
    }

    void WalkChildren(Long parent, std::vector<Long>& parents)
    {
        Long from = parent;
        const char* link = "ChildKey";
        for (Long key = m_rows[parent].child; key > 0 && Arrives(from, link, key);) {
            if (m_rows[key].parent != parent) {
                m_findings.Add(kKind,
                               Name(key) + " hangs below row " + std::to_string(parent) +
                                   ", but its ParentKey is " + std::to_string(m_rows[key].parent));
            }
            parents.push_back(key);
            from = key;
            link = "SiblingKey";
            key = m_rows[key].sibling;
        }
    }

    /// Whether a link leads to a row that was not met before.
    bool Arrives(Long from, const char* link, Long key)
    {
        if (!m_rows.contains(key)) {
            m_findings.Add(
                kKind, Name(from) + ": " + link + " points to " + std::to_string(key) + ", which is no row");
            return false;
        }
        if (!m_seen.insert(key).second) {
            m_findings.Add(kKind, Name(from) + ": " + link + " leads back to row " + std::to_string(key));
            return false;
        }
        return true;
    }

    Findings& m_findings;
    std::map<Long, Row> m_rows;
    std::set<Long> m_seen;
};

} // namespace

void CheckObjectiveTrees(platform::Database& database, Findings& findings)
{
    const LongRows rows(database, "Objectives", {"Key", "ParentKey", "ChildKey", "SiblingKey"});
    TreeWalk(rows, findings).Run();
}

} // namespace vexa_cli
