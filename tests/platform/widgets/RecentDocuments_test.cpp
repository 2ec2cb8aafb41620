#include "platform/widgets/QtDesktop.h"
#include "platform/widgets/RecentDocuments.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <unistd.h>

using platform::RecentDocuments;

namespace {

/// Folders of a user's own, with a data file in them.
class RecentDocumentsTest : public ::testing::Test
{
protected:
    RecentDocumentsTest() { WriteFile(Path("Bear Paw.qel"), "a fire"); }

    QString Path(const char* name) const { return user.filePath(QString::fromUtf8(name)); }
    QString List() const { return Path("data/recently-used.xbel"); }
    bool Note() const { return RecentDocuments(Path("data"), Path("config")).Note(Path("Bear Paw.qel")); }

    static void WriteFile(const QString& path, const QByteArray& bytes)
    {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    static QByteArray ReadFile(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir user;
};

/// The desktop's interface, over the user's folders that the environment tells.
class NoteRecentFile : public RecentDocumentsTest
{
protected:
    NoteRecentFile()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(Path("data")));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(Path("config")));
    }
    ~NoteRecentFile() override
    {
        QStandardPaths::setTestModeEnabled(false);
        qunsetenv("XDG_DATA_HOME");
        qunsetenv("XDG_CONFIG_HOME");
    }

    platform::QtDesktop desktop{QStringLiteral("VEXA Basic")};
};

} // namespace

TEST_F(RecentDocumentsTest, FirstDocument_MakesAListForTheOwnerAlone)
{
    EXPECT_TRUE(Note());
    const QByteArray list = ReadFile(List());
    EXPECT_TRUE(list.contains("/Bear%20Paw.qel\"")) << list.toStdString();
    EXPECT_TRUE(list.contains("application/x-vexa"));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFile::permissions(List()) & others, QFile::Permissions());
    EXPECT_EQ(QDir(Path("data")).entryList(QDir::Files), QStringList{QStringLiteral("recently-used.xbel")});
}

TEST_F(RecentDocumentsTest, RelativePath_IsNotedWhole)
{
    const QString before = QDir::currentPath();
    QDir::setCurrent(user.path());
    EXPECT_TRUE(RecentDocuments(Path("data"), Path("config")).Note(QStringLiteral("Bear Paw.qel")));
    QDir::setCurrent(before);
    const QByteArray address = "href=\"file://" + user.path().toUtf8() + "/Bear%20Paw.qel\"";
    EXPECT_TRUE(ReadFile(List()).contains(address)) << ReadFile(List()).toStdString();
}

TEST_F(RecentDocumentsTest, FileThatIsGone_IsNotNoted)
{
    QFile::remove(Path("Bear Paw.qel"));
    EXPECT_FALSE(Note());
    EXPECT_FALSE(QFileInfo::exists(List()));
}

TEST_F(RecentDocumentsTest, BrokenList_StaysAsItIs)
{
    for (const QByteArray broken : {"<xbel><bookmark href='a'></xbel>", "no list", "<html></html>", "\n"}) {
        WriteFile(List(), broken);
        EXPECT_FALSE(Note()) << broken.toStdString();
        EXPECT_EQ(ReadFile(List()), broken);
    }
}

TEST_F(RecentDocumentsTest, HugeList_StaysAsItIs)
{
    WriteFile(List(), "<xbel>" + QByteArray(9 << 20, ' ') + "</xbel>");
    EXPECT_FALSE(Note());
    EXPECT_EQ(QFileInfo(List()).size(), (9 << 20) + 13);
}

TEST_F(RecentDocumentsTest, ReadOnlyList_StaysAsItIs)
{
    WriteFile(List(), "<xbel></xbel>");
    QFile::setPermissions(List(), QFile::ReadOwner);
    EXPECT_FALSE(Note());
    EXPECT_EQ(ReadFile(List()), QByteArray("<xbel></xbel>"));
}

TEST_F(RecentDocumentsTest, FolderDeviceOrDeadLinkInTheListsPlace_Stays)
{
    QDir().mkpath(List());
    EXPECT_FALSE(Note());
    EXPECT_TRUE(QFileInfo(List()).isDir());
    QDir().rmdir(List());
    for (const char* target : {"/dev/null", "/nowhere/list.xbel"}) {
        ASSERT_EQ(::symlink(target, QFile::encodeName(List()).constData()), 0);
        EXPECT_FALSE(Note()) << target;
        EXPECT_EQ(QFile::symLinkTarget(List()), QString::fromUtf8(target));
        QFile::remove(List());
    }
}

TEST_F(RecentDocumentsTest, LinkedList_IsWrittenWhereItStands)
{
    WriteFile(Path("kept/list.xbel"), "<xbel></xbel>");
    QDir().mkpath(Path("data"));
    QFile::link(Path("kept/list.xbel"), List());
    EXPECT_TRUE(Note());
    EXPECT_TRUE(QFileInfo(List()).isSymLink());
    EXPECT_TRUE(ReadFile(Path("kept/list.xbel")).contains("Bear%20Paw.qel"));
}

TEST_F(RecentDocumentsTest, DataFolderThatCannotBeMade_IsNoError)
{
    WriteFile(Path("data"), "a file");
    EXPECT_FALSE(Note());
    EXPECT_EQ(ReadFile(Path("data")), QByteArray("a file"));
}

TEST_F(RecentDocumentsTest, RememberingSwitchedOff_WritesNothing)
{
    const struct
    {
        const char* file;
        const char* text;
        bool noted;
    } cases[] = {
        {"config/gtk-3.0/settings.ini", "[Settings]\ngtk-recent-files-enabled=0\n", false},
        {"config/gtk-4.0/settings.ini", "[Settings]\ngtk-recent-files-enabled=false\n", false},
        {"config/kdeglobals", "[RecentDocuments]\nUseRecent=false\n", false},
        {"config/gtk-3.0/settings.ini", "[Settings]\ngtk-recent-files-enabled=1\n", true},
        {"config/gtk-3.0/settings.ini", "[Settings]\ngtk-theme-name=Plain\n", true},
        {"config/kdeglobals", "[RecentDocuments]\nUseRecent=true\n", true},
    };
    for (const auto& settings : cases) {
        WriteFile(Path(settings.file), settings.text);
        EXPECT_EQ(Note(), settings.noted) << settings.text;
        EXPECT_EQ(QFileInfo::exists(List()), settings.noted) << settings.text;
        QFile::remove(Path(settings.file));
        QFile::remove(List());
    }
}

TEST_F(NoteRecentFile, WritesTheUsersOwnList)
{
    desktop.NoteRecentFile(Path("Bear Paw.qel").toStdString());
    EXPECT_TRUE(ReadFile(List()).contains("Bear%20Paw.qel"));
}

TEST_F(NoteRecentFile, InTestMode_WritesNowhere)
{
    QStandardPaths::setTestModeEnabled(true);
    desktop.NoteRecentFile(Path("Bear Paw.qel").toStdString());
    EXPECT_FALSE(QFileInfo::exists(List()));
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    EXPECT_FALSE(QFileInfo::exists(data + QLatin1String("/recently-used.xbel")));
}
