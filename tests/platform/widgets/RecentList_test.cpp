#include "platform/widgets/RecentList.h"

#include <QTimeZone>
#include <gtest/gtest.h>

#include <string>

using platform::RecentDocument;
using platform::WithDocument;

namespace {

constexpr int kMany = 100;

const std::string kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<xbel xmlns:bookmark=\"http://www.freedesktop.org/standards/desktop-bookmarks\""
    " xmlns:mime=\"http://www.freedesktop.org/standards/shared-mime-info\" version=\"1.0\">\n";
const std::string kFoot = "</xbel>\n";

const std::string kForeign =
    "  <bookmark href=\"file:///a/letter%20%26%20more.odt\" added=\"2026-01-02T03:04:05Z\""
    " modified=\"2026-01-02T03:04:05Z\" visited=\"1969-12-31T23:59:59Z\">\n"
    "    <title>Caf\xC3\xA9 &lt;1&gt;</title>\n"
    "    <info>\n"
    "      <metadata owner=\"http://freedesktop.org\">\n"
    "        <mime:mime-type type=\"text/plain\"/>\n"
    "        <bookmark:groups>\n"
    "          <bookmark:group>Office</bookmark:group>\n"
    "        </bookmark:groups>\n"
    "        <bookmark:applications>\n"
    "          <bookmark:application name=\"Writer\" exec=\"'writer %u'\""
    " modified=\"2026-01-02T03:04:05Z\" count=\"3\"/>\n"
    "        </bookmark:applications>\n"
    "        <bookmark:private/>\n"
    "      </metadata>\n"
    "    </info>\n"
    "  </bookmark>\n";

std::string OursUsed(int count) // without the end of the element
{
    return "<bookmark:application name=\"VEXA Basic\" exec=\"'vexa %f'\" modified=\"2026-11-21T10:20:30Z\""
           " count=\"" +
           std::to_string(count) + "\"";
}

std::string Fresh(const std::string& address)
{
    return "  <bookmark href=\"" + address +
           "\" added=\"2026-11-21T10:20:30Z\" modified=\"2026-11-21T10:20:30Z\""
           " visited=\"2026-11-21T10:20:30Z\"><info><metadata owner=\"http://freedesktop.org\">"
           "<mime:mime-type type=\"application/x-vexa\"/><bookmark:applications>" +
           OursUsed(1) + "/></bookmark:applications></metadata></info></bookmark>\n";
}

RecentDocument Fire(const char* address = "file:///f/Fire1.qel", int second = 30)
{
    return {QString::fromUtf8(address),
            QStringLiteral("application/x-vexa"),
            QStringLiteral("VEXA Basic"),
            QStringLiteral("vexa %f"),
            QDateTime({2026, 11, 21}, {10, 20, second}, QTimeZone::utc())};
}

std::string Noted(const std::string& list, const RecentDocument& document = Fire(), int most = kMany)
{
    const auto noted = WithDocument(QByteArray::fromStdString(list), document, most);
    return noted ? noted->toStdString() : "left alone";
}

std::size_t CountOf(const std::string& words, const std::string& text)
{
    std::size_t count = 0;
    for (auto at = text.find(words); at != std::string::npos; at = text.find(words, at + 1))
        ++count;
    return count;
}

bool Has(const std::string& text, const std::string& words) { return CountOf(words, text) > 0; }

/// Our fire as another program noted it, with some of the elements that programs write.
std::string NotedElsewhere(const std::string& inside)
{
    return kHead +
           "  <bookmark href=\"file:///f/Fire1.qel\" added=\"2026-01-01T00:00:00Z\""
           " modified=\"2026-01-01T00:00:00Z\" visited=\"2026-01-01T00:00:00Z\">" +
           inside + "</bookmark>\n" + kFoot;
}

} // namespace

TEST(RecentList, EmptyText_BecomesAListOfOne)
{
    EXPECT_EQ(Noted(""), kHead + Fresh("file:///f/Fire1.qel") + kFoot);
}

TEST(RecentList, ForeignEntries_StayAsTheyAre)
{
    EXPECT_EQ(Noted(kHead + kForeign + kFoot), kHead + kForeign + Fresh("file:///f/Fire1.qel") + kFoot);
}

TEST(RecentList, CommentsAndUnknownElements_Stay)
{
    const std::string list =
        kHead + "  <!-- mine -->\n  <folder><title>Work</title><separator/></folder>\n" + kFoot;
    EXPECT_EQ(Noted(list),
              kHead + "  <!-- mine -->\n  <folder><title>Work</title><separator/></folder>\n" +
                  Fresh("file:///f/Fire1.qel") + kFoot);
}

TEST(RecentList, NotedAgain_CountsAndKeepsWhenItWasAdded)
{
    RecentDocument earlier = Fire();
    earlier.time = earlier.time.addDays(-1);
    const std::string list = Noted(Noted("", earlier));
    EXPECT_EQ(CountOf("<bookmark ", list), 1U) << list;
    EXPECT_TRUE(Has(list, "added=\"2026-11-20T10:20:30Z\" modified=\"2026-11-21T10:20:30Z\"")) << list;
    EXPECT_TRUE(Has(list, OursUsed(2))) << list;
    EXPECT_FALSE(Has(list, OursUsed(1))) << list;
}

