#pragma once

#include <QString>

namespace platform {

/// The desktop's own list of recent documents, which file managers and file dialogs show, as far as this
/// program writes to it. The user may have the desktop remember nothing: then nothing is written.
class RecentDocuments
{
public:
    /// "recently-used.xbel" in a data folder, by the switches in a configuration folder.
    RecentDocuments(const QString& dataFolder, const QString& configFolder);
    /// The user's own.
    RecentDocuments();

    /// Notes a data file as just used. False, with the list as it was, where it cannot or must not be
    /// written: no file there, a list that is broken, read-only, no plain file or huge, or remembering is
    /// switched off.
    bool Note(const QString& file) const;

private:
    bool IsWanted() const;
    bool MayBeWritten() const;
    bool Write(const QByteArray& text) const;

    QString m_list;
    QString m_configFolder;
};

} // namespace platform
