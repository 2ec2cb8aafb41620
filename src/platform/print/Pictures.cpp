#include "platform/print/Pictures.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cmath>
#include <string_view>

namespace platform::print {

namespace {

constexpr Double unknown = 1440.0; // of a picture that tells nothing of its size

const char* FormatOf(richtext::PictureKind kind)
{
    switch (kind) {
    case richtext::PictureKind::Png: return "png";
    case richtext::PictureKind::Jpeg: return "jpeg";
    case richtext::PictureKind::Bmp: return "bmp";
    case richtext::PictureKind::Emf:
    case richtext::PictureKind::Wmf:
    case richtext::PictureKind::Pict: break;
    }
    return nullptr;
}

/// The decoders complain aloud of what is none of theirs.
bool BeginsAsItsKind(const richtext::Picture& picture)
{
    switch (picture.kind) {
    case richtext::PictureKind::Png: return picture.bytes.starts_with("\x89PNG\r\n");
    case richtext::PictureKind::Jpeg: return picture.bytes.starts_with("\xFF\xD8");
    default: return picture.bytes.starts_with("BM");
    }
}

/// Of a length in the picture's own unit: pixels at 96 to the inch, or hundredths of a millimetre.
Double OwnLength(const richtext::Picture& picture, Long length)
{
    if (length <= 0) return unknown;
    return FormatOf(picture.kind) != nullptr ? length * 15.0 : length * 1440.0 / 2540.0;
}

Double Wanted(const richtext::Picture& picture, Long goal, Long own, Long scale)
{
    const Double length = goal > 0 ? goal : OwnLength(picture, own);
    return std::max(1.0, length * (scale > 0 ? scale : 100) / 100.0);
}

} // namespace

bool IsSound(const richtext::Picture& picture)
{
    using namespace std::string_view_literals;
    const std::string_view bytes = picture.bytes;
    switch (picture.kind) {
    case richtext::PictureKind::Wmf:
        return bytes.starts_with("\x01\x00\x09\x00"sv) || bytes.starts_with("\x02\x00\x09\x00"sv) ||
               bytes.starts_with("\xD7\xCD\xC6\x9A"sv);
    case richtext::PictureKind::Emf: return bytes.size() > 88 && bytes.substr(40, 4) == " EMF"sv;
    case richtext::PictureKind::Pict: return bytes.size() > 10;
    default: return !Decoded(picture).isNull();
    }
}

PictureSize FittedSize(const richtext::Picture& picture, Double widest, Double tallest)
{
    const Double width = Wanted(picture, picture.widthGoal, picture.width, picture.scaleX);
    const Double height = Wanted(picture, picture.heightGoal, picture.height, picture.scaleY);
    const Double fit = std::min({1.0, std::max(1.0, widest) / width, std::max(1.0, tallest) / height});
    return {std::max(1.0, std::floor(width * fit)), std::max(1.0, std::floor(height * fit))};
}

QImage Decoded(const richtext::Picture& picture)
{
    const char* format = FormatOf(picture.kind);
    if (format == nullptr || !BeginsAsItsKind(picture)) return {};
    QByteArray bytes =
        QByteArray::fromRawData(picture.bytes.data(), static_cast<qsizetype>(picture.bytes.size()));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    if (static_cast<std::int64_t>(size.width()) * size.height() > richtext::maxPicturePixels) return {};
    return reader.read();
}

} // namespace platform::print
