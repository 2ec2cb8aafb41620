#include "platform/widgets/RichTextPictures.h"

#include "platform/widgets/RichTextFormats.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <algorithm>

namespace platform::RichTextPictures {

namespace {

using richtext::Picture;
using richtext::PictureKind;

constexpr int kLargestShown = 2400;     // dots on the longer side, more than a sheet has on any screen
constexpr int kDecodingMegabytes = 320; // room for the largest picture that is taken
constexpr double kTwipsPerMeter = 1440 / 0.0254;
constexpr Long kTwipsPerDot = 15; // where the picture does not say
constexpr Long kUnknownSide = 1440;

bool TooLarge(const QSize& size)
{
    return std::int64_t(size.width()) * std::int64_t(size.height()) > richtext::maxPicturePixels;
}

const char* FormatName(PictureKind kind)
{
    switch (kind) {
    case PictureKind::Png: return "png";
    case PictureKind::Jpeg: return "jpeg";
    case PictureKind::Bmp: return "bmp";
    default: return nullptr;
    }
}

/// The picture, scaled down where a screen needs less; null when it is damaged.
QImage Read(QIODevice& device, const char* format)
{
    QImageReader::setAllocationLimit(kDecodingMegabytes);
    QImageReader reader(&device, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (!size.isValid() || TooLarge(size)) return {};
    if (std::max(size.width(), size.height()) > kLargestShown) {
        reader.setScaledSize(size.scaled(kLargestShown, kLargestShown, Qt::KeepAspectRatio));
    }
    return reader.read();
}

const char* KindOf(const QByteArray& bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1a\n")) return "png";
    if (bytes.startsWith("\xff\xd8\xff")) return "jpeg";
    return nullptr;
}

Long Goal(int dots, int dotsPerMeter)
{
    const double twips =
        dotsPerMeter > 0 ? dots * kTwipsPerMeter / dotsPerMeter : dots * double(kTwipsPerDot);
    return std::clamp(ToLong(std::min(twips, 1e6)), 1, 0x7FFF);
}

Long Side(Long goal, Long scale, Long ownTwips)
{
    const Long twips = goal > 0 ? goal : ownTwips > 0 ? ownTwips : kUnknownSide;
    return std::max(1, ToLong(double(twips) * std::max(1, scale) / 100.0));
}

/// A side in the picture's own unit as twips.
Long OwnTwips(const Picture& picture, Long side)
{
    if (FormatName(picture.kind) != nullptr) return ToLong(std::min(double(side) * kTwipsPerDot, 1e6));
    return ToLong(std::min(side * 1440 / 2540.0, 1e6)); // hundredths of a millimetre
}

} // namespace

std::shared_ptr<const Picture> Taken(const QByteArray& bytes, Long widest)
{
    const char* kind = KindOf(bytes);
    if (kind == nullptr || std::size_t(bytes.size()) > richtext::maxPictureBytes) return nullptr;
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    const QSize size = QImageReader(&buffer, kind).size();
    buffer.seek(0);
    const QImage image = Read(buffer, kind);
    if (image.isNull()) return nullptr;
    auto picture = std::make_shared<Picture>();
    picture->kind = *kind == 'p' ? PictureKind::Png : PictureKind::Jpeg;
    picture->bytes = bytes.toStdString();
    picture->width = size.width();
    picture->height = size.height();
    const bool scaled = image.size() != size;
    picture->widthGoal = Goal(size.width(), scaled ? 0 : image.dotsPerMeterX());
    picture->heightGoal = Goal(size.height(), scaled ? 0 : image.dotsPerMeterY());
    if (picture->widthGoal > widest) {
        picture->heightGoal = std::max(1, ToLong(double(picture->heightGoal) * widest / picture->widthGoal));
        picture->widthGoal = widest;
    }
    return picture;
}

std::shared_ptr<const Picture> Taken(const QImage& image, Long widest)
{
    if (image.isNull() || TooLarge(image.size())) return nullptr;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) return nullptr;
    return Taken(bytes, widest);
}

QImage Decoded(const Picture& picture)
{
    const char* format = FormatName(picture.kind);
    if (format == nullptr) return {};
    QBuffer buffer;
    buffer.setData(picture.bytes.data(), static_cast<int>(picture.bytes.size()));
    buffer.open(QIODevice::ReadOnly);
    return Read(buffer, format);
}

QImage Box()
{
    QImage box(64, 64, QImage::Format_ARGB32_Premultiplied);
    box.fill(QColor(0x80, 0x80, 0x80, 0x40));
    QPainter painter(&box);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.drawRect(0, 0, 63, 63);
    painter.drawLine(0, 0, 63, 63);
    painter.drawLine(0, 63, 63, 0);
    return box;
}

QSizeF ShownSize(const Picture& picture)
{
    const Long width = Side(picture.widthGoal, picture.scaleX, OwnTwips(picture, picture.width));
    const Long height = Side(picture.heightGoal, picture.scaleY, OwnTwips(picture, picture.height));
    return {RichTextFormats::Pixels(width), RichTextFormats::Pixels(height)};
}

} // namespace platform::RichTextPictures
