#include "platform/print/SavedFile.h"

#include "platform/print/PrintError.h"

#include <QFile>

namespace platform::print {

/// Without the toolkit's buffer: it would swallow what the disk says to the last bytes.
SavedFile::SavedFile(const std::string& path)
    : m_path(path), m_file(QFile::decodeName(QByteArray::fromStdString(path)))
{
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) Fail();
}

void SavedFile::Write(std::string_view bytes)
{
    const auto size = static_cast<qint64>(bytes.size());
    if (m_file.write(bytes.data(), size) != size) Fail();
}

void SavedFile::Commit()
{
    if (!m_file.commit()) Fail();
}

/// A disk that takes a part and no more gives no cause.
void SavedFile::Fail() const
{
    const bool hasCause = m_file.error() != QFileDevice::NoError;
    throw PrintError(m_path,
                     hasCause ? m_file.errorString().toStdString() : "there is no room for all of it");
}

} // namespace platform::print
