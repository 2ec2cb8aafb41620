#include "AlternativesTest.h"
#include "model/FireSql.h"

#include <algorithm>
#include <cmath>

namespace {

using firesql::Alternative;

constexpr Double columnWidth = 1800.0, left = 720.0, inset = 60.0;

Double ColumnX(Long column) { return left + static_cast<Double>(column - 1) * columnWidth + inset; }

class PrintAlternatives : public support::AlternativesTest
{
protected:
    /// Where a text stands that stands once.
    static Double XOf(const std::string& text) { return PlaceOf(text).x; }
    static std::vector<Double> XsOf(const std::string& text)
    {
        std::vector<Double> xs;
        for (const Place& place : PlacesOf(text))
            xs.push_back(place.x);
        return xs;
    }
    /// The texts on the pages in the order of reading that begin with one of the captions.
    static std::vector<std::string> FigureLines()
    {
        std::vector<std::string> lines;
        for (const std::string& line : Lines()) {
            if (std::any_of(captions.begin(), captions.end(), [&](const char* caption) {
                    return line.starts_with(caption);
                }))
                lines.push_back(line);
        }
        return lines;
    }
    /// The same from the model.
    static std::vector<std::string> ModelLines()
    {
        std::vector<std::string> lines;
        for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
            std::vector<std::array<std::string, 4>> columns{FiguresOf(*alternative, 1)};
            if (alternative->Outcome(2)->bShow()) columns.push_back(FiguresOf(*alternative, 2));
            columns.push_back(FiguresOf(*alternative, 3));
            for (std::size_t row = 0; row < captions.size(); ++row) {
                std::string line;
                for (const auto& column : columns)
                    line += (line.empty() ? "" : " ") + (captions[row] + (" " + column[row]));
                lines.push_back(line);
            }
        }
        return lines;
    }
};

TEST_F(PrintAlternatives, NoAlternatives_HeadingAlone)
{
    OpenNew();
    Produce({6});
    EXPECT_EQ(PageCount(), 1);
    EXPECT_EQ(LinesOfPage(1).back(), "Alternatives");
}

TEST_F(PrintAlternatives, NoFallback_ExtremeFiguresStandRightOfWhereTheirHeadBegins)
{
    OpenNew(Alternative(1, "Description = 'It holds'"));
    Produce({6});
    PlaceOf("Alternative A. Name A");
    EXPECT_EQ(XOf("Body A"), ColumnX(1));
    EXPECT_EQ(XOf("Target Outcome"), ColumnX(1));
    EXPECT_EQ(XOf("It holds"), ColumnX(1));
    EXPECT_EQ(XOf("Extreme Outcome"), ColumnX(4));
    EXPECT_EQ(PlacesOf("Fallback Outcome").size(), 0u);
    for (const char* caption : captions)
        EXPECT_EQ(XsOf(caption), (std::vector<Double>{ColumnX(1), ColumnX(5)})) << caption;
    // Below the heads and descriptions columns 3 and 4 hold nothing.
    for (const auto& text : Printer().Pages().pages.front().ink.texts) {
        const bool isFigure = text.y >= PlacesOf("Probability:").front().y;
        EXPECT_TRUE(!isFigure || text.x < ColumnX(3) || text.x >= ColumnX(5)) << text.text;
    }
}

TEST_F(PrintAlternatives, WithFallback_ThreeOutcomesOfTwoColumns)
{
    OpenNew(Alternative(1, "Success = 60", "Success = 50, Description = 'It slips'"));
    Produce({6});
    EXPECT_EQ(XOf("Target Outcome"), ColumnX(1));
    EXPECT_EQ(XOf("Fallback Outcome"), ColumnX(3));
    EXPECT_EQ(XOf("It slips"), ColumnX(3));
    EXPECT_EQ(XOf("Extreme Outcome"), ColumnX(5));
    for (const char* caption : captions)
        EXPECT_EQ(XsOf(caption), (std::vector<Double>{ColumnX(1), ColumnX(3), ColumnX(5)})) << caption;
}

TEST_F(PrintAlternatives, Figures_AreTheModels)
{
    OpenNew(
        Alternative(1,
                    "Success = 60, FireSize = 123456.79, ContainTime = 5, ControlTime = 9",
                    "Success = 50, FireSize = 0.5") +
        firesql::SetOutcome(firesql::kExtremeKey, "FireSize = 24000, ContainTime = 50, ControlTime = 80"));
    Produce({6});
    EXPECT_EQ(FigureLines(), ModelLines());
    PlaceOf("123456.79 acres");
    PlaceOf("0.5 acres");
    PlaceOf("24000 acres");
    PlaceOf("5 days");
    PlaceOf("80 days");
}

