#include "platform/print/RtfShapes.h"

#include "platform/richtext/RtfOutput.h"

#include <algorithm>
#include <cmath>

namespace platform::print {

namespace {

using richtext::AppendWord;

constexpr std::int64_t lineShape = 20;
constexpr std::int64_t boxShape = 202;
constexpr Double emuPerTwip = 635.0;

std::int64_t Whole(Double value) { return std::llround(value); }

void AppendProperty(std::string& rtf, std::string_view name, std::int64_t value)
{
    rtf.append("{\\sp{\\sn ").append(name).append("}{\\sv ").append(std::to_string(value)).append("}}");
}

/// What every drawing begins with: its place on the paper, over which text runs on.
void AppendStart(std::string& rtf, Double left, Double top, Double right, Double bottom, Long order)
{
    AppendWord(rtf += "{\\shp{\\*\\shpinst", "\\shpleft", Whole(left));
    AppendWord(rtf, "\\shptop", Whole(top));
    AppendWord(rtf, "\\shpright", Whole(right));
    AppendWord(rtf, "\\shpbottom", Whole(bottom));
    rtf += "\\shpfhdr0\\shpbxpage\\shpbxignore\\shpbypage\\shpbyignore\\shpwr3\\shpwrk0\\shpfblwtxt0";
    AppendWord(rtf, "\\shpz", order);
    AppendProperty(rtf, "posrelh", 1);
    AppendProperty(rtf, "posrelv", 1);
}

/// 0xRRGGBB as the 0xBBGGRR of drawings.
std::int64_t ShapeColor(std::uint32_t color)
{
    return ((color & 0xFFU) << 16) | (color & 0xFF00U) | ((color >> 16) & 0xFFU);
}

} // namespace

void AppendLineShape(std::string& rtf, const PlacedLine& line, Long order)
{
    AppendStart(rtf,
                std::min(line.x1, line.x2),
                std::min(line.y1, line.y2),
                std::max(line.x1, line.x2),
                std::max(line.y1, line.y2),
                order);
    AppendProperty(rtf, "shapeType", lineShape);
    AppendProperty(rtf, "fFlipH", line.x1 > line.x2 ? 1 : 0);
    AppendProperty(rtf, "fFlipV", line.y1 > line.y2 ? 1 : 0);
    AppendProperty(rtf, "lineColor", ShapeColor(line.color));
    AppendProperty(rtf, "lineWidth", Whole(line.width * emuPerTwip));
    rtf += "}}";
}

void AppendBoxShape(std::string& rtf, const FlowTextBox& box, std::string_view text, Long order)
{
    AppendStart(rtf, box.left, box.top, box.left + box.width, box.top + box.height, order);
    AppendProperty(rtf, "shapeType", boxShape);
    for (const char* none : {"fFilled", "fLine", "dxTextLeft", "dyTextTop", "dxTextRight", "dyTextBottom"})
        AppendProperty(rtf, none, 0);
    rtf.append("{\\shptxt \\pard\\plain\\f0\\fs20 ").append(text).append("}}}");
}

} // namespace platform::print
