#pragma once

#include "platform/richtext/Picture.h"

#include <memory>
#include <string_view>

namespace platform::richtext::reader {

/// A \pict group as it is read.
class PictureReader
{
public:
    /// Starts anew.
    void Begin() { *this = PictureReader(); }
    /// Sizes and scales are written straight to it.
    Picture& Properties() { return m_picture; }
    void SetKind(PictureKind kind);
    /// A kind that cannot be kept.
    void Refuse() { m_refused = true; }
    /// Adds pairs of hexadecimal digits; anything else between them is passed over.
    void AddHex(std::string_view digits);
    void AddBytes(std::string_view bytes);
    /// The picture; nothing when it has no bytes, is larger than the bounds or of no kind known.
    std::shared_ptr<const Picture> Finish();

private:
    Picture m_picture;
    bool m_hasKind = false;
    bool m_refused = false;
    int m_half = -1; // the first digit of a pair; -1: none
};

/// The pixels that a picture says it has, width times height; 0 where its beginning does not tell.
std::int64_t PixelsOf(PictureKind kind, std::string_view bytes);

} // namespace platform::richtext::reader
