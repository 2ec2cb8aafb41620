#include "platform/jet/JetReader.h"
#include "platform/print/PrintControl.h"
#include "platform/richtext/RtfReader.h"
#include "platform/widgets/ListBox.h"
#include "reports/ReportUtilities.h"
#include "session/SessionState.h"
#include "worksheets/AccessTree.h"
#include "worksheets/ConnectScreens.h"
#include "worksheets/EveryPlace.h"
#include "worksheets/GridHands.h"
#include "worksheets/OldFire.h"
#include "worksheets/Worksheet.h"
#include "worksheets/frmPreview.h"

#include <QComboBox>
#include <QPushButton>

#include <filesystem>
#include <gmock/gmock.h>
#include <iterator>
#include <sstream>

using ::testing::StartsWith;

// Fires of older formats as a user takes them up again: opened, read on every worksheet, printed, changed.

namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kPlaces = 6 + 15 + 1; // introductions, worksheets, the list of resources

constexpr const char* kHeadings[] = {"Fire Situation",
                                     "Decision Summary",
                                     "Daily Review",
                                     "Objectives",
                                     "Safety Issues",
                                     "Alternatives",
                                     "Estimated Suppression Costs",
                                     "Resource Value Losses",
                                     "Safety Assessment",
                                     "Decision Tree"};

bool Holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

/// What no line end parts.
Texts PiecesOf(const std::string& line)
{
    std::string parted;
    for (const char sign : line) {
        parted += sign;
        if (sign == '-') parted += ' ';
    }
    std::istringstream stream(parted);
    return {std::istream_iterator<std::string>(stream), {}};
}

std::string PrintedPages()
{
    std::string printed;
    for (const auto& page : ReportUtilities::VSPrinter1().Pages().pages) {
        for (const std::string& line : platform::print::LinesOf(page))
            printed += line + "\n";
    }
    return printed;
}

class OldFiles : public EveryPlace, public ::testing::WithParamInterface<OldFire>
{
protected:
    void SetUp() override
    {
        if (Fire().Path().empty()) GTEST_SKIP() << "VEXA_CORPUS names no folder with this file";
        qputenv("CUPS_SERVER", "/nowhere/cups.sock"); // no test prints on a printer of this computer
        platform::SetJetReaderProgram(support::BuiltFile("vexa-jet"));
        windowSize = {1300, 1000}; // a reader gets the rows that are on the screen
        path = folder.File("Old.qel");
        support::CopyFile(Fire().Path(), path);
    }
    ~OldFiles() override { platform::SetJetReaderProgram({}); }
    static const OldFire& Fire() { return GetParam(); }

    // ---- Opening
    void OpenFromStartForm(platform::Answer answer = platform::Answer::Ok)
    {
        Start();
        desktop.ExpectFile("Open VEXA Plus file", path);
        desktop.Expect(Question(), answer);
        Press("cmdOpen");
        ASSERT_EQ(gDatabaseOpen, answer == platform::Answer::Ok);
    }
    static platform::Message Question()
    {
        platform::Message question;
        question.title = "Convert to VEXA Plus 06 File?";
        question.lines = {"This file must be modified to work with VEXA Plus 06."};
        const Texts lost = Fire().asksAsOldest
                               ? Texts{"All ORLN Stage I and Periodic Assessment data will be lost.",
                                       "All ORLN Stage II and most Stage III report sections will be saved.",
                                       "All VEXA Safety issues will be lost."}
                               : Texts{"Some ORLN Size-up and Stage I data will be lost."};
        question.lines.insert(question.lines.end(), lost.begin(), lost.end());
        question.lines.emplace_back("All values for VEXA Threatened Items will be lost.");
        if (Fire().hasWorstCase) question.lines.emplace_back("All VEXA Worst Case data will be lost.");
        question.lines.emplace_back(Fire().asksAsOldest ? "All other VEXA data will be saved."
                                                        : "All other data will be saved.");
        question.lines.emplace_back(
            "Once converted, the file cannot be opened with a previous version of VEXAPlus.");
        question.lines.emplace_back();
        question.lines.emplace_back("Do you want to convert this file to a VEXA Plus 06 file?");
        question.buttons = platform::Buttons::OkCancel;
        question.preset = platform::Answer::Cancel;
        question.icon = platform::Icon::Question;
        return question;
    }
    void Leave() { Pick("mnuFile", 9); }
    /// In the window of a new start, where nothing is asked.
    void OpenAgain()
    {
        window.reset();
        window = std::make_unique<frm0_VEXA>();
        ConnectScreens(*window);
        Start(path);
        ASSERT_TRUE(gDatabaseOpen);
    }

