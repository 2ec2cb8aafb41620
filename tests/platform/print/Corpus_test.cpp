#include "platform/print/Printed.h"
#include "platform/print/RtfExport.h"
#include "platform/print/Words.h"
#include "platform/richtext/RtfReader.h"

#include <gtest/gtest.h>

using namespace platform::print;
using namespace printed;

TEST(PrintCorpus, BodiesInParagraphs_LoseNoWord)
{
    for (const std::string& path : RichTexts()) {
        const std::string body = support::ReadFile(path);
        OpenControl control;
        control.Paragraph(Body(body));
        EXPECT_EQ(LostWord(platform::richtext::RtfToPlainText(body), LettersOf(Letters(Ended(control)))), "")
            << path;
    }
}

TEST(PrintCorpus, BodiesInNarrowCells_LoseNoWord)
{
    for (const std::string& path : RichTexts()) {
        const std::string body = support::ReadFile(path);
        OpenControl control;
        control.Table("2500|1000;", {{Body(body), Plain("beside")}, {Plain("behind"), ""}});
        const std::string letters = LettersOf(Letters(Ended(control)));
        EXPECT_NE(letters.find("beside"), std::string::npos) << path;
        EXPECT_NE(letters.find("behind"), std::string::npos) << path;
    }
}

TEST(PrintCorpus, BodiesInExports_ReadAgainWithoutALostWord)
{
    for (const std::string& path : RichTexts()) {
        const std::string body = support::ReadFile(path);
        OpenControl control;
        control.Paragraph(Body(body));
        control.Table("4000|4000;", {{Body(body), Body(body)}});
        const std::string rtf = RtfOf(Ended(control));
        EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char sign) { return sign > 0; })) << path;
        const std::string letters = LettersOf(platform::richtext::RtfToPlainText(rtf));
        const std::string text = platform::richtext::RtfToPlainText(body);
        EXPECT_EQ(LostWord(text, letters), "") << path;
        EXPECT_EQ(LostWord(text + "\n" + text + "\n" + text, letters), "") << path;
    }
}
