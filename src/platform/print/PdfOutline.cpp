#include "platform/print/PdfOutline.h"

#define POINTERHOLDER_TRANSITION 4 // the library asks which of its pointers are meant: the standard ones
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include <memory>
#include <vector>

namespace platform::print {

namespace {

constexpr Double twipsPerPoint = 20.0;

QPDFObjectHandle Destination(const QPDFObjectHandle& page, const Document& document, const Bookmark& bookmark)
{
    const Double y =
        (document.pages[static_cast<std::size_t>(bookmark.page)].height - bookmark.y) / twipsPerPoint;
    QPDFObjectHandle destination = QPDFObjectHandle::newArray();
    destination.appendItem(page);
    destination.appendItem(QPDFObjectHandle::newName("/XYZ"));
    destination.appendItem(QPDFObjectHandle::newNull());
    destination.appendItem(QPDFObjectHandle::newReal(y, 1));
    destination.appendItem(QPDFObjectHandle::newNull());
    return destination;
}

void AddOutline(QPDF& pdf, const Document& document)
{
    const std::vector<QPDFObjectHandle>& pages = pdf.getAllPages();
    QPDFObjectHandle outline = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
    outline.replaceKey("/Type", QPDFObjectHandle::newName("/Outlines"));
    QPDFObjectHandle last;
    Long count = 0;
    for (const Bookmark& bookmark : document.bookmarks) {
        const auto page = static_cast<std::size_t>(bookmark.page);
        if (page >= pages.size()) continue;
        QPDFObjectHandle item = pdf.makeIndirectObject(QPDFObjectHandle::newDictionary());
        item.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(bookmark.title));
        item.replaceKey("/Parent", outline);
        item.replaceKey("/Dest", Destination(pages[page], document, bookmark));
        if (count > 0) {
            item.replaceKey("/Prev", last);
            last.replaceKey("/Next", item);
        } else {
            outline.replaceKey("/First", item);
        }
        last = item;
        ++count;
    }
    if (count == 0) return;
    outline.replaceKey("/Last", last);
    outline.replaceKey("/Count", QPDFObjectHandle::newInteger(count));
    pdf.getRoot().replaceKey("/Outlines", outline);
    pdf.getRoot().replaceKey("/PageMode", QPDFObjectHandle::newName("/UseOutlines"));
}

/// The title and the date stay.
void ForgetMaker(QPDF& pdf)
{
    QPDFObjectHandle info = pdf.getTrailer().getKey("/Info");
    if (!info.isDictionary()) return;
    for (const char* key : {"/Creator", "/Producer", "/Author"})
        info.removeKey(key);
}

} // namespace

std::string WithOutline(const std::string& pdf, const Document& document)
{
    QPDF read;
    read.processMemoryFile("report", pdf.data(), pdf.size());
    AddOutline(read, document);
    ForgetMaker(read);
    QPDFWriter writer(read);
    writer.setOutputMemory();
    writer.setDeterministicID(true);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

} // namespace platform::print
