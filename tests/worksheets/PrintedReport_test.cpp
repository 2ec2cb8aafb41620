#include "platform/print/PagePainter.h"
#include "platform/print/PdfFile.h"
#include "platform/widgets/Printing.h"
#include "worksheets/PreviewTest.h"
#include "worksheets/PrintQueue.h"

#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gmock/gmock.h>

using platform::print::Document;

// The report on its way through a real print service, and what comes out of it.

namespace {

/// A word of a PDF and where it stands, in points.
struct Word
{
    QString text;
    double x = 0.0, y = 0.0, right = 0.0;
};

struct Sheet
{
    double width = 0.0, height = 0.0; // points
    std::vector<Word> words;
};

QByteArray OutputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    return process.readAllStandardOutput();
}

double Attribute(const QString& line, const char* name)
{
    const QRegularExpression pattern(QString::fromUtf8(name) + QStringLiteral("=\"([0-9.]+)\""));
    return pattern.match(line).captured(1).toDouble();
}

std::vector<Sheet> SheetsOf(const std::string& pdf)
{
    std::vector<Sheet> sheets;
    const QByteArray told =
        OutputOf(QStringLiteral("pdftotext"),
                 {QStringLiteral("-bbox"), QString::fromStdString(pdf), QStringLiteral("-")});
    static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
    for (const QString& line : QString::fromUtf8(told).split(QLatin1Char('\n'))) {
        if (line.contains(QLatin1String("<page "))) {
            sheets.push_back({Attribute(line, "width"), Attribute(line, "height"), {}});
        } else if (line.contains(QLatin1String("<word "))) {
            sheets.back().words.push_back({QString(line).remove(tags).trimmed(),
                                           Attribute(line, "xMin"),
                                           Attribute(line, "yMin"),
                                           Attribute(line, "xMax")});
        }
    }
    return sheets;
}

