#include "AlternativesTest.h"
#include "model/FireSql.h"
#include "platform/richtext/RtfWriter.h"
#include "reports/AlternativesRtf.h"

#include <algorithm>

namespace {

using firesql::Alternative;
namespace rich = platform::richtext;

class AlternativesRtf : public support::AlternativesTest
{
protected:
    /// The three tables of each alternative, from the model.
    static std::vector<Cells> ModelTables()
    {
        std::vector<Cells> tables;
        for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
            const bool hasFallback = alternative->Outcome(2)->bShow();
            tables.push_back({{"Alternative " + alternative->Label()}, {Words(alternative->Body())}});
            Cells heads{{"Target Outcome"}, {Words(alternative->Outcome(1)->Description())}};
            if (hasFallback) {
                heads[0].push_back("Fallback Outcome");
                heads[1].push_back(Words(alternative->Outcome(2)->Description()));
            }
            heads[0].push_back("Extreme Outcome");
            heads[1].push_back(Words(g53Outcomes::ExtremeOutcome()->Description()));
            tables.push_back(std::move(heads));
            tables.push_back(ModelFigures(*alternative, hasFallback));
        }
        return tables;
    }
    static Cells ModelFigures(c51Alternative& alternative, bool hasFallback)
    {
        const auto target = FiguresOf(alternative, 1), extreme = FiguresOf(alternative, 3);
        Cells rows;
        for (std::size_t row = 0; row < captions.size(); ++row) {
            std::vector<std::string> cells{captions[row], target[row], "", "", captions[row], extreme[row]};
            if (hasFallback) {
                cells[2] = captions[row];
                cells[3] = FiguresOf(alternative, 2)[row];
            }
            rows.push_back(std::move(cells));
        }
        return rows;
    }
    /// Of a body as it is stored: one that ends in a table has a line behind it.
    static std::string Words(const std::string& body)
    {
        return rich::RtfToPlainText(rich::WriteRtf(rich::ReadRtf(body)));
    }
};

TEST_F(AlternativesRtf, NoAlternatives_IsAnEmptyText)
{
    OpenNew();
    EXPECT_EQ(Words(ReportSections::RtfAlternatives()), "");
    const rich::RichDocument document = Export();
    EXPECT_EQ(TablesOf(document).size(), 0u);
    std::string words = PlainText(document);
    words.erase(words.find_last_not_of('\n') + 1);
    EXPECT_EQ(words, "Alternatives");
}

TEST_F(AlternativesRtf, NoFallback_TwoHeadsAndColumns3And4StayEmpty)
{
    OpenNew(Alternative(1, "Description = 'It holds', FireSize = 1250, ContainTime = 3, ControlTime = 4"));
    const Cells title{{"Alternative A. Name A"}, {"Body A"}};
    const Cells heads{{"Target Outcome", "Extreme Outcome"},
                      {"It holds", Words(g53Outcomes::ExtremeOutcome()->Description())}};
    const std::vector<Cells> tables = TablesOf(Export());
    ASSERT_EQ(tables.size(), 3u);
    EXPECT_EQ(tables[0], title);
    EXPECT_EQ(tables[1], heads);
    ASSERT_EQ(tables[2].size(), 4u);
    EXPECT_EQ(tables[2][0], (std::vector<std::string>{"Probability:", "100%", "", "", "Probability:", "0%"}));
    EXPECT_EQ(tables[2][1][1], "1250 acres");
    EXPECT_EQ(tables[2][2][1], "3 days");
    EXPECT_EQ(tables[2][3][1], "4 days");
    EXPECT_EQ(tables, ModelTables());
}

TEST_F(AlternativesRtf, WithFallback_ThreeHeadsAndSixColumns)
{
    OpenNew(Alternative(1, "Success = 60", "Success = 50, Description = 'It slips', FireSize = 7.25"));
    const std::vector<Cells> tables = TablesOf(Export());
    EXPECT_EQ(tables, ModelTables());
    EXPECT_EQ(tables.at(1).at(0),
              (std::vector<std::string>{"Target Outcome", "Fallback Outcome", "Extreme Outcome"}));
    EXPECT_EQ(tables.at(1).at(1).at(1), "It slips");
    EXPECT_EQ(tables.at(2).at(1).at(2), "Final Fire Size:");
    EXPECT_EQ(tables.at(2).at(1).at(3), "7.25 acres");
}

