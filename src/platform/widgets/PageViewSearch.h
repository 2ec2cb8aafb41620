#pragma once

#include <QRectF>
#include <QString>

#include <vector>

namespace platform {

namespace print {
struct Document;
} // namespace print

/// A place of words on a page.
struct PageHit
{
    int page = 0;              // from 0
    std::vector<QRectF> marks; // twips; one for each stretch of text that the words touch
};

/// The places of words in a document, page by page, in the order in which they were written, whatever their
/// case. A blank stands for every gap between words, line ends too. Nothing for words of blanks alone.
std::vector<PageHit> FindInPages(const print::Document& document, const QString& words);

} // namespace platform
