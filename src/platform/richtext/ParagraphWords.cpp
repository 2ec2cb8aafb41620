#include "platform/richtext/Parser.h"

#include <algorithm>
#include <memory>

namespace platform::richtext::reader {

namespace {

constexpr Long farthest = 31680; // twips: 22 inches, the largest page there is

template <Alignment Kind> void SetAlignment(Parser& parser, Parameter)
{
    parser.Properties().alignment = Kind;
}

template <auto Member> void SetLength(Parser& parser, Parameter parameter)
{
    parser.Properties().*Member = std::clamp(parameter.value, -farthest, farthest);
}

template <auto Member> void SetSpace(Parser& parser, Parameter parameter)
{
    parser.Properties().*Member = std::clamp<Long>(parameter.value, 0, farthest);
}

template <auto Member> void Switch(Parser& parser, Parameter parameter)
{
    parser.Properties().*Member = parameter.IsOn();
}

template <auto Member> void SetNumber(Parser& parser, Parameter parameter)
{
    parser.Properties().*Member = parameter.value;
}

template <TabKind Kind> void SetTabKind(Parser& parser, Parameter) { parser.Properties().nextTabKind = Kind; }

template <TabLeader Leader> void SetTabLeader(Parser& parser, Parameter)
{
    parser.Properties().nextTabLeader = Leader;
}

/// The tab stops, this group's own.
std::vector<TabStop>& OwnTabs(ParagraphState& properties)
{
    if (properties.tabs == nullptr) {
        properties.tabs = std::make_shared<std::vector<TabStop>>();
    } else if (properties.tabs.use_count() > 1) {
        properties.tabs = std::make_shared<std::vector<TabStop>>(*properties.tabs);
    }
    return *properties.tabs;
}

// In order and without doubles, so that a flood of stops stays short.
void AddTab(Parser& parser, Parameter parameter)
{
    constexpr std::size_t mostTabs = 64;
    ParagraphState& properties = parser.Properties();
    const TabStop stop{
        std::clamp(parameter.value, -farthest, farthest), properties.nextTabKind, properties.nextTabLeader};
    properties.nextTabKind = TabKind::Left;
    properties.nextTabLeader = TabLeader::None;
    if (!parser.WantsLooks()) return;
    std::vector<TabStop>& tabs = OwnTabs(properties);
    const auto at = std::ranges::lower_bound(tabs, stop.position, {}, &TabStop::position);
    if (at != tabs.end() && at->position == stop.position) {
        *at = stop;
    } else if (tabs.size() < mostTabs) {
        tabs.insert(at, stop);
    }
}

void AddBarTab(Parser& parser, Parameter parameter)
{
    parser.Properties().nextTabKind = TabKind::Bar;
    AddTab(parser, parameter);
}

void Reset(Parser& parser, Parameter) { parser.Properties() = ParagraphState(); }

constexpr WordKind property = WordKind::Property;

constexpr ControlWord words[] = {
    {"pard", property, Reset},
    {"ql", property, SetAlignment<Alignment::Left>},
    {"qc", property, SetAlignment<Alignment::Center>},
    {"qr", property, SetAlignment<Alignment::Right>},
    {"qj", property, SetAlignment<Alignment::Justify>},
    {"qd", property, SetAlignment<Alignment::Justify>},
    {"li", property, SetLength<&ParagraphState::left>},
    {"ri", property, SetLength<&ParagraphState::right>},
    {"lin", property, SetLength<&ParagraphState::logicalLeft>},
    {"rin", property, SetLength<&ParagraphState::logicalRight>},
    {"fi", property, SetLength<&ParagraphState::first>},
    {"sb", property, SetSpace<&ParagraphState::before>},
    {"sa", property, SetSpace<&ParagraphState::after>},
    {"sl", property, SetLength<&ParagraphState::lineSpacing>},
    {"slmult", property, Switch<&ParagraphState::multiple>},
    {"keep", property, Switch<&ParagraphState::keepTogether>},
    {"keepn", property, Switch<&ParagraphState::keepWithNext>},
    {"pagebb", property, Switch<&ParagraphState::pageBreakBefore>},
    {"cbpat", property, SetNumber<&ParagraphState::background>},
    {"intbl", property, Switch<&ParagraphState::inTable>},
    {"itap", property, SetNumber<&ParagraphState::depth>},
    {"ilvl", property, SetNumber<&ParagraphState::level>},
    {"tx", property, AddTab},
    {"tb", property, AddBarTab},
    {"tql", property, SetTabKind<TabKind::Left>},
    {"tqr", property, SetTabKind<TabKind::Right>},
    {"tqc", property, SetTabKind<TabKind::Center>},
    {"tqdec", property, SetTabKind<TabKind::Decimal>},
    {"tldot", property, SetTabLeader<TabLeader::Dots>},
    {"tlmdot", property, SetTabLeader<TabLeader::MiddleDots>},
    {"tlhyph", property, SetTabLeader<TabLeader::Hyphens>},
    {"tlul", property, SetTabLeader<TabLeader::Underline>},
    {"tlth", property, SetTabLeader<TabLeader::Thick>},
    {"tleq", property, SetTabLeader<TabLeader::Equals>},
};

} // namespace

std::span<const ControlWord> ParagraphWords() { return words; }

} // namespace platform::richtext::reader
