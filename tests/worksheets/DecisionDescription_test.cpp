#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "platform/richtext/RtfReader.h"
#include "platform/widgets/RichTextEdit.h"
#include "support/TestSession.h"
#include "worksheets/DecisionDescription.h"

#include <gmock/gmock.h>

namespace richtext = platform::richtext;
using ::testing::EndsWith;
using ::testing::StartsWith;

namespace {

constexpr Long kB = 298; // of the sample; has a Fallback

constexpr const char* kPrologue =
    "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
    "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 ";
constexpr const char* kNumbers =
    "{\\rtf1\\pard{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}\\fi-360\\li360 first\\par "
    "{\\pntext 2.\\tab}second\\par }";

class DecisionDescriptionTest : public support::TestSession
{
protected:
    /// The sample's alternative with these texts, rich or plain.
    c51Alternative& With(const std::string& body, const std::string& target, const std::string& fallback = {})
    {
        OpenSample("smith-creek");
        m_alternative = g51Alternatives::Alternative(kB);
        m_alternative->SetBody(body);
        m_alternative->Outcome(1)->SetDescription(target);
        m_alternative->Outcome(2)->SetDescription(fallback);
        return *m_alternative;
    }
    static std::string Plain(const std::string& body) { return richtext::RtfToPlainText(body); }
    static const richtext::Paragraph& ParagraphAt(const richtext::RichDocument& document, std::size_t place)
    {
        return *document.blocks.at(place).AsParagraph();
    }

private:
    std::shared_ptr<c51Alternative> m_alternative;
};

std::string Rich(const std::string& text) { return kPrologue + ("\\pard " + text) + "\\par }"; }

TEST_F(DecisionDescriptionTest, WithoutFallback_NarrativeAnEmptyLineAndTheTarget)
{
    const std::string body =
        DecisionDescription::WithoutFallback(With(Rich("Hold the road."), Rich("Held."), Rich("Lost.")));
    EXPECT_EQ(body, std::string(kPrologue) + "\\pard Hold the road.\\par \\pard \\par \\pard Held.\\par }");
}

TEST_F(DecisionDescriptionTest, WithFallback_ThreeTextsInOrderBelowTheirNames)
{
    const std::string body =
        DecisionDescription::WithFallback(With(Rich("Hold the road."), Rich("Held."), Rich("Lost.")));
    EXPECT_EQ(Plain(body),
              "This alternative includes a Fallback outcome.\n\nHold the road.\n\nTarget:\n\nHeld.\n"
              "Fallback:\n\nLost.");
}

TEST_F(DecisionDescriptionTest, Result_IsOneWholeBody)
{
    const std::string body =
        DecisionDescription::WithFallback(With(Rich("Hold the road."), Rich("Held."), Rich("Lost.")));
    EXPECT_THAT(body, StartsWith(kPrologue));
    EXPECT_EQ(body.find("{\\rtf", 1), std::string::npos);
    EXPECT_THAT(body, EndsWith("\\par }"));
    platform::RichTextEdit editor;
    editor.LoadFromMemory(body);
    EXPECT_EQ(editor.SaveToMemory(), body);
}

TEST_F(DecisionDescriptionTest, PlainTexts_StandAsTyped)
{
    const std::string body = DecisionDescription::WithFallback(With("C:\\burn {old}", "a\nb", "{\\x"));
    EXPECT_EQ(Plain(body),
              "This alternative includes a Fallback outcome.\n\nC:\\burn {old}\n\nTarget:\n\na\nb\n"
              "Fallback:\n\n{\\x");
}

TEST_F(DecisionDescriptionTest, EmptyTexts_NamesAlone)
{
    EXPECT_EQ(Plain(DecisionDescription::WithFallback(With("", "", ""))),
              "This alternative includes a Fallback outcome.\n\n\n\nTarget:\n\n\nFallback:\n\n");
    EXPECT_EQ(Plain(DecisionDescription::WithoutFallback(With("", "", ""))), "\n\n");
}

TEST_F(DecisionDescriptionTest, LinesAhead_TakeNoListAndNoLookOfTheFirstParagraph)
{
    const std::string loud = "{\\rtf1\\pard\\qc\\b\\fs40 Loud.\\par }";
    const auto document =
        richtext::ReadRtf(DecisionDescription::WithFallback(With(loud, kNumbers, kNumbers)));
    const auto expectPlain = [&](std::size_t place, const char* text) {
        const richtext::Paragraph& paragraph = ParagraphAt(document, place);
        EXPECT_EQ(paragraph.format, richtext::ParagraphFormat()) << text;
        ASSERT_EQ(paragraph.runs.size(), 1U) << text;
        EXPECT_EQ(paragraph.runs[0].text, text);
        EXPECT_EQ(paragraph.runs[0].format, richtext::CharacterFormat()) << text;
    };
    expectPlain(0, "This alternative includes a Fallback outcome.");
    EXPECT_EQ(ParagraphAt(document, 2).format.alignment, richtext::Alignment::Center);
    expectPlain(4, "Target:");
    EXPECT_NE(ParagraphAt(document, 6).format.list, 0);
    expectPlain(8, "Fallback:");
    EXPECT_NE(ParagraphAt(document, 10).format.list, 0);
}

TEST_F(DecisionDescriptionTest, ListsOfTwoTexts_EachCountsFromOne)
{
    const auto document =
        richtext::ReadRtf(DecisionDescription::WithFallback(With("Plain.", kNumbers, kNumbers)));
    EXPECT_EQ(document.lists.size(), 2U);
    EXPECT_EQ(ParagraphAt(document, 6).format.list, 1);
    EXPECT_EQ(ParagraphAt(document, 7).format.list, 1);
    EXPECT_EQ(ParagraphAt(document, 10).format.list, 2);
}

TEST_F(DecisionDescriptionTest, FontsAndColoursOfEachText_AreKept)
{
    const std::string blue =
        "{\\rtf1{\\fonttbl{\\f0 Georgia;}}{\\colortbl;\\red0\\green0\\blue255;}\\f0\\cf1 Blue.\\par }";
    const std::string red =
        "{\\rtf1{\\fonttbl{\\f0 Verdana;}}{\\colortbl;\\red255\\green0\\blue0;}\\f0\\cf1 Red.\\par }";
    const auto document = richtext::ReadRtf(DecisionDescription::WithoutFallback(With(blue, red)));
    const auto& first = ParagraphAt(document, 0).runs.at(0).format;
    const auto& second = ParagraphAt(document, 2).runs.at(0).format;
    EXPECT_EQ(first.font, "Georgia");
    EXPECT_EQ(second.font, "Verdana");
    EXPECT_NE(first.color, second.color);
}

} // namespace