    // ---- Reading
    /// Every worksheet with each row of its lists and grids, and the list of resources.
    void ReadEverything()
    {
        m_read.clear();
        VisitWorksheets([this](QWidget&, const std::string& place) { ReadPlace(place); });
        GoTo(5, 5);
        InDialog([this] { Find<QPushButton>("cmdSRUse")->click(); },
                 [this](QDialog& dialog) {
                     const auto* list = dialog.findChild<platform::ListBox*>(QStringLiteral("lstSRMaster"));
                     for (Long row = 0; row < list->ListCount(); ++row)
                         m_read["frm562"] += list->List(row) + "\n";
                 });
        EXPECT_EQ(m_read.size(), kPlaces);
    }
    void ReadPlace(const std::string& place)
    {
        ReadRowsOfGrids(place);
        for (auto* list : Shown().findChildren<platform::ListBox*>()) {
            for (int row = 0; row < list->count(); ++row) {
                list->scrollToItem(list->item(row));
                const QPoint middle = list->visualItemRect(list->item(row)).center();
                QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middle);
                ReadRowsOfGrids(place);
            }
        }
        for (auto* trees : Shown().findChildren<QComboBox*>(QStringLiteral("cboAlternative_1"))) {
            for (int row = 0; row < trees->count(); ++row) {
                trees->setCurrentIndex(row);
                Read(place);
            }
        }
    }
    void ReadRowsOfGrids(const std::string& place)
    {
        Read(place);
        for (auto* grid : Shown().findChildren<platform::Grid*>()) {
            for (Long row = grid->Contents().FixedRows(); row < grid->Rows(); ++row) {
                GridHands(*grid).Click(row, 0);
                Read(place);
            }
        }
    }
    /// What a screen reader finds.
    void Read(const std::string& place)
    {
        std::string& read = m_read[place];
        AccessTree::Walk(AccessTree::Of(Shown()), [&read](QAccessibleInterface& control) {
            for (const auto text : {QAccessible::Name, QAccessible::Description, QAccessible::Value})
                read += control.text(text).toStdString() + "\n";
            if (QAccessibleTextInterface* text = control.textInterface())
                read += text->text(0, text->characterCount()).toStdString() + "\n";
        });
    }
    bool IsRead(const std::string& place, const std::string& text) { return Holds(m_read[place], text); }
    void ExpectOldTexts()
    {
        for (const Sight& sight : Fire().TextsOnWorksheets())
            EXPECT_TRUE(IsRead(sight.place, sight.text)) << sight.place << ": " << sight.text;
    }
    static void ExpectPrinted(const std::string& printed)
    {
        for (const char* heading : kHeadings)
            EXPECT_TRUE(Holds(printed, heading)) << heading;
        for (const std::string& line : Fire().TextsOnPaper()) {
            for (const std::string& piece : PiecesOf(line))
                EXPECT_TRUE(Holds(printed, piece)) << piece << " of " << line;
        }
    }

    // ---- Changing
    void ChangeTexts()
    {
        GoTo(2, 2);
        TypeBehind("txtName", " (reburn)");
        GoTo(2, 3);
        TypeBehind("txtBody", " New slash.");
        GoTo(5, 5);
        TypeBehind("txtCostRationale", "Counted again.");
    }
    void TypeBehind(const char* control, const char* text)
    {
        Find<QWidget>(control)->setFocus();
        GridHands::Key(Qt::Key_End, Qt::ControlModifier);
        GridHands::Key(Qt::Key_End);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    }
    void ChangeFigures()
    {
        GoTo(5, 3);
        GridHands(*Find<platform::Grid>("Grid1")).Type(1, 3, "6.5");
        GoTo(5, 4);
        GridHands(*Find<platform::Grid>("grdImpacts")).Type(1, 3, "76543");
    }

    std::map<std::string, std::string> m_read; // by place
};

