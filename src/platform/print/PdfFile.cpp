#include "platform/print/PdfFile.h"

#include "platform/print/Fonts.h"
#include "platform/print/PagePainter.h"
#include "platform/print/PdfOutline.h"
#include "platform/print/PrintError.h"
#include "platform/print/SavedFile.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace platform::print {

namespace {

constexpr int dotsPerInch = 1440; // a twip is a dot: nothing is rounded

void SetPaper(QPdfWriter& writer, Double width, Double height)
{
    writer.setPageSize(QPageSize(QSizeF(width / 20.0, height / 20.0), QPageSize::Point));
    writer.setPageMargins(QMarginsF());
}

void DrawPages(QPdfWriter& writer, const Document& document, const PageProgress& progress)
{
    PagePainter pages(document);
    QPainter painter(&writer);
    for (const Page& page : document.pages) {
        if (page.number > 1) writer.newPage();
        pages.DrawPage(painter, page);
        if (progress && !progress(page.number)) throw PrintCancelled();
    }
}

std::string PdfOf(const Document& document, const PageProgress& progress)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(FromUtf8(document.title));
    writer.setResolution(dotsPerInch);
    SetPaper(writer, document.pageWidth, document.pageHeight);
    DrawPages(writer, document, progress);
    return WithOutline(bytes.toStdString(), document);
}

} // namespace

void WritePdf(const Document& document, const std::string& path, const PageProgress& progress)
{
    SavedFile file(path); // a place that cannot be written is told before the work
    const std::string pdf = PdfOf(document, progress);
    file.Write(pdf);
    file.Commit();
}

} // namespace platform::print
