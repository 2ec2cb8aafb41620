#include "platform/richtext/ReaderPicture.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

namespace platform::richtext::reader {

namespace {

constexpr std::array<signed char, 256> MakeDigits()
{
    std::array<signed char, 256> digits{};
    digits.fill(-1);
    for (int value = 0; value < 10; ++value)
        digits[static_cast<std::size_t>('0' + value)] = static_cast<signed char>(value);
    for (int value = 10; value < 16; ++value) {
        digits[static_cast<std::size_t>('a' + value - 10)] = static_cast<signed char>(value);
        digits[static_cast<std::size_t>('A' + value - 10)] = static_cast<signed char>(value);
    }
    return digits;
}

constexpr std::array<signed char, 256> hexDigits = MakeDigits();

std::int64_t ByteAt(std::string_view bytes, std::size_t at) { return static_cast<unsigned char>(bytes[at]); }

std::int64_t BigEndian(std::string_view bytes, std::size_t at, std::size_t count)
{
    std::int64_t value = 0;
    for (std::size_t place = 0; place < count; ++place)
        value = value << 8 | ByteAt(bytes, at + place);
    return value;
}

std::int64_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count)
{
    std::int64_t value = 0;
    for (std::size_t place = count; place > 0; --place)
        value = value << 8 | ByteAt(bytes, at + place - 1);
    return value;
}

std::int64_t PngPixels(std::string_view bytes)
{
    constexpr std::size_t sizes = 16; // behind the signature and the head of the first chunk
    if (bytes.size() < sizes + 8) return 0;
    const std::int64_t width = BigEndian(bytes, sizes, 4);
    const std::int64_t height = BigEndian(bytes, sizes + 4, 4);
    return height != 0 && width > std::numeric_limits<std::int64_t>::max() / height ? maxPicturePixels + 1
                                                                                    : width * height;
}

bool IsFrame(std::int64_t marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

std::int64_t JpegPixels(std::string_view bytes)
{
    std::size_t at = 2;
    while (at + 9 <= bytes.size() && ByteAt(bytes, at) == 0xFF) {
        const std::int64_t marker = ByteAt(bytes, at + 1);
        if (IsFrame(marker)) return BigEndian(bytes, at + 5, 2) * BigEndian(bytes, at + 7, 2);
        at += marker == 0xFF ? 1 : 2 + static_cast<std::size_t>(BigEndian(bytes, at + 2, 2));
    }
    return 0;
}

constexpr std::size_t bitmapFileHeader = 14;

std::int64_t BitmapPixels(std::string_view bytes)
{
    if (bytes.size() < bitmapFileHeader + 16) return 0;
    const bool isOld = LittleEndian(bytes, bitmapFileHeader, 4) == 12; // a header with 16-bit sizes
    const std::size_t part = isOld ? 2 : 4;
    const std::int64_t width = LittleEndian(bytes, bitmapFileHeader + 4, part);
    const std::int64_t height = LittleEndian(bytes, bitmapFileHeader + 4 + part, part);
    const auto rows =
        isOld ? height : std::abs(std::int64_t{static_cast<std::int32_t>(height)}); // below 0: top down
    return static_cast<std::int64_t>(width) * rows;
}

void AppendLittleEndian(std::string& bytes, std::uint32_t value, int count)
{
    for (int place = 0; place < count; ++place)
        bytes += static_cast<char>(static_cast<unsigned char>(value >> 8 * place));
}

/// How many bytes of colours stand between a bitmap's header and its pixels.
std::size_t PaletteBytes(std::string_view bitmap, std::size_t headerBytes)
{
    if (headerBytes == 12) {
        const std::int64_t depth = LittleEndian(bitmap, 10, 2);
        return depth <= 8 ? std::size_t{3} << depth : 0;
    }
    if (bitmap.size() < 40) return 0;
    const std::int64_t depth = LittleEndian(bitmap, 14, 2);
    const auto colors = static_cast<std::size_t>(LittleEndian(bitmap, 32, 4));
    const bool hasMasks = headerBytes == 40 && LittleEndian(bitmap, 16, 4) == 3;
    const std::size_t all = depth <= 8 && colors == 0 ? std::size_t{1} << depth : colors;
    return all * 4 + (hasMasks ? 12 : 0);
}

/// A bitmap as RTF carries it, made a whole file. Empty when it is too short to be one.
std::string BitmapFile(std::string_view bitmap)
{
    if (bitmap.size() < 16) return {};
    const auto header = static_cast<std::size_t>(LittleEndian(bitmap, 0, 4));
    const std::size_t pixels = bitmapFileHeader + header + PaletteBytes(bitmap, header);
    std::string file = "BM";
    AppendLittleEndian(file, static_cast<std::uint32_t>(bitmapFileHeader + bitmap.size()), 4);
    AppendLittleEndian(file, 0, 4);
    AppendLittleEndian(file, static_cast<std::uint32_t>(pixels), 4);
    return file.append(bitmap);
}

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1A\n";
constexpr std::string_view jpegSignature = "\xFF\xD8\xFF";

} // namespace

std::int64_t PixelsOf(PictureKind kind, std::string_view bytes)
{
    switch (kind) {
    case PictureKind::Png: return PngPixels(bytes);
    case PictureKind::Jpeg: return JpegPixels(bytes);
    case PictureKind::Bmp: return BitmapPixels(bytes);
    default: return 0;
    }
}

void PictureReader::SetKind(PictureKind kind)
{
    m_picture.kind = kind;
    m_hasKind = true;
}

void PictureReader::AddHex(std::string_view digits)
{
    std::string& bytes = m_picture.bytes;
    for (const char sign : digits) {
        const int digit = hexDigits[static_cast<unsigned char>(sign)];
        if (digit < 0) continue;
        if (m_half < 0) {
            m_half = digit;
            continue;
        }
        if (bytes.size() > maxPictureBytes) return Refuse();
        bytes += static_cast<char>(static_cast<unsigned char>(m_half << 4 | digit));
        m_half = -1;
    }
}

void PictureReader::AddBytes(std::string_view bytes)
{
    if (m_picture.bytes.size() + bytes.size() > maxPictureBytes) return Refuse();
    m_picture.bytes += bytes;
}

std::shared_ptr<const Picture> PictureReader::Finish()
{
    std::string& bytes = m_picture.bytes;
    if (m_refused || bytes.empty()) return nullptr;
    if (bytes.starts_with(pngSignature)) SetKind(PictureKind::Png);
    if (bytes.starts_with(jpegSignature)) SetKind(PictureKind::Jpeg);
    if (m_picture.kind == PictureKind::Bmp) bytes = BitmapFile(bytes);
    const bool fits = bytes.size() <= maxPictureBytes && PixelsOf(m_picture.kind, bytes) <= maxPicturePixels;
    if (!m_hasKind || bytes.empty() || !fits) return nullptr;
    if (m_picture.kind != PictureKind::Wmf) m_picture.wmfMapMode = Picture().wmfMapMode;
    return std::make_shared<const Picture>(std::move(m_picture));
}

} // namespace platform::richtext::reader
