// The rich text engine on a narrative of five megabytes, one job a process so that whole processes can be
// compared:
//   make FILE       writes the narrative
//   text FILE       its plain text on standard output
//   document FILE   reads it into a document that an editor can show
//   write FILE      in one process: what writing costs against reading, as a ratio

#include "Measure.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"
#include "platform/widgets/RichTextBridge.h"

#include <QGuiApplication>
#include <QPalette>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace richtext = platform::richtext;

namespace {

constexpr int kParagraphs = 30000;
constexpr int kRuns = 9;

/// Paragraphs of a sentence or two with a bold word each, every tenth of them a list item.
std::string Narrative()
{
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"
        "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}\\plain\\f0\\fs20 ";
    for (int paragraph = 0; paragraph < kParagraphs; ++paragraph) {
        rtf += paragraph % 10 == 9 ? "\\pard {\\pntext\\tab}{\\*\\pn\\pnlvlblt}\\fi-360\\li360 " : "\\pard ";
        rtf += "Day " + std::to_string(paragraph) +
               ": the crew held the \\b ridge road\\b0  through the night. Winds stayed light from the west "
               "and the line along the creek was tied in.\\par\n";
    }
    return rtf + "}";
}

std::string Contents(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int Make(const char* path)
{
    std::ofstream file(path, std::ios::binary);
    file << Narrative();
    return file.flush() ? 0 : 1;
}

int Text(const char* path)
{
    std::cout << richtext::RtfToPlainText(Contents(path), richtext::Source::Bytes);
    return std::cout.flush() ? 0 : 1;
}

int Document(const char* path)
{
    platform::RichTextDocument document(
        std::make_shared<platform::RichTextPool>(), platform::RichTextFormats::ColorsOf(QPalette()), nullptr);
    document.setUndoRedoEnabled(false);
    platform::RichTextBridge::Fill(document, richtext::ReadRtf(Contents(path), richtext::Source::Bytes));
    return document.blockCount() >= kParagraphs ? 0 : 1;
}

int Write(const char* path)
{
    const std::string rtf = Contents(path);
    std::vector<double> reads;
    std::vector<double> writes;
    for (int run = 0; run < kRuns; ++run) {
        richtext::RichDocument document;
        reads.push_back(bench::Milliseconds([&] { document = richtext::ReadRtf(rtf); }));
        writes.push_back(bench::Milliseconds([&] {
            if (richtext::WriteRtf(document).empty()) throw std::logic_error("nothing was written");
        }));
    }
    bench::PrintMedians("rtf of 5 MB: writing / reading", writes, reads, 1.0);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view job = argc == 3 ? argv[1] : "";
    if (job == "make") return Make(argv[2]);
    if (job == "text") return Text(argv[2]);
    if (job == "write") return Write(argv[2]);
    if (job != "document") {
        std::cerr << "richtext_bench make|text|document|write FILE\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return Document(argv[2]);
}