TEST_F(AlternativesRtf, AllSamples_HoldWhatTheModelSays)
{
    for (const char* name : {"smith-creek", "granite-fork-complex", "juniper-gap"}) {
        SCOPED_TRACE(name);
        OpenSample(name);
        EXPECT_EQ(TablesOf(Export()), ModelTables());
    }
}

TEST_F(AlternativesRtf, AllSamples_ExportReadsAsThePreview)
{
    for (const char* name : {"smith-creek", "granite-fork-complex", "juniper-gap"}) {
        SCOPED_TRACE(name);
        OpenSample(name);
        const rich::RichDocument exported = Export();
        Produce({6});
        std::vector<Cells> previewed;
        for (const auto& item : Printer().Pages().flow) {
            const auto* table = std::get_if<platform::print::FlowTable>(&item.content);
            if (table == nullptr) continue;
            Cells& cells = previewed.emplace_back();
            for (const auto& row : table->table.rows) {
                for (const auto& cell : row.cells) {
                    std::string text = TextOf(cell.blocks);
                    text.erase(text.find_last_not_of("\n\u00A0") + 1);
                    if (!text.empty()) cells.emplace_back().push_back(std::move(text));
                }
            }
        }
        const std::vector<Cells> tables = TablesOf(exported);
        ASSERT_EQ(tables.size(), 3 * previewed.size());
        for (std::size_t i = 0; i < previewed.size(); ++i) {
            Cells together;
            for (std::size_t part = 0; part < 3; ++part) {
                for (const auto& row : tables[3 * i + part]) {
                    for (const std::string& text : row) {
                        if (!text.empty()) together.emplace_back().push_back(text);
                    }
                }
            }
            EXPECT_EQ(together, previewed[i]) << i;
        }
    }
}

TEST_F(AlternativesRtf, Tables_FillTheTextAndTheTitleStandsBetweenRules)
{
    OpenNew(Alternative(1, "Success = 60", "Success = 50"));
    for (const bool a4 : {false, true}) {
        if (a4) UseA4();
        const rich::RichDocument document = Export();
        std::size_t count = 0;
        for (const rich::Block& block : document.blocks) {
            if (block.AsTable() == nullptr) continue;
            ++count;
            for (const rich::TableRow& row : block.AsTable()->rows) {
                Long width = 0;
                for (const rich::TableCell& cell : row.cells)
                    width += cell.width;
                EXPECT_EQ(width, a4 ? 10466 : 10800);
                EXPECT_TRUE(row.keepTogether);
            }
            const rich::TableCell& first = block.AsTable()->rows[0].cells[0];
            EXPECT_EQ(first.top.style == rich::BorderStyle::Single, count == 1);
            EXPECT_EQ(first.bottom.style == rich::BorderStyle::Single, count == 1);
            const rich::Paragraph& title = *first.blocks[0].AsParagraph();
            EXPECT_EQ(title.format.alignment == rich::Alignment::Center, count == 1);
            EXPECT_EQ(title.runs.at(0).format.halfPoints, count == 1 ? 22 : 20);
            EXPECT_EQ(title.runs.at(0).format.bold, count < 3); // the title, the heads, but no figures
        }
        EXPECT_EQ(count, 3u);
    }
}

TEST_F(AlternativesRtf, Placeholder_InABody_ReceivesTheNextRichText)
{
    OpenNew(Alternative(1, "Description = 'target A'") + Alternative(2, "Description = 'target B'"));
    g51Alternatives::Alternative(1)->SetBody("see ### here");
    g53Outcomes::ExtremeOutcome()->SetDescription("extreme");
    const std::vector<Cells> tables = TablesOf(Export());
    ASSERT_EQ(tables.size(), 6u);
    EXPECT_EQ(tables[0][1][0], "see target A here");
    EXPECT_EQ(tables[1][1], (std::vector<std::string>{"extreme", "Body B"}));
    EXPECT_EQ(tables[3][1][0], "target B");
    EXPECT_EQ(tables[4][1], (std::vector<std::string>{"extreme", "###"}));
}

TEST_F(AlternativesRtf, Placeholder_InALabel_ReceivesTheBody)
{
    OpenNew(Alternative(1));
    g51Alternatives::Alternative(1)->SetHeading("Name ###");
    const std::vector<Cells> tables = TablesOf(Export());
    EXPECT_EQ(tables.at(0).at(0).at(0), "Alternative A. Name Body A");
}

