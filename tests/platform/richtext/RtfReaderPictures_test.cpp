#include "platform/richtext/DocumentInvariants.h"
#include "platform/richtext/RtfReader.h"

#include <gtest/gtest.h>

#include <string>

using namespace platform::richtext;

namespace {

RichDocument Read(const std::string& inner)
{
    RichDocument document = ReadRtf("{\\rtf1\\ansi " + inner + "}");
    EXPECT_EQ(rich::BrokenPromise(document), "");
    return document;
}

/// The first picture of a text; nothing if it has none.
std::shared_ptr<const Picture> FirstPicture(const std::string& inner)
{
    const RichDocument document = Read(inner);
    for (const Run& run : document.blocks.at(0).AsParagraph()->runs) {
        if (run.picture != nullptr) return run.picture;
    }
    return nullptr;
}

std::string Hex(const std::string& bytes)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string hex;
    for (const char byte : bytes) {
        hex += digits[static_cast<unsigned char>(byte) >> 4];
        hex += digits[static_cast<unsigned char>(byte) & 15];
    }
    return hex;
}

std::string BigEndian(std::uint32_t value)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(static_cast<unsigned char>(value >> shift));
    return bytes;
}

/// The beginning of a PNG file of a size.
std::string Png(std::uint32_t width, std::uint32_t height)
{
    return std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16) + BigEndian(width) + BigEndian(height) + "rest";
}

} // namespace

TEST(RtfReaderPictures, PngAndSizes_ComeThroughByteForByte)
{
    const std::string bytes = Png(16, 8);
    Picture expected;
    expected.kind = PictureKind::Png;
    expected.bytes = bytes;
    expected.width = 16;
    expected.height = 8;
    expected.widthGoal = 240;
    expected.heightGoal = 120;
    expected.scaleX = 50;
    expected.scaleY = 75;
    const auto picture =
        FirstPicture("{\\pict\\pngblip\\picw16\\pich8\\picwgoal240\\pichgoal120\\picscalex50\\picscaley75 " +
                     Hex(bytes).insert(7, "\r\n ") + "}");
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(*picture, expected);
}

TEST(RtfReaderPictures, BinaryBytes_MayLookLikeBraces)
{
    const std::string bytes = Png(1, 1) + "}{\\par";
    const auto picture =
        FirstPicture("{\\pict\\pngblip\\bin" + std::to_string(bytes.size()) + " " + bytes + "}");
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->bytes, bytes);
}

TEST(RtfReaderPictures, OfAPairOfPictures_TheFirstIsTaken)
{
    const std::string first = "{\\*\\shppict{\\pict\\pngblip " + Hex(Png(1, 1)) + "}}";
    const std::string second = "{\\nonshppict{\\pict\\wmetafile8 0102}}";
    const RichDocument both = Read("a" + first + second + "b");
    ASSERT_EQ(both.blocks[0].AsParagraph()->runs.size(), 3u);
    EXPECT_EQ(FirstPicture(first + second)->kind, PictureKind::Png);
    EXPECT_EQ(FirstPicture(second)->kind, PictureKind::Wmf);
}

TEST(RtfReaderPictures, OtherKinds_AreKeptAsBytes)
{
    EXPECT_EQ(FirstPicture("{\\pict\\emfblip 0102}")->kind, PictureKind::Emf);
    EXPECT_EQ(FirstPicture("{\\pict\\macpict 0102}")->kind, PictureKind::Pict);
    const auto wmf = FirstPicture("{\\pict\\wmetafile5 0102}");
    EXPECT_EQ(wmf->wmfMapMode, 5);
    EXPECT_EQ(wmf->bytes, "\x01\x02");
}

TEST(RtfReaderPictures, Bitmap_BecomesAFile)
{
    const std::string header =
        std::string("\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x08\0", 16) + std::string(24, '\0');
    const auto picture =
        FirstPicture("{\\pict\\dibitmap0 " + Hex(header + std::string(1024 + 4, '\0')) + "}");
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->kind, PictureKind::Bmp);
    EXPECT_EQ(picture->bytes.size(), 14u + 40 + 1024 + 4);
    EXPECT_EQ(picture->bytes.substr(0, 2), "BM");
    EXPECT_EQ(static_cast<unsigned char>(picture->bytes[10]),
              (14 + 40 + 1024) & 255); // where the pixels begin
    EXPECT_EQ(picture->bytes[11], (14 + 40 + 1024) >> 8);
}

TEST(RtfReaderPictures, KindIsThatOfTheBytes_WhereTheyTell)
{
    EXPECT_EQ(FirstPicture("{\\pict\\jpegblip " + Hex(Png(1, 1)) + "}")->kind, PictureKind::Png);
    EXPECT_EQ(FirstPicture("{\\pict " + Hex("\xFF\xD8\xFF\xE0") + "}")->kind, PictureKind::Jpeg);
}

TEST(RtfReaderPictures, TooManyPixels_AreRefusedAndTheTextGoesOn)
{
    EXPECT_NE(FirstPicture("{\\pict\\pngblip " + Hex(Png(8000, 8000)) + "}"), nullptr);
    EXPECT_EQ(FirstPicture("{\\pict\\pngblip " + Hex(Png(8001, 8000)) + "}"), nullptr);
    EXPECT_EQ(FirstPicture("{\\pict\\pngblip " + Hex(Png(0xFFFFFFFF, 0xFFFFFFFF)) + "}"), nullptr);
    EXPECT_EQ(FirstPicture("{\\pict\\jpegblip " +
                           Hex(std::string("\xFF\xD8\xFF\xC0\0\x11\x08\xFF\xFF\xFF\xFF", 11)) + "}"),
              nullptr);
    EXPECT_EQ(PlainText(Read("a{\\pict\\pngblip " + Hex(Png(0xFFFFFFFF, 1)) + "}b\\par c")), "ab\nc");
}

TEST(RtfReaderPictures, TooManyBytes_AreRefusedAndTheTextGoesOn)
{
    const auto read = [](std::size_t bytes) {
        return Read("a{\\pict\\emfblip\\bin" + std::to_string(bytes) + " " + std::string(bytes, '0') + "}b");
    };
    EXPECT_EQ(read(maxPictureBytes).blocks[0].AsParagraph()->runs.size(), 3u);
    EXPECT_EQ(read(maxPictureBytes + 1).blocks[0].AsParagraph()->runs.size(), 1u);
}

TEST(RtfReaderPictures, NothingInside_IsNoPicture)
{
    EXPECT_EQ(FirstPicture("{\\pict\\pngblip}"), nullptr);
    EXPECT_EQ(FirstPicture("{\\pict 0102}"), nullptr);
    EXPECT_EQ(FirstPicture("{\\pict\\wbitmap0 0102}"), nullptr);
    EXPECT_EQ(FirstPicture("{\\pict\\pngblip\\bin zz}"), nullptr);
}

TEST(RtfReaderPictures, PicturesOfHeadsAndShapes_AreLeftOut)
{
    EXPECT_EQ(FirstPicture("{\\header{\\pict\\pngblip 0102}}{\\shp{\\pict\\pngblip 0102}}"), nullptr);
}
