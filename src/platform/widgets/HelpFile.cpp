#include "platform/widgets/HelpFile.h"

#include <QHelpEngine>
#include <QHelpLink>

namespace platform {

namespace {

const QString kContentsPage = QStringLiteral("contents");

} // namespace

HelpFile::HelpFile() : m_folder() {}

HelpFile::~HelpFile() = default;

std::unique_ptr<HelpFile> HelpFile::Open(const QString& path)
{
    std::unique_ptr<HelpFile> file(new HelpFile);
    if (!file->Register(path)) return nullptr;
    return file;
}

bool HelpFile::Register(const QString& path)
{
    if (!m_folder.isValid()) return false;
    const QString collection = m_folder.filePath(QStringLiteral("help.qhc"));
    {
        // The engine reads contents and index once, when it is set up: the file must be known by then.
        QHelpEngineCore core(collection);
        core.setReadOnly(false);
        if (!core.setupData() || !core.registerDocumentation(path)) return false;
    }
    m_engine = std::make_unique<QHelpEngine>(collection);
    m_engine->setReadOnly(false);
    return m_engine->setupData() && Page(0).isValid();
}

QUrl HelpFile::Page(int topic) const
{
    const QList<QHelpLink> found = m_engine->documentsForIdentifier(QString::number(topic));
    if (!found.isEmpty()) return found.constFirst().url;
    const QList<QHelpLink> contents = m_engine->documentsForIdentifier(kContentsPage);
    return contents.isEmpty() ? QUrl() : contents.constFirst().url;
}

QByteArray HelpFile::Data(const QUrl& url) const { return m_engine->fileData(url); }

} // namespace platform
