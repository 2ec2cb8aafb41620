#include "platform/richtext/CorpusFacts.h"
#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

using namespace platform::richtext;
using nlohmann::json;

namespace {

/// Documents that were made for this program, and those of other writers where a folder of them is at hand.
std::vector<std::string> FactFiles(const std::string& folder)
{
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::filesystem::path rtf = std::filesystem::path(entry.path()).replace_extension(".rtf");
        if (entry.path().extension() == ".json" && std::filesystem::exists(rtf))
            files.push_back(entry.path().string());
    }
    return files;
}

std::string RtfBeside(const std::string& facts)
{
    return support::ReadFile(std::filesystem::path(facts).replace_extension(".rtf").string());
}

void ExpectFacts(const std::string& facts, Source source)
{
    SCOPED_TRACE(facts);
    const std::string rtf = RtfBeside(facts);
    ASSERT_FALSE(rtf.empty());
    const RichDocument document = ReadRtf(rtf, source);
    EXPECT_EQ(rich::BrokenPromise(document), "");
    for (const std::string& broken : rich::BrokenFacts(json::parse(support::ReadFile(facts)), document))
        ADD_FAILURE() << broken;
    EXPECT_EQ(RtfToPlainText(rtf, source), PlainText(document));
}

/// The facts hold after saving, too, and saving again changes nothing.
void ExpectFactsWhenSaved(const std::string& facts)
{
    SCOPED_TRACE(facts + ", saved");
    const std::string written = WriteRtf(ReadRtf(RtfBeside(facts), Source::Bytes));
    const RichDocument document = ReadRtf(written);
    EXPECT_EQ(WriteRtf(document), written);
    for (const std::string& broken : rich::BrokenFacts(json::parse(support::ReadFile(facts)), document))
        ADD_FAILURE() << broken;
}

/// The folder of the corpus; empty where there is none.
std::string CorpusFolder()
{
    const char* folder = std::getenv("VEXA_CORPUS");
    return folder == nullptr || *folder == '\0' ? "" : std::string(folder) + "/rtf";
}

} // namespace

TEST(Corpus, OwnDocuments_KeepTheirFacts)
{
    const std::vector<std::string> files = FactFiles(support::DataFile("rtf"));
    EXPECT_EQ(files.size(), 8u);
    for (const std::string& facts : files) {
        ExpectFacts(facts, Source::Bytes);
        ExpectFacts(facts, Source::Body);
        ExpectFactsWhenSaved(facts);
    }
}

TEST(Corpus, DocumentsOfOtherWriters_KeepTheirFacts)
{
    if (CorpusFolder().empty()) GTEST_SKIP() << "VEXA_CORPUS names no folder";
    const json index = json::parse(support::ReadFile(CorpusFolder() + "/INDEX.json"));
    ASSERT_GE(index["files"].size(), 58u);
    for (const json& file : index["files"]) {
        const std::string facts = CorpusFolder() + "/" + file["facts"].get<std::string>();
        ExpectFacts(facts, Source::Bytes);
        ExpectFactsWhenSaved(facts);
    }
}

TEST(Corpus, EveryKindOfFact_CanFail)
{
    const RichDocument empty = ReadRtf("");
    const std::vector<std::string> facts = {R"({"run": "x", "bold": true})",
                                            R"({"paragraph": "x", "align": "left"})",
                                            R"({"list_items": [["x", "bullet", 0]]})",
                                            R"({"table": {"index": 0}})",
                                            R"({"picture": "png"})",
                                            R"({"absent": ""})",
                                            R"({"contains": "x"})",
                                            R"({"symbol": 65, "unicode": "A"})",
                                            R"({"blocks": 2})",
                                            R"({"default": {"font": "Times"}})",
                                            R"({"no_access": ["Arial"]})",
                                            R"({"saved_without": ["Arial"]})",
                                            R"({"unheard-of": 1})"};
    for (const std::string& fact : facts) {
        const json file = {{"text", ""}, {"facts", {json::parse(fact)}}};
        EXPECT_EQ(rich::BrokenFacts(file, empty).size(), 1u) << fact;
    }
}