TEST_F(AlternativesRtf, Texts_AreRichOnlyWhereTheyBeginSo)
{
    OpenNew(Alternative(1, "Description = '{\\b a|b;}'"));
    g51Alternatives::Alternative(1)->SetHeading("C:\\new {old}; a|b " + std::string(300, 'x'));
    g51Alternatives::Alternative(1)->SetBody("{\\rtf1\\b rich\\b0; a|b\\par }");
    const rich::RichDocument document = Export();
    const std::vector<Cells> tables = TablesOf(document);
    EXPECT_EQ(tables.at(0).at(0).at(0), "Alternative A. C:\\new {old}; a|b " + std::string(300, 'x'));
    EXPECT_EQ(tables.at(0).at(1).at(0), "rich; a|b");
    EXPECT_EQ(tables.at(1).at(1).at(0), "{\\b a|b;}");
}

TEST_F(AlternativesRtf, ManyAlternatives_InOrderAndOfTheModel)
{
    for (const Long count : {1, 7, 40}) {
        SCOPED_TRACE(count);
        OpenNew();
        AddAlternatives(count);
        const std::vector<Cells> tables = TablesOf(Export());
        EXPECT_EQ(tables.size(), 3 * static_cast<std::size_t>(count));
        EXPECT_EQ(tables, ModelTables());
    }
}

TEST_F(AlternativesRtf, ListsOfSeveralBodies_AreNotJoined)
{
    OpenNew(Alternative(1) + Alternative(2));
    const std::string list =
        "{\\rtf1{\\*\\listtable{\\list\\listtemplateid1{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}"
        "{\\levelnumbers\\'01;}}\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
        "\\pard\\ls1\\li360\\fi-360 First\\par Second\\par }";
    g51Alternatives::Alternative(1)->SetBody(list);
    g51Alternatives::Alternative(2)->SetBody(list);
    g53Outcomes::ExtremeOutcome()->SetDescription(list); // stands twice
    const rich::RichDocument document = Export();
    EXPECT_EQ(document.lists.size(), 4u);
    std::vector<Long> items;
    for (const rich::Block& block : document.blocks) {
        if (block.AsTable() == nullptr) continue;
        for (const rich::TableRow& row : block.AsTable()->rows) {
            for (const rich::TableCell& cell : row.cells) {
                for (const rich::Block& inner : cell.blocks) {
                    if (inner.AsParagraph()->format.list != 0)
                        items.push_back(inner.AsParagraph()->format.list);
                }
            }
        }
    }
    EXPECT_EQ(items, (std::vector<Long>{1, 1, 2, 2, 3, 3, 4, 4}));
}

TEST_F(AlternativesRtf, BodyHigherThanAPage_IsWhole)
{
    std::string body;
    for (int i = 0; i < 3000; ++i)
        body += "Line " + std::to_string(i) + "\n";
    body += "last";
    OpenNew(Alternative(1));
    g51Alternatives::Alternative(1)->SetBody(body);
    EXPECT_EQ(TablesOf(Export()).at(0).at(1).at(0), body);
}

TEST_F(AlternativesRtf, PlainRtf_IsTheBodyAsStoredOnce)
{
    for (const char* body : {"", "typed {text}\nof two lines", "{\\rtf1 a\\b b}", "{\\rtf1 a\\par\\par }"}) {
        const std::string plain = ReportSections::PlainRtf(body);
        EXPECT_EQ(plain, rich::WriteRtf(rich::ReadRtf(body))) << body;
        EXPECT_EQ(ReportSections::PlainRtf(plain), plain) << body;
    }
}

TEST_F(AlternativesRtf, BodiesOfEveryKind_ComeThroughWhole)
{
    const auto files = BodyFiles();
    EXPECT_GT(files.size(), 5u);
    OpenSample("juniper-gap");
    const auto alternative = g51Alternatives::AlternativeCollection().At(1);
    for (const auto& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::string body = support::ReadFile(file.string());
        EXPECT_EQ(Words(ReportSections::PlainRtf(body)), Words(body));
        if (Words(body).find("###") != std::string::npos) continue;
        alternative->SetBody(body);
        alternative->Outcome(1)->SetDescription(body);
        const std::vector<Cells> built = TablesOf(rich::ReadRtf(ReportSections::RtfAlternatives()));
        EXPECT_EQ(built, ModelTables());
        EXPECT_EQ(TablesOf(Export()).size(), 6u);
    }
}

} // namespace
