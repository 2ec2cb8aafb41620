#pragma once

#include "platform/data/Database.h"

#include <memory>
#include <string>
#include <utility>

namespace platform {

/// The database that takes the place of a Jet database under its name. Until it does the Jet database is not
/// touched, and nobody else can take its place.
///
/// Beside "Fire.qel" stands meanwhile "Fire.qel.import~", which the destructor removes. The original is kept
/// as "Fire.qel.jet" (".jet2", ".jet3" and so on where that is taken). Whenever the process is killed, the
/// name holds the one database or the other whole; what is left over goes when the Jet database is opened
/// next.
class JetReplacement
{
public:
    /// Reads the tables. Throws JetError and DatabaseError, with nothing left behind.
    explicit JetReplacement(const std::string& path);
    JetReplacement(const JetReplacement&) = delete;
    JetReplacement& operator=(const JetReplacement&) = delete;
    ~JetReplacement();

    /// The new database, to be worked on and closed before TakeName.
    std::unique_ptr<Database> TakeDatabase() { return std::move(m_database); }
    /// Keeps the original beside and gives the new database its name. Throws JetError, with the name as it
    /// was.
    void TakeName();

private:
    void Lock(const std::string& path);
    void RemoveLeftovers() const;
    bool IsSpare(const std::string& kept, bool interrupted) const;
    void MakeNewFile() const;
    std::string KeepOriginal() const;
    void SyncNewFile() const;

    std::string m_path; // links in it are resolved
    std::string m_newPath;
    int m_original = -1;
    std::unique_ptr<Database> m_database;
};

} // namespace platform