TEST_F(PrintAlternatives, AllSamples_PrintTheModelsFiguresOnBothPapers)
{
    for (const char* name : {"smith-creek", "granite-fork-complex", "juniper-gap"}) {
        for (const bool a4 : {false, true}) {
            SCOPED_TRACE(name);
            OpenSample(name);
            a4 ? UseA4() : Printer().SetPaper(12240.0, 15840.0);
            Produce({6});
            EXPECT_EQ(FigureLines(), ModelLines());
            for (const auto& alternative : g51Alternatives::AlternativeCollection())
                PlaceOf("Alternative " + alternative->Label());
        }
    }
}

TEST_F(PrintAlternatives, Title_StandsBoldInTheMiddleBetweenTwoRules)
{
    OpenNew(Alternative(1));
    const auto& document = Produce({6});
    const auto& texts = document.pages.front().ink.texts;
    const auto title = std::find_if(
        texts.begin(), texts.end(), [](const auto& text) { return text.text == "Alternative A. Name A"; });
    ASSERT_NE(title, texts.end());
    EXPECT_EQ(std::llround(title->x + title->width / 2.0), 6120);
    const auto& look = document.looks.at(static_cast<std::size_t>(title->look));
    EXPECT_TRUE(look.bold);
    EXPECT_EQ(look.halfPoints, 22);
    std::vector<Double> rules;
    for (const auto& line : document.pages.front().ink.lines) {
        if (line.y1 > 1440.0) {
            EXPECT_EQ(line.x1, 720.0);
            EXPECT_EQ(line.x2, 11520.0);
            rules.push_back(line.y1);
        }
    }
    ASSERT_EQ(rules.size(), 2u);
    EXPECT_LT(std::min(rules[0], rules[1]), title->y);
    EXPECT_GT(std::max(rules[0], rules[1]), title->y);
}

TEST_F(PrintAlternatives, A4_ColumnsAreASixthOfItsText)
{
    OpenNew(Alternative(1));
    UseA4();
    Produce({6});
    EXPECT_EQ(XsOf("Probability:"), (std::vector<Double>{780.0, 720.0 + 4 * 1744.0 + 60.0}));
}

TEST_F(PrintAlternatives, Body_BlanksAndLineEndsBehindIt_GiveWayToOneLine)
{
    std::vector<Place> heads, figures;
    for (const std::string& body : {std::string("Words"), std::string("{\\rtf1\\fs18 Words\\par }")}) {
        for (const char* end : {"", " ", "\r\n", "\n \r \n\r\n  "}) {
            OpenNew(Alternative(1));
            const auto alternative = g51Alternatives::Alternative(1);
            alternative->SetBody(body + end);
            alternative->Outcome(1)->SetDescription(body + end);
            g53Outcomes::ExtremeOutcome()->SetDescription(body + end);
            Produce({6});
            heads.push_back(PlaceOf("Target Outcome"));
            figures.push_back(PlacesOf("Probability:").front());
            const Place text = PlacesOf("Words").front();
            constexpr Double line = 207.0; // of 9 points: one is empty between the text and what follows
            EXPECT_GT(heads.back().y - text.y, 1.5 * line);
            EXPECT_LT(heads.back().y - text.y, 2.5 * line);
        }
    }
    for (std::size_t i = 1; i < heads.size(); ++i) {
        EXPECT_EQ(heads[i], heads[0]) << i;
        EXPECT_EQ(figures[i], figures[0]) << i;
    }
}

TEST_F(PrintAlternatives, Texts_AreRichOnlyWhereTheyBeginSo)
{
    OpenNew(Alternative(1, "Description = '{\\b a|b;}'"));
    g51Alternatives::Alternative(1)->SetHeading("C:\\new {old}; a|b");
    g51Alternatives::Alternative(1)->SetBody("{\\rtf1 rich; a|b\\par }");
    Produce({6});
    PlaceOf("Alternative A. C:\\new {old}; a|b");
    PlaceOf("{\\b a|b;}");
    PlaceOf("rich; a|b");
}

TEST_F(PrintAlternatives, LabelOf300Characters_WrapsAndIsWhole)
{
    std::string heading;
    while (heading.size() < 300)
        heading += "Confine ";
    heading += std::string(120, 'W'); // a word that no line holds
    OpenNew(Alternative(1));
    g51Alternatives::Alternative(1)->SetHeading(heading);
    Produce({6});
    std::string printed;
    for (const auto& text : Printer().Pages().pages.front().ink.texts) {
        EXPECT_GE(text.x, 720.0 - 1.0);
        EXPECT_LE(text.x + text.width, 11520.0 + 1.0) << text.text;
        if (text.text.find("Confine") != std::string::npos || text.text.find("WW") != std::string::npos)
            printed += text.text;
    }
    std::string wanted = "Alternative A. " + heading;
    std::erase(wanted, ' ');
    std::erase(printed, ' ');
    EXPECT_EQ(printed, wanted);
}

