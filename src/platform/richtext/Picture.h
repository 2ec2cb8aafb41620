#pragma once

#include "platform/base/Numbers.h"

#include <cstdint>
#include <string>

namespace platform::richtext {

enum class PictureKind : std::uint8_t {
    Png,
    Jpeg,
    Bmp, // a whole file: a device independent bitmap with its file header in front
    Emf,
    Wmf,
    Pict // Macintosh
};

/// A picture in the text, encoded as it came. Png, Jpeg and Bmp are shown, the others stand as a box of their
/// size.
struct Picture
{
    PictureKind kind = PictureKind::Png;
    std::string bytes; // encoded, byte for byte; up to maxPictureBytes
    Long width = 0;    // in the picture's own unit: pixels, or 0.01 mm for Emf, Wmf and Pict; 0: unknown
    Long height = 0;
    Long widthGoal = 0; // the size wanted before scaling, twips; 0: the picture's own
    Long heightGoal = 0;
    Long scaleX = 100; // percent
    Long scaleY = 100;
    Long wmfMapMode = 8; // Wmf only: its mapping mode; 8 otherwise

    friend bool operator==(const Picture&, const Picture&) = default;
};

constexpr std::size_t maxPictureBytes = 32u << 20;
constexpr std::int64_t maxPicturePixels = 64'000'000;

} // namespace platform::richtext
