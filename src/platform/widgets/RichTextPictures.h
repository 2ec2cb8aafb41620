#pragma once

#include "platform/richtext/Picture.h"

#include <QByteArray>
#include <QImage>
#include <QSizeF>

#include <memory>

/// Pictures of a text: taken in, sized and decoded. Nothing here opens a file.
namespace platform::RichTextPictures {

/// The picture of these bytes, PNG or JPEG, kept as they are; its size as wanted by itself, made smaller
/// where it is wider than widest (twips). Nothing when they are broken, of another kind or too large.
std::shared_ptr<const richtext::Picture> Taken(const QByteArray& bytes, Long widest);
/// The picture of an image that comes without an encoding of its own; encoded as PNG.
std::shared_ptr<const richtext::Picture> Taken(const QImage& image, Long widest);

/// The sentence for a picture that was not taken.
constexpr const char* kRefused =
    "The picture was not inserted, because it is damaged, larger than 64 million "
    "dots, or neither PNG nor JPEG.";

/// The picture to draw, no larger than a screen needs; null when it cannot be shown.
QImage Decoded(const richtext::Picture& picture);
/// What stands for a picture that cannot be shown.
QImage Box();
/// The size that the picture has in the text, device-independent pixels.
QSizeF ShownSize(const richtext::Picture& picture);

} // namespace platform::RichTextPictures