TEST_F(PrintAlternatives, ManyAlternatives_InOrderEachWholeOnAPage)
{
    for (const Long count : {1, 7, 40}) {
        SCOPED_TRACE(count);
        OpenNew();
        AddAlternatives(count);
        Produce({6});
        EXPECT_EQ(FigureLines(), ModelLines());
        Place last;
        for (const auto& alternative : g51Alternatives::AlternativeCollection()) {
            const Place title = PlaceOf("Alternative " + alternative->Label());
            EXPECT_TRUE(title.page > last.page || (title.page == last.page && title.y > last.y));
            last = title;
        }
        const std::vector<Place> ends = PlacesOf("Time to Control:");
        ASSERT_EQ(ends.size(), 2 * static_cast<std::size_t>(count));
        for (Long i = 1; i <= count; ++i) {
            const auto& alternative = *g51Alternatives::AlternativeCollection().At(i);
            EXPECT_EQ(PlaceOf("Alternative " + alternative.Label()).page,
                      ends[2 * static_cast<std::size_t>(i) - 1].page);
        }
    }
}

TEST_F(PrintAlternatives, BodyHigherThanAPage_BreaksWithinAndNothingIsLost)
{
    std::string body, description;
    for (int i = 0; i < 200; ++i)
        body += "Line " + std::to_string(i) + "\r\n";
    for (int i = 0; i < 90; ++i)
        description += "Part " + std::to_string(i) + "\r\n";
    OpenNew(Alternative(1) + Alternative(2));
    g51Alternatives::Alternative(1)->SetBody(body);
    g51Alternatives::Alternative(1)->Outcome(1)->SetDescription(description);
    Produce({6});
    for (int i = 0; i < 200; ++i)
        PlaceOf("Line " + std::to_string(i));
    for (int i = 0; i < 90; ++i)
        PlaceOf("Part " + std::to_string(i));
    const std::vector<Place> titles = PlacesOf("Alternative A. Name A"); // again on every page
    EXPECT_EQ(titles.front().page, PlaceOf("Line 0").page);
    EXPECT_EQ(titles.back().page, PlacesOf("Time to Control:").front().page);
    EXPECT_EQ(static_cast<Long>(titles.size()), titles.back().page - titles.front().page + 1);
    EXPECT_EQ(FigureLines(), ModelLines());
    EXPECT_EQ(PageCount(), PlaceOf("Alternative B. Name B").page);
}

TEST_F(PrintAlternatives, Descriptions_ComeWithListsTablesAndPictures)
{
    const std::string picture = // a PNG of one pixel
        "{\\pict\\pngblip\\picw1\\pich1\\picwgoal600\\pichgoal600 "
        "89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de0000000c4944415408d763f8cfc0000003"
        "01"
        "0100c9fe92ef0000000049454e44ae426082}";
    OpenNew(Alternative(1));
    g51Alternatives::Alternative(1)->SetBody(
        "{\\rtf1{\\*\\listtable{\\list\\listtemplateid1{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}"
        "{\\levelnumbers\\'01;}}\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
        "\\pard\\ls1\\li360\\fi-360 First\\par Second\\par\\pard\\trowd\\cellx2000\\cellx4000\\intbl "
        "Left\\cell "
        "Right\\cell\\row\\pard " +
        picture + "\\par }");
    const auto& document = Produce({6});
    PlaceOf("1.");
    PlaceOf("2.");
    EXPECT_EQ(PlaceOf("Left").y, PlaceOf("Right").y);
    ASSERT_EQ(document.pages.front().ink.pictures.size(), 1u);
    EXPECT_LT(document.pages.front().ink.pictures.front().y, PlaceOf("Target Outcome").y);
}

TEST_F(PrintAlternatives, BodiesOfEveryKind_ComeThroughAndTheBlockGoesOn)
{
    const auto files = BodyFiles();
    EXPECT_GT(files.size(), 5u);
    OpenSample("juniper-gap");
    const auto alternative = g51Alternatives::AlternativeCollection().At(1);
    for (const auto& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::string body = support::ReadFile(file.string());
        alternative->SetBody(body);
        alternative->Outcome(1)->SetDescription(body);
        Produce({6});
        EXPECT_EQ(PlacesOf("Extreme Outcome").size(), 2u);
        const std::vector<std::string> wanted = ModelLines();
        const std::vector<std::string> lines = Lines();
        for (const std::string& line : wanted)
            EXPECT_GE(std::count(lines.begin(), lines.end(), line), 1) << line;
    }
}

TEST_F(PrintAlternatives, Format_IsAsBefore)
{
    OpenNew(Alternative(1) + Alternative(2));
    Printer().OnProgress({});
    Produce({6});
    EXPECT_EQ(Printer().TextAlign(), 0);
    EXPECT_EQ(Printer().FontSize(), 10.0F);
    EXPECT_FALSE(Printer().FontBold());
}

TEST_F(PrintAlternatives, Log_TellsTheSection)
{
    OpenNew();
    Produce({6});
    EXPECT_EQ(CountLog("PrintAlternatives"), 1);
}

} // namespace
