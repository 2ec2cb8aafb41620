#include "platform/print/Printed.h"
#include "platform/print/RtfExport.h"
#include "platform/richtext/RtfReader.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

using namespace platform::print;
using namespace printed;

namespace {

std::vector<std::string> RichTextsIn(const std::string& folder)
{
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".rtf") paths.push_back(entry.path().string());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::vector<std::string> Corpus()
{
    std::vector<std::string> paths = RichTextsIn(support::DataFile("rtf"));
    const char* folder = std::getenv("VEXA_CORPUS");
    if (folder == nullptr || *folder == '\0') return paths;
    for (const std::string& path : RichTextsIn(std::string(folder) + "/rtf"))
        paths.push_back(path);
    return paths;
}

/// A text without the signs that do not show.
std::string Shown(std::string text)
{
    for (const std::string_view hidden : {"\u00AD", "\u00A0", "\uFEFF"}) {
        for (std::size_t place = text.find(hidden); place != std::string::npos;
             place = text.find(hidden, place))
            text.replace(place, hidden.size(), hidden == "\u00A0" ? " " : "");
    }
    return text;
}

/// The first word of a text that does not come in its turn among letters; empty when all do.
std::string LostWord(const std::string& text, const std::string& letters)
{
    std::istringstream words(Shown(text));
    std::size_t place = 0;
    for (std::string word; words >> word;) {
        place = letters.find(word, place);
        if (place == std::string::npos) return word;
        place += word.size();
    }
    return "";
}

/// The letters of all pages but the header's, which there is none of.
std::string LettersShown(const Document& document)
{
    std::string letters = Shown(Letters(document));
    std::erase(letters, ' ');
    return letters;
}

} // namespace

TEST(PrintCorpus, BodiesInParagraphs_LoseNoWord)
{
    for (const std::string& path : Corpus()) {
        const std::string body = support::ReadFile(path);
        OpenControl control;
        control.Paragraph(Body(body));
        EXPECT_EQ(LostWord(platform::richtext::RtfToPlainText(body), LettersShown(Ended(control))), "")
            << path;
    }
}

TEST(PrintCorpus, BodiesInNarrowCells_LoseNoWord)
{
    for (const std::string& path : Corpus()) {
        const std::string body = support::ReadFile(path);
        OpenControl control;
        control.Table("2500|1000;", {{Body(body), Plain("beside")}, {Plain("behind"), ""}});
        const std::string letters = LettersShown(Ended(control));
        EXPECT_NE(letters.find("beside"), std::string::npos) << path;
        EXPECT_NE(letters.find("behind"), std::string::npos) << path;
    }
}

TEST(PrintCorpus, BodiesInExports_ReadAgainWithoutALostWord)
{
    for (const std::string& path : Corpus()) {
        const std::string body = support::ReadFile(path);
        OpenControl control;
        control.Paragraph(Body(body));
        control.Table("4000|4000;", {{Body(body), Body(body)}});
        const std::string rtf = RtfOf(Ended(control));
        EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char sign) { return sign > 0; })) << path;
        std::string letters = Shown(platform::richtext::RtfToPlainText(rtf));
        std::erase_if(letters, [](char sign) { return sign == ' ' || sign == '\n' || sign == '\t'; });
        const std::string text = platform::richtext::RtfToPlainText(body);
        EXPECT_EQ(LostWord(text, letters), "") << path;
        EXPECT_EQ(LostWord(text + "\n" + text + "\n" + text, letters), "") << path;
    }
}
