#include "platform/widgets/FormattedLabel.h"

#include <gmock/gmock.h>
#include <ostream>

using platform::FormattedParagraph;
using platform::ParseMarkup;
using ::testing::ElementsAre;

namespace platform {
void PrintTo(const FormattedParagraph& paragraph, std::ostream* out)
{
    *out << '"' << paragraph.text << "\" " << paragraph.before << ' ' << paragraph.indent;
}
} // namespace platform

namespace {

TEST(ParseMarkup, PlainText_OneParagraph)
{
    EXPECT_THAT(ParseMarkup("Text"), ElementsAre(FormattedParagraph{"Text", 0, 0}));
}

TEST(ParseMarkup, SpaceAfterTheLineBreak_StandsAboveThatLineAndTheNextOnes)
{
    EXPECT_THAT(ParseMarkup("One|CR||BEFORE:90|Two|CR|Three"),
                ElementsAre(FormattedParagraph{"One", 0, 0},
                            FormattedParagraph{"Two", 90, 0},
                            FormattedParagraph{"Three", 90, 0}));
}

TEST(ParseMarkup, SpaceAtTheEndOfALine_StandsAboveTheNext)
{
    EXPECT_THAT(ParseMarkup("One,|CR|two.|BEFORE:180||CR|Three"),
                ElementsAre(FormattedParagraph{"One,", 0, 0},
                            FormattedParagraph{"two.", 0, 0},
                            FormattedParagraph{"Three", 180, 0}));
}

TEST(ParseMarkup, Indent_ReadAlike)
{
    EXPECT_THAT(ParseMarkup("One|CR||PARALEFT:360|Two"),
                ElementsAre(FormattedParagraph{"One", 0, 0}, FormattedParagraph{"Two", 0, 360}));
}

TEST(ParseMarkup, BarsThatAreNoMark_StandAsTheyAre)
{
    for (const char* text : {"a|b", "a|b|c", "|", "|BEFORE:|", "|BEFORE:9x|", "|cr|"}) {
        EXPECT_THAT(ParseMarkup(text), ElementsAre(FormattedParagraph{text, 0, 0})) << text;
    }
}

TEST(FormattedLabel, Text_IsThePlainOneALineAParagraph)
{
    platform::FormattedLabel label;
    label.SetMarkup("|CR||BEFORE:90|One & <b>two</b>|CR|Three");
    EXPECT_EQ(label.text(), QStringLiteral("One & <b>two</b>\nThree"));
}

TEST(FormattedLabel, Height_CountsSpacesAndBrokenLines)
{
    platform::FormattedLabel label;
    const int line = label.fontMetrics().height();
    label.SetMarkup("One|CR||BEFORE:150|Two");
    EXPECT_EQ(label.heightForWidth(400), 2 * line + 10);
    label.SetMarkup("One two");
    EXPECT_EQ(label.heightForWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("One ")) + 2),
              2 * line);
}

} // namespace
