#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/NormalizeBody.h"
#include "platform/richtext/RandomDocument.h"
#include "platform/richtext/RichDocuments.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"

#include <gtest/gtest.h>

using namespace rich;

namespace {

const std::string head = R"({\rtf1\ansi\ansicpg1252\uc0\deff0{\fonttbl{\f0\fswiss\fcharset0\fprq2 Arial;}})"
                         R"({\colortbl;\red0\green0\blue0;\red255\green255\blue255;})";
const std::string start = R"(\plain\f0\fs20 )";

std::string Saved(const std::string& body) { return WriteRtf(ReadRtf(body)); }

/// The first block of two documents that differs, for the failure text.
std::size_t FirstDifference(const RichDocument& a, const RichDocument& b)
{
    std::size_t place = 0;
    while (place < a.blocks.size() && place < b.blocks.size() && a.blocks[place] == b.blocks[place])
        ++place;
    return place;
}

} // namespace

TEST(RtfRoundTrip, EmptyBody_ComesBackToTheLetter)
{
    EXPECT_EQ(Saved(head + start + R"(\pard \par })"), head + start + R"(\pard \par })");
}

// The form that bodies are shipped in: bold captions in lists, empty lines, two lists.
TEST(RtfRoundTrip, StoredBody_ComesBackToTheLetter)
{
    const std::string level =
        R"({\listlevel\levelnfc23\leveljc0\levelfollow0\levelstartat1\levelspace0\levelindent0)"
        R"({\leveltext\'01\u8226 ;}{\levelnumbers;}\fi-360\li360\tx360}{\listname ;})";
    const std::string body =
        head + R"({\*\listtable{\list\listtemplateid1\listhybrid)" + level +
        R"(\listid1}{\list\listtemplateid901\listhybrid)" + level +
        R"(\listid901}}{\*\listoverridetable{\listoverride\listid1\listoverridecount0\ls1})"
        R"({\listoverride\listid901\listoverridecount0\ls901}})" +
        start +
        R"(\pard Fuel \u8805  5 tons, 90 \'b0F.\par \pard \par )"
        R"(\pard {\listtext \u8226 \tab}\ls1\ilvl0\fi-360\li360\tx360 \b Sable Fire:\b0  spruce\par )"
        R"(\pard {\listtext \u8226 \tab}\ls1\ilvl0\fi-360\li360\tx360 \b Kestrel Fire\b0\par \pard \par )"
        R"(\pard {\listtext \u8226 \tab}\ls901\ilvl0\fi-360\li360\tx360 \b \u8226  x\b0 , y\par })";
    EXPECT_EQ(Saved(body), body);
}

TEST(RtfRoundTrip, EditorsDocument_ComesBackEqual)
{
    const RichDocument document = DocumentOf({Line("Plain"),
                                              Line("bullet", Item(1)),
                                              Line("below", Item(1, 8)),
                                              Paragraph{},
                                              Line("number", Item(2))},
                                             {BulletList(), NumberList()});
    EXPECT_EQ(ReadRtf(WriteRtf(document)), document);
}

TEST(RtfRoundTrip, ListsOfAnyOrder_AreNumberedAnewOnce)
{
    const RichDocument document =
        DocumentOf({Line("b", Item(2)), Line("a", Item(1))}, {BulletList(), NumberList()});
    const std::string written = WriteRtf(document);
    EXPECT_EQ(ReadRtf(written),
              DocumentOf({Line("b", Item(1)), Line("a", Item(2))}, {NumberList(), BulletList()}));
    EXPECT_EQ(Saved(written), written);
}

// n paragraphs are n marks: what stands at the very end opens no paragraph, and saving never adds one.
TEST(RtfRoundTrip, Paragraphs_KeepTheirCount)
{
    std::string body = head + start + R"(\pard a\par \pard b\par })";
    for (int turn = 0; turn < 5; ++turn)
        body = platform::richtext::NormalizeBody(Saved(body), "a\nb");
    EXPECT_EQ(body, head + start + R"(\pard a\par \pard b\par })");
}

TEST(RtfRoundTrip, BodyWithoutItsLastMark_GetsIt)
{
    EXPECT_EQ(Saved(head + start + R"(\pard a\par b})"), head + start + R"(\pard a\par \pard b\par })");
}

TEST(RtfRoundTrip, TableAtTheEnd_GetsItsParagraphOnce)
{
    RichDocument document = DocumentOf({});
    document.blocks.push_back(Block{Table{{TableRow{{CellOf(700, {Line("b")})}}}}});
    const std::string written = WriteRtf(document);
    EXPECT_EQ(ReadRtf(written).blocks.size(), 2U);
    EXPECT_EQ(Saved(written), written);
}

TEST(RtfRoundTrip, AnyDocument_ComesBackEqual)
{
    for (std::uint32_t seed = 1; seed <= 400; ++seed) {
        const RichDocument document = RandomDocument(seed);
        ASSERT_EQ(BrokenPromise(document), "") << seed;
        const std::string written = WriteRtf(document);
        const RichDocument back = ReadRtf(written);
        ASSERT_TRUE(back == document) << "seed " << seed << ", block " << FirstDifference(back, document);
        ASSERT_EQ(WriteRtf(back), written) << seed;
    }
}

TEST(RtfRoundTrip, AnyText_IsAscii)
{
    for (std::uint32_t seed = 1; seed <= 50; ++seed) {
        for (const char sign : WriteRtf(RandomDocument(seed)))
            ASSERT_TRUE(sign >= ' ' && sign <= '~') << seed;
    }
}
