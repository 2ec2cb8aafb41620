#pragma once

#include "ReportTest.h"
#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "model/g53Outcomes.h"
#include "platform/base/Texts.h"
#include "platform/richtext/RtfReader.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// The section of the alternatives, by both of its roads.
class AlternativesTest : public ReportTest
{
protected:
    /// Adds alternatives "A1", "A2" ... with a text each, until there are so many.
    static void AddAlternatives(Long count)
    {
        for (Long i = g51Alternatives::AlternativeCollection().Count() + 1; i <= count; ++i) {
            const auto added = g51Alternatives::NewAlternative("A" + std::to_string(i));
            added->SetHeading("Name " + std::to_string(i));
            added->SetBody("Body " + std::to_string(i));
        }
    }

    /// What the model says of an outcome, in the order of the rows.
    static std::array<std::string, 4> FiguresOf(c51Alternative& alternative, Long index)
    {
        const auto outcome = index == 3 ? g53Outcomes::ExtremeOutcome() : alternative.Outcome(index);
        return {platform::TextOf(alternative.OutcomePercent(index)) + "%",
                outcome->FireSize() + " acres",
                platform::TextOf(outcome->ContainTime()) + " days",
                platform::TextOf(outcome->ControlTime()) + " days"};
    }

    static constexpr std::array<const char*, 4> captions{
        "Probability:", "Final Fire Size:", "Time to Contain:", "Time to Control:"};

    /// Writes the section and reads what came.
    platform::richtext::RichDocument Export() const
    {
        Select({6});
        ReportRun::SaveSelectedSections(folder.File("out.rtf"));
        return platform::richtext::ReadRtf(ReadFile(folder.File("out.rtf")),
                                           platform::richtext::Source::Bytes);
    }

    using Cells = std::vector<std::vector<std::string>>;

    static std::string TextOf(const std::vector<platform::richtext::Block>& blocks)
    {
        platform::richtext::RichDocument text;
        text.blocks = blocks;
        return PlainText(text);
    }

    /// The tables of a document, the texts of their cells.
    static std::vector<Cells> TablesOf(const platform::richtext::RichDocument& document)
    {
        std::vector<Cells> tables;
        for (const auto& block : document.blocks) {
            if (block.AsTable() == nullptr) continue;
            Cells& cells = tables.emplace_back();
            for (const auto& row : block.AsTable()->rows) {
                std::vector<std::string>& texts = cells.emplace_back();
                for (const auto& cell : row.cells)
                    texts.push_back(TextOf(cell.blocks));
            }
        }
        return tables;
    }

    /// The rich texts of the tests, and those of other writers where VEXA_CORPUS names a folder of them.
    static std::vector<std::filesystem::path> BodyFiles()
    {
        std::vector<std::filesystem::path> folders{DataFile("rtf")}, files;
        const char* more = std::getenv("VEXA_CORPUS");
        if (more != nullptr) folders.push_back(std::filesystem::path(more) / "rtf");
        for (const auto& each : folders) {
            for (const auto& entry : std::filesystem::recursive_directory_iterator(each)) {
                if (entry.path().extension() == ".rtf") files.push_back(entry.path());
            }
        }
        return files;
    }
};

} // namespace support