/// Where there is ink on a page.
QRect InkOf(const QImage& page)
{
    QRect ink;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            if (qGray(page.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

class PrintedReport : public PreviewTest
{
protected:
    void SetUp() override
    {
        std::filesystem::create_directories(folder.File("service"));
        std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
        queue = std::make_unique<PrintQueue>(folder.File("service"));
        if (!queue->Runs() || QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            GTEST_SKIP() << "there is no print service to be started here";
        queue->AddPrinter("Office", "Letter");
        queue->AddPrinter("Abroad", "A4");
        queue->MakeDefault("Office");
        ASSERT_TRUE(queue->Runs());
        platform::Printing::UseDesktopsPrinter();
        StartReports();
    }
    void TearDown() override { platform::Printing::UseDesktopsPrinter(); }

    /// Sets the printer up in its dialog.
    static void SetUpPrinter(const std::function<void(QPrintDialog&)>& choose)
    {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            choose(*dialog);
            dialog->accept();
        });
        platform::Printing::SetUp(nullptr);
    }
    static void Choose(QPrintDialog& dialog, const char* printer)
    {
        auto* printers = dialog.findChild<QComboBox*>(QStringLiteral("printers"));
        ASSERT_NE(printers, nullptr);
        printers->setCurrentIndex(printers->findText(QString::fromUtf8(printer)));
    }

    /// What came out of a printer holds the words of these pages, each in its place on its paper.
    void ExpectPages(const std::vector<Sheet>& sheets, const Document& pages)
    {
        platform::print::WritePdf(pages, folder.File("wanted.pdf"));
        const std::vector<Sheet> wanted = SheetsOf(folder.File("wanted.pdf"));
        ASSERT_EQ(sheets.size(), wanted.size());
        for (std::size_t page = 0; page < sheets.size(); ++page) {
            SCOPED_TRACE("page " + std::to_string(page + 1));
            ExpectPage(sheets[page], wanted[page]);
        }
    }
    static void ExpectPage(const Sheet& sheet, const Sheet& wanted)
    {
        EXPECT_LE(std::abs(sheet.width - wanted.width), 1.0); // papers are told in whole points
        EXPECT_LE(std::abs(sheet.height - wanted.height), 1.0);
        ASSERT_EQ(sheet.words.size(), wanted.words.size());
        for (std::size_t i = 0; i < sheet.words.size(); ++i) {
            const Word& word = sheet.words[i];
            const Word& at = wanted.words[i];
            EXPECT_EQ(word.text, at.text);
            const bool isInPlace = std::abs(word.x - at.x) <= 0.5 && std::abs(word.y - at.y) <= 0.5 &&
                                   std::abs(word.right - at.right) <= 0.5;
            EXPECT_TRUE(isInPlace) << at.text.toStdString() << " at " << word.x << ", " << word.y
                                   << " not at " << at.x << ", " << at.y;
        }
    }
    /// The words by their letters, each with where it stands one way, in whole points.
    static std::vector<std::pair<std::string, long>> PlacesOf(const Sheet& sheet, double Word::*way)
    {
        std::vector<std::pair<std::string, long>> places;
        for (const Word& word : sheet.words)
            places.emplace_back(word.text.toStdString(), std::lround(word.*way));
        std::sort(places.begin(), places.end());
        return places;
    }
    static const Document& Made() { return Printer().Pages(); }

    std::unique_ptr<PrintQueue> queue;
};

TEST_F(PrintedReport, WholeReport_EveryPageOnItsPaperWithEveryWordInItsPlace)
{
    Press("cmdPrint");
    const std::string pdf = queue->Printed("Office");
    ASSERT_FALSE(pdf.empty());
    EXPECT_EQ(Made().pageWidth, 12240.0);
    EXPECT_EQ(Made().pageHeight, 15840.0);
    ExpectPages(SheetsOf(pdf), Made());
}

TEST_F(PrintedReport, EachPage_HasItsInkWhereThePreviewHasIt)
{
    Press("cmdPrint");
    const std::string pdf = queue->Printed("Office");
    ASSERT_FALSE(pdf.empty());
    constexpr int kDots = 50; // to the inch
    OutputOf(QStringLiteral("pdftoppm"),
             {QStringLiteral("-r"),
              QString::number(kDots),
              QStringLiteral("-png"),
              QString::fromStdString(pdf),
              QString::fromStdString(folder.File("sheet"))});
    QDir images(QString::fromStdString(folder.Path()), QStringLiteral("sheet*.png"));
    ASSERT_EQ(images.entryList().size(), PageCount());
    platform::print::PagePainter painter(Made());
    for (Long page = 0; page < PageCount(); ++page) {
        const auto& record = Made().pages[static_cast<std::size_t>(page)];
        const QRect shown = InkOf(platform::print::PageImage(painter, record, kDots));
        const QRect printed = InkOf(QImage(images.filePath(images.entryList().at(page))));
        for (const auto edge : {&QRect::left, &QRect::top, &QRect::right, &QRect::bottom})
            EXPECT_LE(std::abs((printed.*edge)() - (shown.*edge)()), 1) << "page " << page + 1;
    }
}

TEST_F(PrintedReport, PageOnShow_ComesOutAlone)
{
    Press("cmdPreview");
    Pages().GoToPage(3);
    PressInPreview("cmdPrintPage");
    const std::vector<Sheet> sheets = SheetsOf(queue->Printed("Office"));
    ExpectPages(sheets, platform::Printing::PagesOf(Made(), 2, 2));
}

TEST_F(PrintedReport, PrinterWithA4_LaidOutForIt)
{
    queue->MakeDefault("Abroad");
    Press("cmdPrint");
    EXPECT_EQ(Made().pageWidth, 11900.0); // 595 points
    EXPECT_EQ(Made().pageHeight, 16840.0);
    ExpectPages(SheetsOf(queue->Printed("Abroad")), Made());
    EXPECT_EQ(queue->Printed("Office"), "");
}

TEST_F(PrintedReport, PrinterSetUp_IsTakenUntilTheEnd)
{
    SetUpPrinter([](QPrintDialog& dialog) { Choose(dialog, "Abroad"); });
    Tick({3});
    Press("cmdPrint");
    EXPECT_NE(queue->Printed("Abroad"), "");
    EXPECT_EQ(queue->Printed("Office"), "");
    std::filesystem::remove(queue->Printed("Abroad"));
    Press("cmdPrint");
    EXPECT_NE(queue->Printed("Abroad"), "");
}

TEST_F(PrintedReport, Copies_AsSetUp)
{
    SetUpPrinter([](QPrintDialog& dialog) {
        auto* copies = dialog.findChild<QSpinBox*>(QStringLiteral("copies"));
        ASSERT_NE(copies, nullptr);
        copies->setValue(2);
    });
    Tick({3});
    Press("cmdPrint");
    const std::vector<Sheet> sheets = SheetsOf(queue->Printed("Office"));
    ASSERT_EQ(sheets.size(), 2u);
    ExpectPages({sheets[0]}, Made());
    ExpectPages({sheets[1]}, Made());
}

TEST_F(PrintedReport, Landscape_LaidOutAcrossWithTheMarginOfAShortPage)
{
    SetUpPrinter([](QPrintDialog& dialog) { dialog.printer()->setPageOrientation(QPageLayout::Landscape); });
    Tick({4});
    Press("cmdPrint");
    EXPECT_EQ(Made().pageWidth, 15840.0);
    EXPECT_EQ(Made().pageHeight, 12240.0);
    EXPECT_EQ(Printer().MarginBottom(), 360.0);
    std::vector<Sheet> sheets = SheetsOf(queue->Printed("Office"));
    ASSERT_EQ(static_cast<Long>(sheets.size()), PageCount());
    // The sheet comes out upright with the page turned on it: what is right on the page is down on the sheet.
    platform::print::WritePdf(Made(), folder.File("wanted.pdf"));
    const std::vector<Sheet> wanted = SheetsOf(folder.File("wanted.pdf"));
    for (std::size_t page = 0; page < sheets.size(); ++page) {
        EXPECT_EQ(sheets[page].width, 612.0);
        EXPECT_EQ(PlacesOf(sheets[page], &Word::y), PlacesOf(wanted[page], &Word::x));
    }
}

// ---- What goes wrong

TEST_F(PrintedReport, PrinterThatRefuses_IsToldAndThePagesAreKept)
{
    queue->Reject("Office");
    busy.ExpectText(
        {"The report could not be printed on \"Office\": Destination \"Office\" is not accepting jobs. "
         "Choose another printer with Printer Setup, or print again later."});
    Press("cmdPrint");
    EXPECT_EQ(queue->Printed("Office"), "");
    EXPECT_GT(PageCount(), 3);
    EXPECT_EQ(busy.pointer, platform::Pointer::Default);
    queue->Accept("Office");
    Press("cmdPrint");
    EXPECT_EQ(static_cast<Long>(SheetsOf(queue->Printed("Office")).size()), PageCount());
}

TEST_F(PrintedReport, PageOnAPrinterThatRefuses_IsToldAndThePreviewStays)
{
    Press("cmdPreview");
    Pages().GoToPage(2);
    queue->Reject("Office");
    busy.ExpectText(
        {"The report could not be printed on \"Office\": Destination \"Office\" is not accepting jobs. "
         "Choose another printer with Printer Setup, or print again later."});
    PressInPreview("cmdPrintPage");
    EXPECT_EQ(Text("lblPage"), "Page 2 of " + std::to_string(PageCount()));
}

TEST_F(PrintedReport, ServiceGoneBehindTheLayout_IsTold)
{
    Press("cmdPreview");
    queue->End();
    busy.takesAnyBox = true; // the cause is in the service's own words
    PressInPreview("cmdPrintPage");
    EXPECT_THAT(
        busy.taken,
        ::testing::ElementsAre(::testing::StartsWith("The report could not be printed on \"Office\": ")));
}

TEST_F(PrintedReport, PrintersGone_AFileIsAskedForAndTheTitleSaysWhy)
{
    queue->End();
    busy.ExpectFile("No Printer: Print to PDF File", folder.File("report.pdf"));
    Press("cmdPrint");
    EXPECT_EQ(static_cast<Long>(SheetsOf(folder.File("report.pdf")).size()), PageCount());
}

TEST_F(PrintedReport, CancelledRun_NothingIsPrinted)
{
    busy.whenEventsRun = [&] { busy.whenEventsRun = [&] { Find<QPushButton>("cmdCancel")->click(); }; };
    Press("cmdPrint");
    EXPECT_EQ(PageCount(), 0);
    EXPECT_EQ(queue->Printed("Office"), "");
}

} // namespace
