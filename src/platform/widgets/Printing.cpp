#include "platform/widgets/Printing.h"

#include "platform/base/Desktop.h"
#include "platform/print/Document.h"
#include "platform/print/Fonts.h"
#include "platform/print/PagePainter.h"
#include "platform/print/PdfFile.h"
#include "platform/print/PrintError.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

#include <cmath>
#include <memory>

namespace platform::Printing {

namespace {

constexpr double kTwipsPerInch = 1440.0, kTwipsPerPoint = 20.0;
constexpr double kSamePaper = 30.0; // twips: papers are told in whole points or millimetres

std::unique_ptr<QPrinter> g_printer; // as it was set up

std::unique_ptr<QPrinter> MakePrinter()
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        printer->setOutputFormat(QPrinter::PdfFormat);
        printer->setPageSize(QPageSize(QPageSize::Letter));
    }
    return printer;
}

QPrinter& ThePrinter()
{
    static const bool ends = [] {
        qAddPostRoutine([] { g_printer.reset(); }); // a printer may not outlive the application
        return true;
    }();
    static_cast<void>(ends);
    if (g_printer == nullptr) g_printer = MakePrinter();
    return *g_printer;
}

/// Another printer in the same state: a dialog changes it while it stands.
std::unique_ptr<QPrinter> CopyOf(const QPrinter& printer)
{
    auto copy = MakePrinter();
    if (!printer.printerName().isEmpty()) copy->setPrinterName(printer.printerName());
    copy->setOutputFormat(printer.outputFormat());
    copy->setOutputFileName(printer.outputFileName());
    copy->setPageLayout(printer.pageLayout());
    copy->setCopyCount(printer.copyCount());
    copy->setColorMode(printer.colorMode());
    copy->setDuplex(printer.duplex());
    return copy;
}

Paper PaperOf(const QPrinter& printer)
{
    const QRectF paper = printer.pageLayout().fullRect(QPageLayout::Point);
    return {std::round(paper.width() * kTwipsPerPoint), std::round(paper.height() * kTwipsPerPoint)};
}

void SetPaper(QPrinter& printer, const print::Document& document)
{
    const Paper paper = PaperOf(printer);
    printer.setFullPage(true);
    if (std::abs(paper.width - document.pageWidth) <= kSamePaper &&
        std::abs(paper.height - document.pageHeight) <= kSamePaper)
        return;
    const QSizeF points(document.pageWidth / kTwipsPerPoint, document.pageHeight / kTwipsPerPoint);
    printer.setPageOrientation(QPageLayout::Portrait);
    printer.setPageSize(QPageSize(points, QPageSize::Point, {}, QPageSize::FuzzyMatch));
}

bool IsPage(const print::Document& document, Long first, Long last)
{
    return first >= 0 && first <= last && last < static_cast<Long>(document.pages.size());
}

/// The file that was printed to last, at first one named after the document.
QString FileNameFor(const print::Document& document)
{
    const QString before = ThePrinter().outputFileName();
    if (!before.isEmpty()) return before;
    QString name = print::FromUtf8(document.title);
    return name.replace(QLatin1Char('/'), QLatin1Char('-')) + QLatin1String(".pdf");
}

void PrintToFile(const print::Document& document, Long first, Long last)
{
    FileRequest request;
    request.kind = FileRequest::Kind::Save;
    request.title = "Print to PDF File";
    request.extension = "pdf";
    request.fileName = FileNameFor(document).toStdString();
    request.filter = "PDF files (*.pdf)|*.pdf|All Files (*.*)|*.*";
    request.asksBeforeReplacing = true;
    const std::optional<std::string> path = TheDesktop().AskFile(request);
    if (!path) return;
    print::WritePdf(PagesOf(document, first, last), *path);
    ThePrinter().setOutputFileName(QString::fromStdString(*path));
}

} // namespace

Paper PaperInUse() { return PaperOf(ThePrinter()); }

void SetUp(QWidget* parent)
{
    auto printer = CopyOf(ThePrinter());
    QPrintDialog dialog(printer.get(), parent);
    dialog.setObjectName(QStringLiteral("PrinterSetup"));
    dialog.setWindowTitle(QStringLiteral("Printer Setup"));
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
        // The dialog would say Print, and nothing is printed here.
        if (auto* accept = buttons->button(QDialogButtonBox::Ok)) accept->setText(QStringLiteral("OK"));
    }
    if (dialog.exec() == QDialog::Accepted) g_printer = std::move(printer);
}

void Print(const print::Document& document, Long first, Long last)
{
    if (!IsPage(document, first, last)) return;
    if (ThePrinter().outputFormat() == QPrinter::PdfFormat) {
        PrintToFile(document, first, last);
    } else {
        DrawOn(ThePrinter(), document, first, last);
    }
}

void DrawOn(QPrinter& printer, const print::Document& document, Long first, Long last)
{
    SetPaper(printer, document);
    printer.setDocName(print::FromUtf8(document.title));
    print::PagePainter pages(document);
    QPainter painter;
    bool works = painter.begin(&printer);
    const double scale = printer.resolution() / kTwipsPerInch;
    for (Long page = first; works && page <= last; ++page) {
        if (page > first) works = printer.newPage();
        painter.resetTransform();
        painter.scale(scale, scale);
        if (works) pages.DrawPage(painter, document.pages[static_cast<std::size_t>(page)]);
    }
    if (works && painter.end()) return;
    throw print::PrintError(printer.printerName().toStdString(), "the printer takes no pages");
}

print::Document PagesOf(const print::Document& document, Long first, Long last)
{
    print::Document part;
    part.title = document.title;
    part.looks = document.looks;
    part.pageWidth = document.pageWidth;
    part.pageHeight = document.pageHeight;
    for (Long page = first; page <= last; ++page) {
        part.pages.push_back(document.pages[static_cast<std::size_t>(page)]);
        part.pages.back().number = page - first + 1;
    }
    for (print::Bookmark bookmark : document.bookmarks) {
        if (bookmark.page < first || bookmark.page > last) continue;
        bookmark.page -= first;
        part.bookmarks.push_back(bookmark);
    }
    return part;
}

} // namespace platform::Printing
