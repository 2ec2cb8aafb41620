#include "ReportTest.h"
#include "session/c0Item.h"
#include "session/g2Situation.h"
#include "values/g8Summary.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

const std::vector<Integer> kSections{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

class Samples : public support::ReportTest, public ::testing::WithParamInterface<const char*>
{
protected:
    /// Paragraphs on lines of their own, so that a change shows where it is.
    static std::string WithLines(std::string rtf)
    {
        for (std::size_t place = rtf.find("\\par "); place != std::string::npos;
             place = rtf.find("\\par ", place + 6))
            rtf.insert(place + 5, "\n");
        return rtf;
    }
};

INSTANTIATE_TEST_SUITE_P(Fires,
                         Samples,
                         ::testing::Values("smith-creek", "granite-fork-complex", "juniper-gap"),
                         [](const auto& sample) {
                             std::string name = sample.param;
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST_P(Samples, Letter_PagesAreAsApproved)
{
    OpenSample(GetParam());
    support::ExpectApproved(std::string(GetParam()) + "-letter.txt", DumpPages(Produce(kSections)));
}

TEST_P(Samples, A4_PagesAreAsApproved)
{
    OpenSample(GetParam());
    UseA4();
    support::ExpectApproved(std::string(GetParam()) + "-a4.txt", DumpPages(Produce(kSections)));
}

TEST_P(Samples, Export_TextIsAsApproved)
{
    OpenSample(GetParam());
    Select(kSections);
    ReportRun::SaveSelectedSections(folder.File("out.rtf"));
    support::ExpectApproved(std::string(GetParam()) + ".rtf",
                            WithLines(support::ReadFile(folder.File("out.rtf"))));
}

TEST_P(Samples, LetterAndA4_EveryTextStandsOnThePaper)
{
    OpenSample(GetParam());
    for (const bool a4 : {false, true}) {
        if (a4) UseA4();
        for (const auto& page : Produce(kSections).pages) {
            for (const auto& text : page.ink.texts) {
                EXPECT_GE(text.x, 0.0) << text.text;
                EXPECT_LE(text.upward ? text.x : text.x + text.width, page.width) << text.text;
                EXPECT_LE(text.y, page.height - 360.0) << text.text;
            }
        }
    }
}

class Corpus : public support::ReportTest
{
protected:
    /// The rich texts of the tests, and those of other writers where VEXA_CORPUS names a folder of them.
    static std::vector<fs::path> Files()
    {
        std::vector<fs::path> folders{support::DataFile("rtf")};
        const char* more = std::getenv("VEXA_CORPUS");
        if (more != nullptr) folders.push_back(fs::path(more) / "rtf");
        std::vector<fs::path> files;
        for (const fs::path& folder : folders) {
            for (const auto& entry : fs::recursive_directory_iterator(folder)) {
                if (entry.path().extension() == ".rtf") files.push_back(entry.path());
            }
        }
        return files;
    }
};

TEST_F(Corpus, BodiesOfEveryKindInTopics_ComeThroughAndTheReportGoesOn)
{
    OpenSample("juniper-gap");
    const std::vector<fs::path> files = Files();
    EXPECT_GT(files.size(), 5u);
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::string body = support::ReadFile(file.string());
        g8Summary::SummaryItems().front()->SetBody(body);
        g2Situation::GetSituationTopics().front()->SetBody(body);
        Produce({1, 2});
        EXPECT_TRUE(HasLine("Agency Administrator Approval Date/Time"));
        Select({1, 2});
        ReportRun::SaveSelectedSections(folder.File("out.rtf"));
        EXPECT_TRUE(support::ReadFile(folder.File("out.rtf")).ends_with("}"));
    }
}

} // namespace
