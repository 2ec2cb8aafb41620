#include "platform/richtext/RtfReader.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

using namespace platform::richtext;
using nlohmann::json;

namespace {

std::vector<TextPart> PartsOf(const json& parts)
{
    std::vector<TextPart> made;
    for (const json& part : parts) {
        const auto kind = part[0] == "rich" ? TextPart::Kind::Rich : TextPart::Kind::Plain;
        made.push_back({kind, part[1].get_ref<const std::string&>()});
    }
    return made;
}

std::vector<std::string> LinesOf(const RichDocument& document)
{
    std::vector<std::string> lines;
    for (const Block& block : document.blocks) {
        std::string line;
        for (const Run& run : block.AsParagraph()->runs)
            line += run.text;
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> BoldTexts(const RichDocument& document)
{
    std::vector<std::string> texts;
    for (const Block& block : document.blocks) {
        for (const Run& run : block.AsParagraph()->runs) {
            if (run.format.bold) texts.push_back(run.text);
        }
    }
    return texts;
}

RichDocument Parts(std::vector<TextPart> parts) { return ReadParts(parts); }

constexpr TextPart Rich(std::string_view text) { return {TextPart::Kind::Rich, text}; }

constexpr TextPart Plain(std::string_view text) { return {TextPart::Kind::Plain, text}; }

using Lines = std::vector<std::string>;

} // namespace

TEST(Fragments, PartsOfReports_ShowTheirLines)
{
    const json file = json::parse(support::ReadFile(support::DataFile("rtf/fragments.json")));
    ASSERT_EQ(file["cases"].size(), 6u);
    for (const json& one : file["cases"]) {
        SCOPED_TRACE(one["about"].get<std::string>());
        const RichDocument document = ReadParts(PartsOf(one["parts"]));
        EXPECT_EQ(LinesOf(document), one["lines"].get<Lines>());
        EXPECT_EQ(BoldTexts(document), one["bold"].get<Lines>());
    }
}

TEST(Fragments, NoParts_AreOneEmptyLine)
{
    EXPECT_EQ(LinesOf(Parts({})), Lines{""});
    EXPECT_EQ(LinesOf(Parts({Plain("")})), Lines{""});
}

TEST(Fragments, BraceLeftOpen_EndsWithItsPart)
{
    const RichDocument document = Parts({Rich("{\\b caption "), Plain("item"), Rich("{\\i next}")});
    EXPECT_EQ(LinesOf(document), Lines{"caption itemnext"});
    EXPECT_EQ(BoldTexts(document), Lines{"caption "});
}

TEST(Fragments, BraceTooMany_IsPassedOver) { EXPECT_EQ(LinesOf(Parts({Rich("a}b{\\b c}")})), Lines{"abc"}); }

TEST(Fragments, BareTextBehindDocument_IsTextOnALineOfItsOwn)
{
    EXPECT_EQ(LinesOf(Parts({Rich("{\\rtf1 first\\par } tail")})), (Lines{"first", " tail"}));
}

TEST(Fragments, LineEndBehindDocument_CountsNothing)
{
    EXPECT_EQ(LinesOf(Parts({Rich("{\\rtf1 first\\par }\r\n")})), Lines{"first"});
    EXPECT_EQ(LinesOf(Parts({Rich("{\\rtf1 first\\par }"), Plain("\r\n")})), Lines{"first"});
    EXPECT_EQ(LinesOf(Parts({Rich("{\\rtf1 first\\par }"), Plain("next")})), (Lines{"first", "next"}));
}

TEST(Fragments, LineEndsOutsideOfGroups_EndLines)
{
    EXPECT_EQ(LinesOf(Parts({Rich("a\r\nb\nc\rd")})), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(LinesOf(Parts({Rich("{a\r\nb}")})), Lines{"ab"});
}

TEST(Fragments, TextOutsideOfDocuments_LooksAsByDefault)
{
    const RichDocument document = Parts({Rich("a{\\plain\\b b}")});
    EXPECT_EQ(document.blocks[0].AsParagraph()->runs[0].format, CharacterFormat());
    EXPECT_EQ(document.blocks[0].AsParagraph()->runs[1].format.halfPoints, 20);
}

TEST(Fragments, ListsOfSeveralDocuments_StayApart)
{
    constexpr std::string_view list =
        "{\\rtf1{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}"
        "\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
        "\\pard\\ls1 item\\par }";
    const RichDocument document = Parts({Rich(list), Rich(list)});
    ASSERT_EQ(document.lists.size(), 2u);
    EXPECT_EQ(document.blocks[0].AsParagraph()->format.list, 1);
    EXPECT_EQ(document.blocks[1].AsParagraph()->format.list, 2);
}
