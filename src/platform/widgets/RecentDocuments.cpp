#include "platform/widgets/RecentDocuments.h"

#include "platform/widgets/RecentList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

namespace platform {

namespace {

constexpr int kMostDocuments = 20;
constexpr qint64 kLargestList = 8 << 20; // bytes; what is larger went wrong somewhere else

QFile::Permissions OwnersAlone() { return QFile::ReadOwner | QFile::WriteOwner; }

RecentDocument DocumentOf(const QString& file)
{
    // The names that the desktop entry and the MIME type go by.
    return {QString::fromLatin1(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()).toEncoded()),
            QStringLiteral("application/x-vexa"),
            QStringLiteral("VEXA Basic"),
            QStringLiteral("vexa %f"),
            QDateTime::currentDateTimeUtc()};
}

bool IsOn(const QString& settings, const char* key)
{
    return QSettings(settings, QSettings::IniFormat).value(QLatin1String(key), true).toBool();
}

} // namespace

RecentDocuments::RecentDocuments(const QString& dataFolder, const QString& configFolder)
    : m_list(dataFolder + QLatin1String("/recently-used.xbel")), m_configFolder(configFolder)
{}

RecentDocuments::RecentDocuments()
    : RecentDocuments(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
                      QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
{}

bool RecentDocuments::Note(const QString& file) const
{
    if (!QFileInfo(file).isFile() || !IsWanted() || !MayBeWritten()) return false;
    QFile list(m_list);
    if (list.exists() && !list.open(QIODevice::ReadOnly)) return false;
    const std::optional<QByteArray> noted =
        WithDocument(list.isOpen() ? list.readAll() : QByteArray(), DocumentOf(file), kMostDocuments);
    return noted && Write(*noted);
}

/// The switches of the two families of desktops.
bool RecentDocuments::IsWanted() const
{
    return IsOn(m_configFolder + QLatin1String("/gtk-4.0/settings.ini"),
                "Settings/gtk-recent-files-enabled") &&
           IsOn(m_configFolder + QLatin1String("/gtk-3.0/settings.ini"),
                "Settings/gtk-recent-files-enabled") &&
           IsOn(m_configFolder + QLatin1String("/kdeglobals"), "RecentDocuments/UseRecent");
}

/// A user who wants no list also makes it a folder, a device or read-only.
bool RecentDocuments::MayBeWritten() const
{
    const QFileInfo list(m_list);
    if (!list.exists()) return !list.isSymLink();
    return list.isFile() && list.permission(QFile::WriteOwner) && list.size() <= kLargestList;
}

/// The list as it was stands until the new one is whole on the disk.
bool RecentDocuments::Write(const QByteArray& text) const
{
    const bool isNew = !QFileInfo::exists(m_list);
    QDir().mkpath(QFileInfo(m_list).path());
    QSaveFile list(m_list);
    if (!list.open(QIODevice::WriteOnly)) return false;
    if (isNew) list.setPermissions(OwnersAlone());
    list.write(text);
    return list.commit();
}

} // namespace platform
