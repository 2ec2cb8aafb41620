// The print control against the toolkit's own text document:
//   floor WORDS OUT.pdf   the floor, a process of its own: the words of a file through a QTextDocument and a
//   QPrinter growth                in one process: what 1,000 pages cost against 10, laid out and written as
//   PDF and RTF

#include "platform/print/PdfFile.h"
#include "platform/print/PrintControl.h"
#include "platform/print/RtfExport.h"

#include <QApplication>
#include <QFile>
#include <QPrinter>
#include <QTextDocument>

#include <chrono>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>

using namespace platform::print;

namespace {

constexpr double kAllowedGrowth = 110.0;

int Floor(const QString& words, const QString& out)
{
    QFile file(words);
    if (!file.open(QIODevice::ReadOnly)) return 1;
    QTextDocument document(QString::fromUtf8(file.readAll()));
    document.setDefaultFont(QFont(QStringLiteral("Arial"), 10));
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::Letter));
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(out);
    document.print(&printer);
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

double Milliseconds(const std::function<void()>& job)
{
    const auto start = std::chrono::steady_clock::now();
    job();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

struct Cost
{
    std::size_t pages = 0;
    double pdf = 0;
    double rtf = 0;
};

Cost CostOf(int pages, const std::string& folder)
{
    PrintControl printer;
    Cost cost;
    const double layout = Milliseconds([&] { Write(printer, pages); });
    cost.pages = printer.Pages().pages.size();
    cost.pdf = layout + Milliseconds([&] { WritePdf(printer.Pages(), folder + "/bench.pdf"); });
    cost.rtf = layout + Milliseconds([&] { WriteRtfFile(printer.Pages(), folder + "/bench.rtf"); });
    return cost;
}

int Growth()
{
    const std::string folder = std::filesystem::temp_directory_path() / "vexa-report-bench";
    std::filesystem::create_directories(folder);
    CostOf(10, folder); // fonts are loaded
    const Cost few = CostOf(10, folder);
    const Cost many = CostOf(1000, folder);
    std::filesystem::remove_all(folder);
    std::cout << few.pages << " pages: pdf " << few.pdf << " ms, rtf " << few.rtf << " ms\n"
              << many.pages << " pages: pdf " << many.pdf << " ms, rtf " << many.rtf << " ms\n"
              << "pages grow by " << double(many.pages) / double(few.pages) << ", pdf by "
              << many.pdf / few.pdf << ", rtf by " << many.rtf / few.rtf << " (at most " << kAllowedGrowth
              << ")\n";
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const std::string_view job = argc > 1 ? argv[1] : "";
    if (job == "floor" && argc == 4)
        return Floor(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    if (job == "growth") return Growth();
    std::cerr << "report_bench floor WORDS OUT.pdf | growth\n";
    return 2;
}
