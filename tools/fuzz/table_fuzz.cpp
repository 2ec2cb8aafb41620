// Format strings of the print control's tables, with cells of every kind, laid out on pages and exported.

#include "Require.h"
#include "platform/print/PrintControl.h"
#include "platform/print/RtfExport.h"
#include "platform/print/TableFormat.h"
#include "platform/print/Toolkit.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>

using namespace platform::print;

namespace {

using Input = FuzzedDataProvider;

constexpr Long kMostRows = 60; // of a table made in steps

void CheckFormat(const std::string& text)
{
    const TableFormat format = ReadFormat(text);
    fuzz::Require(!format.columns.empty(), "a format has no columns");
    for (const TableColumn& column : format.columns) {
        fuzz::Require(column.width >= 1 && column.width <= 31680, "a column has no width that fits a page");
        fuzz::Require(column.align >= 0 && column.align <= 2, "a column has no such alignment");
    }
    std::size_t letters = 0;
    for (const std::vector<std::string>& row : SplitRows(format.data)) {
        fuzz::Require(!row.empty(), "a row has no cells");
        for (const std::string& cell : row)
            letters += cell.size() + 1;
    }
    fuzz::Require(letters >= format.data.size() && letters <= format.data.size() + 1, "a letter got lost");
}

void SetUp(PrintControl& control, Input& input)
{
    control.SetMarginLeft(input.ConsumeIntegralInRange(0, 9000));
    control.SetMarginRight(input.ConsumeIntegralInRange(0, 9000));
    control.SetMarginTop(input.ConsumeIntegralInRange(0, 12000));
    control.SetColumns(input.ConsumeIntegralInRange<Integer>(0, 4));
    control.SetTableBorder(input.ConsumeIntegralInRange<Integer>(0, 8));
    control.SetSpaceBefore(input.ConsumeIntegralInRange(-200, 3000));
    control.SetSpaceAfter(input.ConsumeIntegralInRange(-200, 3000));
    control.SetFontSize(input.ConsumeIntegralInRange(1, 144));
    control.SetCurrentY(input.ConsumeIntegralInRange(0, 16000));
}

CellValue AValue(Input& input)
{
    switch (input.ConsumeIntegralInRange(0, 2)) {
    case 0: return input.ConsumeBool();
    case 1: return input.ConsumeIntegralInRange<Long>(-20, 32000);
    default: return input.ConsumeRandomLengthString(100);
    }
}

void SetCells(PrintControl& control, Input& input)
{
    static const TableSetting kSettings[] = {tcRowHeight,
                                             tcRowIsHeader,
                                             tcRowKeepWithNext,
                                             tcColSpan,
                                             tcText,
                                             tcAlign,
                                             tcFontSize,
                                             tcFontBold,
                                             tcRowBorderAbove,
                                             tcRowBorderBelow,
                                             tcRowLongText,
                                             tcVertical,
                                             tcRowSpacing};
    const auto place = [&input] { return input.ConsumeIntegralInRange<Long>(-2, kMostRows); };
    for (int i = 0; i < 30 && input.ConsumeBool(); ++i) {
        const TableSetting setting = input.PickValueInArray(kSettings);
        const Long row = place();
        const Long column = place();
        control.SetTableCell(setting, row, column, place(), place(), AValue(input));
        control.TableCell(setting, row, column);
    }
}

void WriteInSteps(PrintControl& control, const std::string& format, const std::string& data, Input& input)
{
    control.StartTable();
    control.AddTable(format, data, data);
    if (input.ConsumeBool()) control.AddTable(format, PrintCells(), {{Plain(data), Rich(data), Body(data)}});
    if (input.ConsumeBool()) control.SetTableCell(tcRows, input.ConsumeIntegralInRange<Long>(-1, kMostRows));
    SetCells(control, input);
    control.EndTable();
}

void CheckPages(const Document& document)
{
    fuzz::Require(!document.pages.empty(), "there is no page");
    for (const Page& page : document.pages) {
        for (const PlacedText& text : page.ink.texts)
            fuzz::Require(std::isfinite(text.x) && std::isfinite(text.y), "a text stands nowhere");
        for (const PlacedLine& line : page.ink.lines)
            fuzz::Require(std::isfinite(line.x1 + line.y1 + line.x2 + line.y2), "a line stands nowhere");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static const Toolkit toolkit;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    PrintControl control;
    control.StartDoc();
    SetUp(control, input);
    const std::string format = input.ConsumeRandomLengthString(200);
    const std::string cells = input.ConsumeRandomLengthString(600);
    CheckFormat(format + ";" + cells);
    CheckFormat(cells);
    control.Table(format + ";" + cells);
    control.Table(cells);
    WriteInSteps(control, format, cells, input);
    control.EndDoc();
    CheckPages(control.Pages());
    fuzz::Require(!RtfOf(control.Pages()).empty(), "there is no export");
    return 0;
}
