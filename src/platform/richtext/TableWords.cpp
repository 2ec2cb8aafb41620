#include "platform/richtext/Parser.h"

#include <algorithm>

namespace platform::richtext::reader {

namespace {

constexpr Long farthest = 31680; // twips

void DefineRow(Parser& parser, Parameter) { parser.DefineRow(); }

template <bool Nested> void EndCell(Parser& parser, Parameter) { parser.EndCell(Nested); }

template <bool Nested> void EndRow(Parser& parser, Parameter) { parser.EndRow(Nested); }

void AddEdge(Parser& parser, Parameter parameter)
{
    TableCell& cell = parser.Row().next;
    for (Border* border : {&cell.top, &cell.left, &cell.bottom, &cell.right}) {
        if (border->style == BorderStyle::None) *border = Border();
    }
    parser.Row().AddEdge(parameter.value);
}

template <auto Member> void SetRowLength(Parser& parser, Parameter parameter)
{
    parser.Row().row.*Member = std::clamp(parameter.value, -farthest, farthest);
}

template <auto Member> void SwitchRow(Parser& parser, Parameter parameter)
{
    parser.Row().row.*Member = parameter.IsOn();
}

template <Alignment Kind> void AlignRow(Parser& parser, Parameter) { parser.Row().row.alignment = Kind; }

template <auto Member, CellMerge Kind> void Merge(Parser& parser, Parameter)
{
    parser.Row().next.*Member = Kind;
}

template <CellAlignment Kind> void AlignCell(Parser& parser, Parameter)
{
    parser.Row().next.alignment = Kind;
}

template <bool Upward> void TurnCell(Parser& parser, Parameter) { parser.Row().next.upward = Upward; }

void SetCellBackground(Parser& parser, Parameter parameter)
{
    parser.Row().next.background = parser.ColorOf(parameter.value);
}

template <auto Member> void BeginCellBorder(Parser& parser, Parameter)
{
    parser.BegunBorder() = &(parser.Row().next.*Member);
}

// A border of a row, paragraph or page: what follows is not a cell's.
void BeginOtherBorder(Parser& parser, Parameter) { parser.BegunBorder() = nullptr; }

template <BorderStyle Style> void SetBorderStyle(Parser& parser, Parameter)
{
    if (parser.BegunBorder() != nullptr) parser.BegunBorder()->style = Style;
}

void SetBorderWidth(Parser& parser, Parameter parameter)
{
    constexpr Long widest = 255;
    if (parser.BegunBorder() != nullptr)
        parser.BegunBorder()->width = std::clamp<Long>(parameter.value, 0, widest);
}

void SetBorderColor(Parser& parser, Parameter parameter)
{
    if (parser.BegunBorder() != nullptr) parser.BegunBorder()->color = parser.ColorOf(parameter.value);
}

constexpr WordKind shared = WordKind::Shared;
constexpr WordKind text = WordKind::Text;

constexpr ControlWord words[] = {
    {"trowd", shared, DefineRow},
    {"cell", text, EndCell<false>},
    {"nestcell", text, EndCell<true>},
    {"row", text, EndRow<false>},
    {"nestrow", text, EndRow<true>},
    {"cellx", shared, AddEdge},
    {"trleft", shared, SetRowLength<&TableRow::left>},
    {"trgaph", shared, SetRowLength<&TableRow::cellGap>},
    {"trrh", shared, SetRowLength<&TableRow::height>},
    {"trhdr", shared, SwitchRow<&TableRow::heading>},
    {"trkeep", shared, SwitchRow<&TableRow::keepTogether>},
    {"trql", shared, AlignRow<Alignment::Left>},
    {"trqc", shared, AlignRow<Alignment::Center>},
    {"trqr", shared, AlignRow<Alignment::Right>},
    {"clmgf", shared, Merge<&TableCell::mergeAcross, CellMerge::First>},
    {"clmrg", shared, Merge<&TableCell::mergeAcross, CellMerge::Continued>},
    {"clvmgf", shared, Merge<&TableCell::mergeDown, CellMerge::First>},
    {"clvmrg", shared, Merge<&TableCell::mergeDown, CellMerge::Continued>},
    {"clvertalt", shared, AlignCell<CellAlignment::Top>},
    {"clvertalc", shared, AlignCell<CellAlignment::Center>},
    {"clvertalb", shared, AlignCell<CellAlignment::Bottom>},
    {"cltxbtlr", shared, TurnCell<true>},
    {"cltxlrtb", shared, TurnCell<false>},
    {"clcbpat", shared, SetCellBackground},
    {"clbrdrt", shared, BeginCellBorder<&TableCell::top>},
    {"clbrdrl", shared, BeginCellBorder<&TableCell::left>},
    {"clbrdrb", shared, BeginCellBorder<&TableCell::bottom>},
    {"clbrdrr", shared, BeginCellBorder<&TableCell::right>},
    {"trbrdrt", shared, BeginOtherBorder},
    {"trbrdrl", shared, BeginOtherBorder},
    {"trbrdrb", shared, BeginOtherBorder},
    {"trbrdrr", shared, BeginOtherBorder},
    {"trbrdrh", shared, BeginOtherBorder},
    {"trbrdrv", shared, BeginOtherBorder},
    {"brdrt", shared, BeginOtherBorder},
    {"brdrl", shared, BeginOtherBorder},
    {"brdrb", shared, BeginOtherBorder},
    {"brdrr", shared, BeginOtherBorder},
    {"brdrbtw", shared, BeginOtherBorder},
    {"brdrbar", shared, BeginOtherBorder},
    {"box", shared, BeginOtherBorder},
    {"chbrdr", shared, BeginOtherBorder},
    {"pgbrdrt", shared, BeginOtherBorder},
    {"pgbrdrl", shared, BeginOtherBorder},
    {"pgbrdrb", shared, BeginOtherBorder},
    {"pgbrdrr", shared, BeginOtherBorder},
    {"cldglu", shared, BeginOtherBorder},
    {"cldgll", shared, BeginOtherBorder},
    {"brdrs", shared, SetBorderStyle<BorderStyle::Single>},
    {"brdrhair", shared, SetBorderStyle<BorderStyle::Single>},
    {"brdrth", shared, SetBorderStyle<BorderStyle::Thick>},
    {"brdrdb", shared, SetBorderStyle<BorderStyle::Double>},
    {"brdrtriple", shared, SetBorderStyle<BorderStyle::Double>},
    {"brdrdot", shared, SetBorderStyle<BorderStyle::Dotted>},
    {"brdrdash", shared, SetBorderStyle<BorderStyle::Dashed>},
    {"brdrdashsm", shared, SetBorderStyle<BorderStyle::Dashed>},
    {"brdrdashd", shared, SetBorderStyle<BorderStyle::Dashed>},
    {"brdrdashdd", shared, SetBorderStyle<BorderStyle::Dashed>},
    {"brdrnone", shared, SetBorderStyle<BorderStyle::None>},
    {"brdrnil", shared, SetBorderStyle<BorderStyle::None>},
    {"brdrw", shared, SetBorderWidth},
    {"brdrcf", shared, SetBorderColor},
};

} // namespace

std::span<const ControlWord> TableWords() { return words; }

} // namespace platform::richtext::reader
