#include "platform/print/PrintControl.h"
#include "platform/print/PrintError.h"
#include "platform/widgets/Printing.h"
#include "platform/widgets/QtDesktop.h"
#include "support/ScriptedDesktop.h"
#include "support/TempFolder.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPrinter>
#include <QPushButton>
#include <QTimer>

#include <gmock/gmock.h>
#include <regex>

namespace Printing = platform::Printing;
using platform::print::Document;
using platform::print::PrintControl;

namespace {

/// Pages on a paper, with a bookmark on each.
std::unique_ptr<PrintControl> MakeReport(int pages, Double width = 12240.0, Double height = 15840.0)
{
    auto control = std::make_unique<PrintControl>();
    control->SetPaper(width, height);
    control->SetTitle("VEXA Report - Smith/Creek");
    control->StartDoc();
    for (int page = 1; page <= pages; ++page) {
        if (page > 1) control->NewPage();
        control->AddBookmark("Section " + std::to_string(page));
        control->Paragraph("Words of page " + std::to_string(page));
    }
    control->EndDoc();
    return control;
}

/// How often a pattern stands in a PDF.
int CountOf(const std::string& text, const char* pattern)
{
    const std::regex wanted(pattern);
    return static_cast<int>(std::distance(std::sregex_iterator(text.begin(), text.end(), wanted), {}));
}

class PrintingTest : public ::testing::Test
{
protected:
    PrintingTest()
    {
        qputenv("CUPS_SERVER", "/nowhere/cups.sock"); // no test prints on a printer of this computer
        platform::SetDesktop(&desktop);
    }
    ~PrintingTest() override
    {
        desktop.CheckDone();
        platform::SetDesktop(nullptr);
    }
    support::ScriptedDesktop desktop;
    support::TempFolder folder;
};

TEST_F(PrintingTest, NoPrinter_PaperIsLetter)
{
    const Printing::Paper paper = Printing::PaperInUse();
    EXPECT_EQ(paper.width, 12240.0);
    EXPECT_EQ(paper.height, 15840.0);
}

TEST_F(PrintingTest, NoPrinter_PagesGoToTheFileThatIsAskedFor)
{
    const auto report = MakeReport(3);
    std::string suggested;
    desktop.lookAtFileRequest = [&](const platform::FileRequest& request) {
        suggested = request.fileName;
        EXPECT_TRUE(request.asksBeforeReplacing);
        EXPECT_EQ(request.extension, "pdf");
    };
    desktop.ExpectFile("No Printer: Print to PDF File", folder.File("out.pdf"));
    Printing::Print(report->Pages(), 0, 2);
    EXPECT_TRUE(support::ReadFile(folder.File("out.pdf")).starts_with("%PDF-"));
    EXPECT_EQ(suggested.find('/'), std::string::npos);
    // The next time that file is suggested again.
    desktop.ExpectFile("No Printer: Print to PDF File", "");
    Printing::Print(report->Pages(), 0, 2);
    EXPECT_EQ(suggested, folder.File("out.pdf"));
}

TEST_F(PrintingTest, FileNotGiven_NothingIsWritten)
{
    desktop.ExpectFile("No Printer: Print to PDF File", "");
    Printing::Print(MakeReport(1)->Pages(), 0, 0);
}

TEST_F(PrintingTest, NoPages_NobodyIsAsked)
{
    const auto report = MakeReport(2);
    Printing::Print(Document(), 0, -1);
    Printing::Print(report->Pages(), 2, 2);
    Printing::Print(report->Pages(), -1, 0);
}

TEST_F(PrintingTest, FileThatCannotBeWritten_Throws)
{
    desktop.ExpectFile("No Printer: Print to PDF File", folder.File("missing/out.pdf"));
    EXPECT_THROW(Printing::Print(MakeReport(1)->Pages(), 0, 0), platform::print::PrintError);
}

TEST_F(PrintingTest, FileThatIsTheOpenDataFile_ThrowsAndStays)
{
    support::WriteFile(folder.File("Fire.qel"), "data");
    desktop.ExpectFile("No Printer: Print to PDF File", folder.Path() + "/./Fire.qel");
    EXPECT_THROW(Printing::Print(MakeReport(1)->Pages(), 0, 0, folder.File("Fire.qel")),
                 platform::print::PrintError);
    EXPECT_EQ(support::ReadFile(folder.File("Fire.qel")), "data");
}

TEST_F(PrintingTest, OnAPrinter_APageThatIsWiderThanHighIsTurned)
{
    const auto report = MakeReport(1, 15840.0, 12240.0);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(folder.File("wide.pdf")));
    printer.setPageSize(QPageSize(QPageSize::A4));
    Printing::DrawOn(printer, report->Pages(), 0, 0);
    EXPECT_EQ(CountOf(support::ReadFile(folder.File("wide.pdf")),
                      "/MediaBox \\[0[.0]* 0[.0]* 792[.0]* 612[.0]*\\]"),
              1);
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
}

TEST_F(PrintingTest, SomePages_TheirBookmarksAndNumbersFromOne)
{
    const auto report = MakeReport(5);
    const Document part = Printing::PagesOf(report->Pages(), 2, 3);
    ASSERT_EQ(part.pages.size(), 2u);
    EXPECT_EQ(part.pages[0].number, 1);
    EXPECT_EQ(part.pages[0].ink.texts.at(0).text, "Words of page 3");
    ASSERT_EQ(part.bookmarks.size(), 2u);
    EXPECT_EQ(part.bookmarks[0].title, "Section 3");
    EXPECT_EQ(part.bookmarks[0].page, 0);
    EXPECT_EQ(part.bookmarks[1].page, 1);
}

TEST_F(PrintingTest, OnAPrinter_EachPageOnceOnTheDocumentsPaper)
{
    const auto report = MakeReport(4, 11906.0, 16838.0);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(folder.File("a4.pdf")));
    printer.setPageSize(QPageSize(QPageSize::Letter));
    Printing::DrawOn(printer, report->Pages(), 1, 3);
    const std::string pdf = support::ReadFile(folder.File("a4.pdf"));
    EXPECT_EQ(CountOf(pdf, "/Type /Page\\b(?!s)"), 3);
    EXPECT_EQ(CountOf(pdf, "/MediaBox \\[0[.0]* 0[.0]* 595[.0-9]* 84[12][.0-9]*\\]"), 3);
}

TEST_F(PrintingTest, PrinterThatTakesNothing_Throws)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(folder.File("missing/a.pdf")));
    EXPECT_THROW(Printing::DrawOn(printer, MakeReport(1)->Pages(), 0, 0), platform::print::PrintError);
}

// ---- Setup

TEST_F(PrintingTest, SetupCancelled_ThePaperStays)
{
    bool stood = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        stood = dialog->windowTitle() == QStringLiteral("Printer Setup");
        dialog->reject();
    });
    Printing::SetUp(nullptr);
    EXPECT_TRUE(stood);
    EXPECT_EQ(Printing::PaperInUse().height, 15840.0);
}

TEST_F(PrintingTest, PrinterSetupOfTheDesktop_ShowsTheDialog)
{
    platform::QtDesktop own{QStringLiteral("VEXA Basic")};
    bool stood = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* buttons = dialog->findChild<QDialogButtonBox*>();
        stood = buttons != nullptr && buttons->button(QDialogButtonBox::Ok) != nullptr &&
                buttons->button(QDialogButtonBox::Ok)->text() == QStringLiteral("OK");
        dialog->reject();
    });
    own.PrinterSetup();
    EXPECT_TRUE(stood);
}

} // namespace