TEST_P(OldFiles, ReadOnEveryWorksheet_EverythingIsThereAndReadingChangesNothing)
{
    OpenFromStartForm();
    ReadEverything();
    ExpectOldTexts();
    EXPECT_TRUE(IsRead("tab11-2", "In the Situation Section you provide information about the fire."));
    EXPECT_TRUE(IsRead("tab42", "Guidelines for developing alternatives:"));
    Leave();
    QJsonObject expected = Fire().Converted();
    QJsonObject found = DumpedByCompanion(path);
    for (QJsonObject* dump : {&expected, &found})
        dump->remove(QStringLiteral("Properties")); // the path
    EXPECT_TRUE(expected == found);
    EXPECT_EQ(support::ReadFile(path + ".jet"), support::ReadFile(Fire().Path()));
}

/// Those of the oldest format; the later one had given them up.
TEST_P(OldFiles, ReportTopicsOfOtherEditions_AreKeptAndShownOnNoWorksheet)
{
    const char* text = "Stage III, topic";
    OpenFromStartForm();
    ReadEverything();
    for (const auto& [place, read] : m_read)
        EXPECT_FALSE(Holds(read, text)) << place;
    const support::Rows kept =
        Query("SELECT count(*) > 0 FROM Items WHERE Body LIKE '%" + std::string(text) + "%'");
    EXPECT_EQ(kept, (support::Rows{{Fire().asksAsOldest ? "1" : "0"}}));
}

TEST_P(OldFiles, Printed_AllTenSectionsWithTheirTexts)
{
    OpenFromStartForm();
    GoTo(7, 3);
    Press("cmdPreview");
    ASSERT_NE(frmPreview::Loaded(), nullptr);
    ExpectPrinted(PrintedPages());
    const std::string pdf = folder.File("report.pdf");
    desktop.ExpectFile("No Printer: Print to PDF File", pdf);
    Press("cmdPrint");
    EXPECT_THAT(support::ReadFile(pdf), StartsWith("%PDF-"));
    ExpectPrinted(PrintedPages());
    const std::string rtf = folder.File("report.rtf");
    desktop.ExpectFile("Save as RTF File", rtf);
    Press("cmdSave");
    ExpectPrinted(
        platform::richtext::RtfToPlainText(support::ReadFile(rtf), platform::richtext::Source::Bytes));
}

TEST_P(OldFiles, Changed_IsFoundAfterReopeningWithEverythingElse)
{
    OpenFromStartForm();
    ChangeTexts();
    ChangeFigures();
    Leave();
    EXPECT_EQ(ChangedRows(Fire().Converted(), DumpedByCompanion(path)),
              (std::map<std::string, int>{
                  {"ItemImpacts", 1}, {"Items", 2}, {"Outcomes", 1}, {"Scores", 1}, {"ValuesAtRisk", 1}}));
    OpenAgain();
    ReadEverything();
    ExpectOldTexts();
    EXPECT_TRUE(IsRead("tab22", " (reburn)"));
    EXPECT_TRUE(IsRead("tab23", " New slash."));
    EXPECT_TRUE(IsRead("tab53", "6.5"));
    EXPECT_TRUE(IsRead("tab54", "$76,543"));
    EXPECT_TRUE(IsRead("tab56", "Counted again."));
}

TEST_P(OldFiles, QuestionCancelled_NothingIsOpenedAndTheFileIsAsItWas)
{
    OpenFromStartForm(platform::Answer::Cancel);
    EXPECT_TRUE(Find<QPushButton>("cmdOpen")->isVisible());
    EXPECT_EQ(support::ReadFile(path), support::ReadFile(Fire().Path()));
    EXPECT_FALSE(std::filesystem::exists(path + ".jet"));
}

INSTANTIATE_TEST_SUITE_P(Fires, OldFiles, ::testing::ValuesIn(OldFire::All()), [](const auto& fire) {
    std::string name = std::string(fire.param.name).substr(9) + fire.param.ending;
    std::erase_if(name, [](unsigned char sign) { return std::isalnum(sign) == 0; });
    return name;
});

} // namespace
