#include "platform/richtext/Parser.h"

#include <algorithm>

namespace platform::richtext::reader {

namespace {

constexpr Long largestLength = 65535;

bool IsInPicture(Parser& parser) { return parser.Group().destination == Destination::Picture; }

void Begin(Parser& parser, Parameter) { parser.BeginPicture(); }

void BeginShapePicture(Parser& parser, Parameter) { parser.Group().isShapePicture = true; }

void BeginOtherPicture(Parser& parser, Parameter)
{
    if (parser.TakeShownPicture()) parser.SkipGroup();
}

template <PictureKind Kind> void SetKind(Parser& parser, Parameter)
{
    if (IsInPicture(parser)) parser.PictureRead().SetKind(Kind);
}

void SetMetafile(Parser& parser, Parameter parameter)
{
    if (!IsInPicture(parser)) return;
    parser.PictureRead().SetKind(PictureKind::Wmf);
    parser.PictureRead().Properties().wmfMapMode = std::clamp<Long>(parameter.Or(1), 1, 8);
}

void Refuse(Parser& parser, Parameter)
{
    if (IsInPicture(parser)) parser.PictureRead().Refuse();
}

template <auto Member> void SetLength(Parser& parser, Parameter parameter)
{
    if (!IsInPicture(parser)) return;
    parser.PictureRead().Properties().*Member = std::clamp<Long>(parameter.value, 0, largestLength);
}

template <auto Member> void SetScale(Parser& parser, Parameter parameter)
{
    constexpr Long largest = 10000; // percent
    if (IsInPicture(parser) && parameter.value > 0) {
        parser.PictureRead().Properties().*Member = std::min(parameter.value, largest);
    }
}

void TakeBinary(Parser& parser, Parameter parameter)
{
    const std::string_view bytes = parser.TakeBytes(parameter.value);
    if (IsInPicture(parser)) parser.PictureRead().AddBytes(bytes);
}

constexpr WordKind property = WordKind::Property;

constexpr ControlWord words[] = {
    {"pict", WordKind::Destination, Begin},
    {"shppict", WordKind::Destination, BeginShapePicture},
    {"nonshppict", WordKind::Destination, BeginOtherPicture},
    {"pngblip", property, SetKind<PictureKind::Png>},
    {"jpegblip", property, SetKind<PictureKind::Jpeg>},
    {"emfblip", property, SetKind<PictureKind::Emf>},
    {"macpict", property, SetKind<PictureKind::Pict>},
    {"wmetafile", property, SetMetafile},
    {"dibitmap", property, SetKind<PictureKind::Bmp>},
    {"wbitmap", property, Refuse},
    {"pmmetafile", property, Refuse},
    {"picw", property, SetLength<&Picture::width>},
    {"pich", property, SetLength<&Picture::height>},
    {"picwgoal", property, SetLength<&Picture::widthGoal>},
    {"pichgoal", property, SetLength<&Picture::heightGoal>},
    {"picscalex", property, SetScale<&Picture::scaleX>},
    {"picscaley", property, SetScale<&Picture::scaleY>},
    {"bin", WordKind::Text, TakeBinary},
};

} // namespace

std::span<const ControlWord> PictureWords() { return words; }

} // namespace platform::richtext::reader