TEST(RecentList, NotedByAnotherProgramToo_BothStand)
{
    const std::string other = "<bookmark:application name=\"Files\" exec=\"'files %u'\" "
                              "modified=\"2026-01-01T00:00:00Z\" count=\"7\"/>";
    const std::string list =
        Noted(NotedElsewhere("<title>The fire</title><info><metadata "
                             "owner=\"http://freedesktop.org\"><mime:mime-type type=\"a/b\"/>"
                             "<bookmark:applications>" +
                             other + "</bookmark:applications></metadata></info>"));
    EXPECT_TRUE(Has(list, other)) << list;
    EXPECT_TRUE(Has(list, OursUsed(1) + "/></bookmark:applications></metadata></info></bookmark>")) << list;
    EXPECT_TRUE(Has(list, "<title>The fire</title>")) << list;
    EXPECT_EQ(CountOf("<mime:mime-type ", list), 1U) << list;
    EXPECT_EQ(CountOf("<bookmark ", list), 1U) << list;
}

TEST(RecentList, BookmarkThatLacksElements_GetsThem)
{
    const std::string ours = "<bookmark:applications>" + OursUsed(1) + "/></bookmark:applications>";
    const std::string metadata = "<metadata owner=\"http://freedesktop.org\"><mime:mime-type "
                                 "type=\"application/x-vexa\"/>" +
                                 ours + "</metadata>";
    const std::string foreign = "<metadata owner=\"http://other.example\"><x/></metadata>";
    const struct
    {
        std::string inside;
        std::string wanted;
    } cases[] = {
        {"", "<info>" + metadata + "</info></bookmark>"},
        {"<info></info>", "<info>" + metadata + "</info></bookmark>"},
        {"<info>" + foreign + "</info>", "<info>" + foreign + metadata + "</info></bookmark>"},
        {"<info><metadata owner=\"http://freedesktop.org\"><a/></metadata></info>",
         "<info><metadata owner=\"http://freedesktop.org\"><a/>" + ours + "</metadata></info></bookmark>"},
    };
    for (const auto& bookmark : cases) {
        const std::string list = Noted(NotedElsewhere(bookmark.inside));
        EXPECT_TRUE(Has(list, bookmark.wanted)) << bookmark.inside << '\n' << list;
        EXPECT_EQ(CountOf("VEXA Basic", list), 1U) << list;
    }
}

TEST(RecentList, TooMany_TheOldestOfOursGoAndLeaveNoGap)
{
    std::string list;
    for (const char* address : {"file:///1.qel", "file:///2.qel", "file:///3.qel"})
        list = Noted(list, Fire(address, address[8] - '0'), kMany);
    list = Noted(list, Fire("file:///1.qel", 20), kMany); // which makes 2 the oldest
    list = Noted(list, Fire("file:///4.qel", 30), 3);
    EXPECT_FALSE(Has(list, "2.qel")) << list;
    for (const char* kept : {"1.qel", "3.qel", "4.qel"})
        EXPECT_TRUE(Has(list, kept)) << list;
    EXPECT_EQ(CountOf("\n", list), 6U) << list; // a line each, head and foot
}

TEST(RecentList, TooMany_EntriesOfOthersStay)
{
    std::string list = kHead + kForeign + kFoot;
    list = Noted(NotedElsewhere("<info><metadata owner=\"http://freedesktop.org\"><bookmark:applications>"
                                "<bookmark:application name=\"Files\" exec=\"f\"/></bookmark:applications>"
                                "</metadata></info>"));
    list = Noted(list, Fire("file:///2.qel"), 1);
    EXPECT_TRUE(Has(list, "file:///f/Fire1.qel")) << "another program noted it too: " << list;
    list = Noted(list, Fire("file:///3.qel"), 1);
    EXPECT_TRUE(Has(list, "file:///f/Fire1.qel")) << list;
    EXPECT_FALSE(Has(list, "file:///2.qel")) << list;
}

TEST(RecentList, TheDocumentItself_IsNeverDroppedForItsAge)
{
    std::string list = Noted("", Fire("file:///1.qel", 1), kMany);
    list = Noted(list, Fire("file:///2.qel", 2), kMany);
    list = Noted(list, Fire("file:///1.qel", 3), 1);
    EXPECT_TRUE(Has(list, "1.qel")) << list;
    EXPECT_FALSE(Has(list, "2.qel")) << list;
}

TEST(RecentList, MarksInAnAddress_AreWrittenAsText)
{
    const std::string list = Noted("", Fire("file:///a&b'c.qel"));
    EXPECT_TRUE(Has(list, "file:///a&amp;b'c.qel")) << list;
    EXPECT_EQ(CountOf("<bookmark ", Noted(list, Fire("file:///a&b'c.qel"))), 1U);
}

TEST(RecentList, TextThatIsNoWholeList_IsLeftAlone)
{
    for (const std::string& broken : {std::string("no list"),
                                      std::string("<html/>"),
                                      kHead,
                                      kHead + kForeign,
                                      kHead + kFoot + "<more/>",
                                      kHead + "<a>\xff</a>" + kFoot,
                                      kHead + "<bookmark href=\"a\">" + kFoot,
                                      std::string("\n")}) {
        EXPECT_EQ(Noted(broken), "left alone") << broken;
    }
}
