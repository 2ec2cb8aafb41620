#include "platform/richtext/RtfPicture.h"

#include "platform/richtext/RtfOutput.h"

#include <algorithm>

namespace platform::richtext {

namespace {

void AppendKind(std::string& rtf, const Picture& picture)
{
    switch (picture.kind) {
    case PictureKind::Png: rtf += "\\pngblip"; break;
    case PictureKind::Jpeg: rtf += "\\jpegblip"; break;
    case PictureKind::Bmp: rtf += "\\dibitmap0"; break;
    case PictureKind::Emf: rtf += "\\emfblip"; break;
    case PictureKind::Wmf: AppendWord(rtf, "\\wmetafile", picture.wmfMapMode); break;
    case PictureKind::Pict: rtf += "\\macpict"; break;
    }
}

std::string_view Stored(const Picture& picture)
{
    constexpr std::size_t fileHeader = 14;
    const std::string_view bytes = picture.bytes;
    return picture.kind == PictureKind::Bmp ? bytes.substr(std::min(fileHeader, bytes.size())) : bytes;
}

void AppendUnless(std::string& rtf, Long usual, std::string_view word, Long number)
{
    if (number != usual) AppendWord(rtf, word, number);
}

} // namespace

void AppendPicture(std::string& rtf, const Picture& picture)
{
    AppendKind(rtf += "{\\pict", picture);
    AppendUnless(rtf, 0, "\\picw", picture.width);
    AppendUnless(rtf, 0, "\\pich", picture.height);
    AppendUnless(rtf, 0, "\\picwgoal", picture.widthGoal);
    AppendUnless(rtf, 0, "\\pichgoal", picture.heightGoal);
    AppendUnless(rtf, 100, "\\picscalex", picture.scaleX);
    AppendUnless(rtf, 100, "\\picscaley", picture.scaleY);
    rtf += ' ';
    AppendHex(rtf, Stored(picture));
    rtf += '}';
}

} // namespace platform::richtext
