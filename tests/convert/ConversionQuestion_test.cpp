#include "convert/ConversionQuestion.h"
#include "convert/u16Convert5.h"
#include "convert/u16Convert6.h"
#include "session/u14Properties.h"
#include "support/TestSession.h"

#include <algorithm>

namespace {

constexpr const char* kWorstCase = "All VEXA Worst Case data will be lost.";

const std::vector<std::string> kTo5 = {
    "This file must be modified to work with VEXA Plus 06.",
    "All ORLN Stage I and Periodic Assessment data will be lost.",
    "All ORLN Stage II and most Stage III report sections will be saved.",
    "All VEXA Safety issues will be lost.",
    "All values for VEXA Threatened Items will be lost.",
    kWorstCase,
    "All other VEXA data will be saved.",
    "Once converted, the file cannot be opened with a previous version of VEXAPlus.",
    "",
    "Do you want to convert this file to a VEXA Plus 06 file?"};
const std::vector<std::string> kTo6 = {
    "This file must be modified to work with VEXA Plus 06.",
    "Some ORLN Size-up and Stage I data will be lost.",
    "All values for VEXA Threatened Items will be lost.",
    kWorstCase,
    "All other data will be saved.",
    "Once converted, the file cannot be opened with a previous version of VEXAPlus.",
    "",
    "Do you want to convert this file to a VEXA Plus 06 file?"};

class ConversionQuestionTest : public support::TestSession
{
protected:
    void Expect(std::vector<std::string> lines, bool worstCase, platform::Answer answer)
    {
        if (!worstCase) {
            lines.erase(std::find(lines.begin(), lines.end(), kWorstCase));
        }
        platform::Message message;
        message.title = "Convert to VEXA Plus 06 File?";
        message.lines = std::move(lines);
        message.buttons = platform::Buttons::OkCancel;
        message.preset = platform::Answer::Cancel;
        message.icon = platform::Icon::Question;
        desktop.Expect(message, answer);
    }
};

} // namespace

TEST_F(ConversionQuestionTest, TheQuestionForOldFiles_IsWordForWord)
{
    OpenNew();
    Expect(kTo5, false, platform::Answer::Ok);
    EXPECT_TRUE(u16Convert5::QueryConvertTo5());
    Expect(kTo5, false, platform::Answer::Cancel);
    EXPECT_FALSE(u16Convert5::QueryConvertTo5());
}

TEST_F(ConversionQuestionTest, TheQuestionForThePreviousFormat_IsWordForWord)
{
    OpenNew();
    Expect(kTo6, false, platform::Answer::Ok);
    EXPECT_TRUE(u16Convert6::QueryConvertTo6());
    Expect(kTo6, false, platform::Answer::Cancel);
    EXPECT_FALSE(u16Convert6::QueryConvertTo6());
}

TEST_F(ConversionQuestionTest, OnlyALevel3File_HearsOfItsWorstCase)
{
    for (const char* level : {"", "1", "2", "3", "03", "33"}) {
        const bool worstCase = std::string(level) == "3";
        OpenNew(std::string("INSERT INTO Properties VALUES ('AnalysisLevel', '") + level + "')");
        Expect(kTo5, worstCase, platform::Answer::Cancel);
        EXPECT_FALSE(u16Convert5::QueryConvertTo5()) << level;
        Expect(kTo6, worstCase, platform::Answer::Cancel);
        EXPECT_FALSE(u16Convert6::QueryConvertTo6()) << level;
    }
}
