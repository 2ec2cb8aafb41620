#pragma once

#include "platform/base/Numbers.h"
#include "platform/richtext/Picture.h"

#include <QImage>

namespace platform::print {

struct PictureSize
{
    Double width = 0.0, height = 0.0; // twips
};

/// The size that a picture wants: what it was told, else its own, scaled; made smaller to fit, never larger.
PictureSize FittedSize(const richtext::Picture& picture, Double widest, Double tallest);

/// Whether other programs can be expected to read it: it decodes, or a drawing begins as its kind does.
bool IsSound(const richtext::Picture& picture);

/// The decoded picture; a null one where it is of no kind that is shown, damaged or too large.
QImage Decoded(const richtext::Picture& picture);

} // namespace platform::print
