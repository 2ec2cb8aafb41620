#include "platform/print/PngPages.h"

#include "platform/print/PagePainter.h"
#include "platform/print/PrintError.h"
#include "platform/print/SavedFile.h"

#include <QBuffer>
#include <QFile>
#include <QImageWriter>

namespace platform::print {

namespace {

std::string PathOf(const std::string& folder, std::size_t number, std::size_t count)
{
    std::string digits = std::to_string(number);
    const std::size_t wanted = std::to_string(count).size();
    digits.insert(0, wanted - digits.size(), '0');
    return folder + "/page-" + digits + ".png";
}

void WriteImage(const QImage& image, const std::string& path)
{
    SavedFile file(path);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "png");
    if (!writer.write(image)) throw PrintError(path, writer.errorString().toStdString());
    file.Write(buffer.data().toStdString());
    file.Commit();
}

void TakeBack(const std::vector<std::string>& paths)
{
    for (const std::string& path : paths)
        QFile::remove(QFile::decodeName(QByteArray::fromStdString(path)));
}

} // namespace

std::vector<std::string> WritePng(const Document& document,
                                  const std::string& folder,
                                  Double dotsPerInch,
                                  const PageProgress& progress)
{
    std::vector<std::string> paths;
    PagePainter painter(document);
    try {
        for (const Page& page : document.pages) {
            const std::string path = PathOf(folder, paths.size() + 1, document.pages.size());
            WriteImage(PageImage(painter, page, dotsPerInch), path);
            paths.push_back(path);
            if (progress && !progress(page.number)) throw PrintCancelled();
        }
    } catch (...) {
        TakeBack(paths);
        throw;
    }
    return paths;
}

} // namespace platform::print
