// The print control against the toolkit's own text document. "floor WORDS OUT.pdf" is the floor, a process of
// its own: a file's words through a QTextDocument and a QPdfWriter. "growth", in one process, is what 1,000
// pages cost against 10, laid out and written as PDF and RTF.

#include "Measure.h"
#include "platform/print/PdfFile.h"
#include "platform/print/PrintControl.h"
#include "platform/print/RtfExport.h"

#include <QFile>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTextDocument>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>

using namespace platform::print;

namespace {

/// A hundred times the pages.
constexpr double kAllowedGrowth = 110.0;

int Floor(const QString& words, const QString& out)
{
    QFile file(words);
    if (!file.open(QIODevice::ReadOnly)) return 1;
    QTextDocument document(QString::fromUtf8(file.readAll()));
    document.setDefaultFont(QFont(QStringLiteral("Arial"), 10));
    QPdfWriter pdf(out);
    pdf.setPageSize(QPageSize(QPageSize::Letter));
    document.print(&pdf);
    return QFile::exists(out) ? 0 : 1;
}

std::string Body()
{
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
        "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 \\pard ";
    for (int sentence = 0; sentence < 5; ++sentence)
        rtf +=
            "The fire burns in mixed conifer above the river, and \\b spotting\\b0  was seen a quarter mile "
            "ahead of it in the afternoon. ";
    return rtf + "\\par }";
}

/// About this many pages: a row of a table and a paragraph, time and again.
void Write(PrintControl& printer, int pages)
{
    constexpr int kPiecesOnAPage = 9;
    const std::string body = Body();
    printer.StartDoc();
    for (int piece = 0; piece < pages * kPiecesOnAPage; ++piece) {
        printer.Table("7800|>2100|^800;",
                      {{Plain("Item " + std::to_string(piece)), Plain("9"), Plain("0.50")}});
        printer.Paragraph(PrintText().Body(body));
        printer.Paragraph("");
    }
    printer.EndDoc();
}

/// Of the processor: growth is told of nothing else.
double Milliseconds(const std::function<void()>& job)
{
    const std::clock_t start = std::clock();
    job();
    return 1000.0 * double(std::clock() - start) / CLOCKS_PER_SEC;
}

struct Cost
{
    double pdf = 0;
    double rtf = 0;
};

Cost CostOf(int pages, const std::string& folder)
{
    PrintControl printer;
    Cost cost;
    const double layout = Milliseconds([&] { Write(printer, pages); });
    cost.pdf = layout + Milliseconds([&] { WritePdf(printer.Pages(), folder + "/bench.pdf"); });
    cost.rtf = layout + Milliseconds([&] { WriteRtfFile(printer.Pages(), folder + "/bench.rtf"); });
    return cost;
}

/// Of one document, where so many are written in turn.
Cost MeanCost(int documents, int pages, const std::string& folder)
{
    Cost mean;
    for (int document = 0; document < documents; ++document) {
        const Cost cost = CostOf(pages, folder);
        mean.pdf += cost.pdf / documents;
        mean.rtf += cost.rtf / documents;
    }
    return mean;
}

Cost Least(const Cost& one, const Cost& other)
{
    return {std::min(one.pdf, other.pdf), std::min(one.rtf, other.rtf)};
}

/// What a hundred times the pages cost; by turns, and the least of them: what else the machine does only adds
/// to it.
int Growth()
{
    constexpr int kTurns = 5, kFewPages = 10, kManyPages = 1000, kFewDocuments = 10;
    const std::string folder = std::filesystem::temp_directory_path() / "vexa-report-bench";
    std::filesystem::create_directories(folder);
    CostOf(kFewPages, folder); // fonts are loaded
    Cost few{1e9, 1e9}, many{1e9, 1e9};
    for (int turn = 0; turn < kTurns; ++turn) {
        few = Least(few, MeanCost(kFewDocuments, kFewPages, folder));
        many = Least(many, MeanCost(1, kManyPages, folder));
    }
    std::filesystem::remove_all(folder);
    bench::PrintRow("report to pdf, 1000 pages / 10 pages", many.pdf, few.pdf, kAllowedGrowth);
    bench::PrintRow("report to rtf, 1000 pages / 10 pages", many.rtf, few.rtf, kAllowedGrowth);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const std::string_view job = argc > 1 ? argv[1] : "";
    if (job == "floor" && argc == 4)
        return Floor(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    if (job == "growth") return Growth();
    std::cerr << "report_bench floor WORDS OUT.pdf | growth\n";
    return 2;
}
