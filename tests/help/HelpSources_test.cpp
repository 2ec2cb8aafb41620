#include "help/HelpSources.h"
#include "platform/base/HelpTopics.h"
#include "support/TempFolder.h"
#include "worksheets/IntroductionTexts.h"
#include "worksheets/WorksheetTable.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

#include <algorithm>

namespace HelpTopics = platform::HelpTopics;

namespace {

const HelpSources& Sources()
{
    static const HelpSources sources;
    return sources;
}

std::string Text(const QString& text) { return text.toStdString(); }

/// The topics that the dialogs name in their own files.
QSet<int> TopicsOfDialogs()
{
    QSet<int> topics;
    const QDir folder(QStringLiteral(VEXA_SOURCES "/worksheets"));
    for (const QString& name : folder.entryList({QStringLiteral("*.cpp")})) {
        const QString source = ReadSource(folder.filePath(name));
        for (const QString& id : AllMatches(source, QStringLiteral("kHelpContext = (\\d+);")))
            topics.insert(id.toInt());
    }
    return topics;
}

/// Every topic that the program can ask for.
QSet<int> TopicsOfProgram()
{
    QSet<int> topics = TopicsOfDialogs();
    for (const WorksheetEntry& worksheet : Worksheets())
        topics.insert(worksheet.helpContextID);
    for (int section = 2; section <= 7; ++section)
        topics.insert(IntroductionOf(section).helpContextID);
    const QString header = ReadSource(QStringLiteral(VEXA_SOURCES "/platform/base/HelpTopics.h"));
    for (const QString& id : AllMatches(header, QStringLiteral("constexpr int k\\w+ = (\\d+);")))
        topics.insert(id.toInt());
    topics.remove(HelpTopics::kContents); // the first page has a name instead
    return topics;
}

/// The pages that can be reached from a page by links.
void Follow(const QString& page, QSet<QString>& reached)
{
    if (reached.contains(page)) return;
    reached.insert(page);
    for (const QString& link : Sources().LinksOf(page))
        Follow(link, reached);
}

TEST(HelpSources, EveryTopicOfTheProgram_HasOnePageAndNoOtherTopicHas)
{
    QSet<int> topics;
    for (const HelpSources::Entry& keyword : Sources().keywords) {
        if (keyword.id.isEmpty() || keyword.id == QLatin1String("contents")) continue;
        EXPECT_FALSE(topics.contains(keyword.id.toInt())) << Text(keyword.id) << " twice";
        topics.insert(keyword.id.toInt());
    }
    EXPECT_EQ(TopicsOfDialogs(), QSet<int>({4551, 4552, 4831}));
    EXPECT_EQ(topics, TopicsOfProgram());
}

TEST(HelpSources, EveryLink_LeadsToAPage)
{
    int links = 0;
    for (const auto& [page, text] : Sources().pages) {
        for (const QString& link : Sources().LinksOf(page)) {
            EXPECT_EQ(Sources().pages.count(link), 1U) << Text(page) << ": " << Text(link);
            ++links;
        }
    }
    EXPECT_GT(links, 100);
}

TEST(HelpSources, NoPage_IsOutOfReach)
{
    QSet<QString> reached;
    Follow(QStringLiteral("index.html"), reached);
    for (const auto& [page, text] : Sources().pages) {
        EXPECT_TRUE(reached.contains(page)) << Text(page);
    }
}

TEST(HelpSources, EveryPage_StandsInContentsIndexAndFilesUnderItsTitle)
{
    for (const auto& [page, text] : Sources().pages) {
        const auto isPage = [&name = page](const HelpSources::Entry& entry) { return entry.page == name; };
        const QString title = Sources().TitleOf(page);
        EXPECT_TRUE(Sources().files.contains(page)) << Text(page);
        EXPECT_EQ(std::count_if(Sources().contents.begin(),
                                Sources().contents.end(),
                                [&](const auto& entry) { return isPage(entry) && entry.title == title; }),
                  1)
            << Text(page);
        EXPECT_TRUE(std::any_of(Sources().keywords.begin(), Sources().keywords.end(), isPage)) << Text(page);
        EXPECT_TRUE(text.contains(QStringLiteral("<h1>%1</h1>").arg(title))) << Text(page);
    }
    for (const HelpSources::Entry& entry : Sources().contents)
        EXPECT_EQ(Sources().pages.count(entry.page), 1U) << Text(entry.page);
}

TEST(HelpSources, IndexEntries_AreUniqueAndLeadToPages)
{
    QSet<QString> names;
    for (const HelpSources::Entry& keyword : Sources().keywords) {
        EXPECT_FALSE(names.contains(keyword.title)) << Text(keyword.title);
        names.insert(keyword.title);
        EXPECT_EQ(Sources().pages.count(keyword.page), 1U) << Text(keyword.page);
    }
}

TEST(HelpSources, EveryPicture_WasTakenAndIsShown)
{
    QSet<QString> shown;
    for (const auto& [page, text] : Sources().pages) {
        for (const QString& picture : Sources().PicturesOf(page)) {
            shown.insert(picture);
            const QImage taken(QStringLiteral(VEXA_HELP_MADE "/") + picture);
            EXPECT_GT(taken.width(), 300) << Text(picture);
            EXPECT_TRUE(Sources().files.contains(picture)) << Text(picture);
        }
        EXPECT_EQ(text.count(QLatin1String("<img ")), text.count(QLatin1String(" alt=\""))) << Text(page);
    }
    for (const QString& file : Sources().files) {
        QString light = file;
        light.remove(QStringLiteral("-dark"));
        EXPECT_TRUE(!file.startsWith(QLatin1String("pictures/")) || shown.contains(light)) << Text(file);
    }
}

TEST(HelpSources, EveryFileOfTheProject_WasThereToBeTaken)
{
    for (const QString& file : Sources().files)
        EXPECT_TRUE(QFile::exists(QStringLiteral(VEXA_HELP_MADE "/") + file)) << Text(file);
    EXPECT_GT(Sources().files.size(), 60);
}

TEST(HelpSources, EveryWorksheet_ShowsItsPicture)
{
    for (const HelpSources::Entry& keyword : Sources().keywords) {
        const int topic = keyword.id.toInt();
        const bool introduction = topic % 100 == 10 && topic != 4210;
        if (topic < 4200 || introduction) continue;
        EXPECT_FALSE(Sources().PicturesOf(keyword.page).isEmpty()) << Text(keyword.page);
    }
}

TEST(HelpSources, Pages_HaveWholeTags)
{
    static const QSet<QString> kSingle = {
        QStringLiteral("meta"), QStringLiteral("link"), QStringLiteral("img")};
    for (const auto& [page, text] : Sources().pages) {
        QStringList open;
        const QRegularExpression tag(QStringLiteral("<(/?)([a-z0-9]+)[^>]*>"));
        for (auto match = tag.globalMatch(text); match.hasNext();) {
            const auto found = match.next();
            if (kSingle.contains(found.captured(2))) continue;
            if (found.captured(1).isEmpty()) {
                open.append(found.captured(2));
            } else {
                EXPECT_EQ(Text(open.isEmpty() ? QString() : open.takeLast()), Text(found.captured(2)))
                    << Text(page);
            }
        }
        EXPECT_TRUE(open.isEmpty()) << Text(page);
    }
}

TEST(HelpSources, NoPage_FixesAColour)
{
    const QString css = ReadSource(QStringLiteral(VEXA_HELP_PAGES "/help.css"));
    QString all = css;
    for (const auto& [page, text] : Sources().pages)
        all += text;
    EXPECT_FALSE(all.contains(QRegularExpression(QStringLiteral("color: *(#|rgb|[a-z]+;)|bgcolor|<font"))));
    EXPECT_GT(css.count(QLatin1String("palette(")), 3);
}

} // namespace
