#include "platform/widgets/Printing.h"

#include "platform/base/Desktop.h"
#include "platform/base/Files.h"
#include "platform/print/Document.h"
#include "platform/print/Fonts.h"
#include "platform/print/PagePainter.h"
#include "platform/print/PdfFile.h"
#include "platform/print/PrintError.h"
#include "platform/widgets/PrintService.h"

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

std::unique_ptr<QPrinter> g_printer;
bool g_isSetUp = false; // else it is the desktop's own
QString g_lastFile;     // that was printed to

bool IsFile(const QPrinter& printer) { return printer.outputFormat() == QPrinter::PdfFormat; }

/// The desktop's own printer on its own paper: the toolkit would begin with A4 on every printer that has it.
std::unique_ptr<QPrinter> MakePrinter()
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    const QPageSize own = QPrinterInfo(*printer).defaultPageSize();
    if (printer->printerName().isEmpty()) printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setPageSize(own.isValid() ? own : QPageSize(QPageSize::Letter));
    return printer;
}

void Take(std::unique_ptr<QPrinter> printer)
{
    static const bool ends = [] {
        qAddPostRoutine([] { g_printer.reset(); }); // a printer may not outlive the application
        return true;
    }();
    static_cast<void>(ends);
    g_printer = std::move(printer);
}

QPrinter& ThePrinter()
{
    if (g_printer == nullptr) Take(MakePrinter());
    return *g_printer;
}

/// Another printer in the same state: a dialog changes it while it stands.
std::unique_ptr<QPrinter> CopyOf(const QPrinter& printer)
{
    auto copy = MakePrinter();
    if (!printer.printerName().isEmpty()) copy->setPrinterName(printer.printerName());
    copy->setOutputFormat(printer.outputFormat());
    if (IsFile(printer) && !g_lastFile.isEmpty()) copy->setOutputFileName(g_lastFile);
    copy->setPageLayout(printer.pageLayout());
    copy->setCopyCount(printer.copyCount());
    copy->setCollateCopies(printer.collateCopies());
    copy->setColorMode(printer.colorMode());
    copy->setDuplex(printer.duplex());
    copy->setPaperSource(printer.paperSource());
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
    const bool isWide = points.width() > points.height();
    printer.setPageOrientation(isWide ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setPageSize(
        QPageSize(isWide ? points.transposed() : points, QPageSize::Point, {}, QPageSize::FuzzyMatch));
}

/// A printer's paper stays as it was set up, whatever is printed meanwhile.
class KeptLayout
{
public:
    explicit KeptLayout(QPrinter& printer) : m_printer(printer), m_layout(printer.pageLayout()) {}
    KeptLayout(const KeptLayout&) = delete;
    KeptLayout& operator=(const KeptLayout&) = delete;
    ~KeptLayout() { m_printer.setPageLayout(m_layout); }

private:
    QPrinter& m_printer;
    QPageLayout m_layout;
};

bool IsPage(const print::Document& document, Long first, Long last)
{
    return first >= 0 && first <= last && last < static_cast<Long>(document.pages.size());
}

/// The file that was printed to last, at first one named after the document.
QString FileNameFor(const print::Document& document)
{
    if (!g_lastFile.isEmpty()) return g_lastFile;
    QString name = print::FromUtf8(document.title);
    return name.replace(QLatin1Char('/'), QLatin1Char('-')) + QLatin1String(".pdf");
}

void PrintToFile(const print::Document& document, Long first, Long last, const std::string& dataFile)
{
    FileRequest request;
    request.kind = FileRequest::Kind::Save;
    // Where there is a printer, the setup asked for a file.
    const bool noPrinter = QPrinterInfo::availablePrinterNames().isEmpty();
    request.title = noPrinter ? "No Printer: Print to PDF File" : "Print to PDF File";
    request.extension = "pdf";
    request.fileName = FileNameFor(document).toStdString();
    request.filter = "PDF files (*.pdf)|*.pdf|All Files (*.*)|*.*";
    request.asksBeforeReplacing = true;
    const std::optional<std::string> path = TheDesktop().AskFile(request);
    if (!path) return;
    if (IsSameFile(*path, dataFile)) throw print::PrintError::OverOpenFile(*path);
    print::WritePdf(PagesOf(document, first, last), *path);
    g_lastFile = QString::fromStdString(*path);
}

} // namespace

Paper PaperInUse()
{
    if (!g_isSetUp) Take(MakePrinter()); // printers come and go
    return PaperOf(ThePrinter());
}

void UseDesktopsPrinter()
{
    g_isSetUp = false;
    g_lastFile.clear();
    g_printer.reset();
}

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
    if (dialog.exec() != QDialog::Accepted) return;
    if (IsFile(*printer)) g_lastFile = printer->outputFileName();
    Take(std::move(printer));
    g_isSetUp = true;
}

void Print(const print::Document& document, Long first, Long last, const std::string& dataFile)
{
    if (!IsPage(document, first, last)) return;
    if (IsFile(ThePrinter())) return PrintToFile(document, first, last, dataFile);
    const KeptLayout kept(ThePrinter());
    DrawOn(ThePrinter(), document, first, last);
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
    works = works && painter.end();
    const std::string cause = IsFile(printer) ? std::string() : PrintService::CauseOfRefusal();
    if (works && cause.empty()) return;
    throw print::PrintError::Refused(printer.printerName().toStdString(),
                                     cause.empty() ? "it takes no pages" : cause);
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
