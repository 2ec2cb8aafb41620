#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>

class QHelpEngine;

namespace platform {

/// The help file, opened for reading: its pages and pictures, topics, contents, index and search. What the
/// toolkit writes about it lies in a folder of its own for temporary files, so that two programs never meet,
/// and goes with the object.
class HelpFile
{
public:
    /// Nothing when the file is no help file or cannot be read.
    static std::unique_ptr<HelpFile> Open(const QString& path);
    HelpFile(const HelpFile&) = delete;
    HelpFile& operator=(const HelpFile&) = delete;
    ~HelpFile();

    /// The page of a topic; the contents page for topic 0 and for one that the file has not.
    QUrl Page(int topic) const;
    /// The bytes of a page or picture; empty when the file has none of that name.
    QByteArray Data(const QUrl& url) const;

    /// The toolkit's models and widgets of contents, index and search.
    QHelpEngine& Engine() { return *m_engine; }

private:
    HelpFile();
    bool Register(const QString& path);

    QTemporaryDir m_folder;
    std::unique_ptr<QHelpEngine> m_engine;
};

} // namespace platform
