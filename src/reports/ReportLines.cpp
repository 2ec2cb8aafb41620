#include "platform/base/Texts.h"
#include "reports/ReportState.h"

#include <algorithm>

namespace ReportUtilities {

namespace {

constexpr Long textEdge = 720;       // shapes are placed relative to the text
constexpr Double shapeUnits = 720.0; // of a shape's line width, to the twip of the pen
constexpr Integer drawLine = 1;

std::string Property(const char* name, Long value)
{
    return std::string("{\\sp{\\sn ") + name + "}{\\sv " + platform::TextOf(value) + "}}";
}

/// A line as a rich text shape. Its form is fixed: whoever reads exports of old knows it so.
std::string LineShape(Long x1, Long y1, Long x2, Long y2)
{
    using platform::Subtract;
    using platform::TextOf;
    const platform::print::PrintControl& printer = VSPrinter1();
    const Long lineWidth = platform::ToLong(printer.PenWidth() * shapeUnits);
    return "{\\shp{\\shpleft" + TextOf(Subtract(std::min(x1, x2), textEdge)) + "\\shptop" +
           TextOf(Subtract(std::min(y1, y2), textEdge)) + "\\shpright" +
           TextOf(Subtract(std::max(x1, x2), textEdge)) + "\\shpbottom" +
           TextOf(Subtract(std::max(y1, y2), textEdge)) + "{\\sp{\\sn shapeType}{\\sv 20}}" +
           Property("fFlipH", x1 < x2 ? 0 : 1) + Property("fFlipV", y1 < y2 ? 0 : 1) +
           Property("lineColor", static_cast<Long>(printer.PenColor())) + Property("lineWidth", lineWidth) +
           "}}";
}

} // namespace

void DrawReportLine(Long x1, Long y1, Long x2, Long y2)
{
    platform::print::PrintControl& printer = VSPrinter1();
    printer.DrawLine(x1, y1, x2, y2);
    if (bSavingRtf()) printer.SetExportRaw(LineShape(x1, y1, x2, y2));
}

void DrawRule(Long x1, Long y1, Long x2, Long y2)
{
    platform::print::PrintControl& printer = VSPrinter1();
    printer.SetX1(x1);
    printer.SetY1(y1);
    printer.SetX2(x2);
    printer.SetY2(y2);
    printer.SetDraw(drawLine);
}

} // namespace ReportUtilities
