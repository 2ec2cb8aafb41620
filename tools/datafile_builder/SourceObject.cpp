#include "datafile_builder/SourceObject.h"

#include "datafile_builder/BuildError.h"
#include "datafile_builder/Markup.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace datafile_builder {

SourceObject::SourceObject(const Json& value, std::string place) : m_value(value), m_place(std::move(place))
{
    if (!m_value.is_object()) Refuse("an object is due here");
}

void SourceObject::Refuse(const std::string& message) const
{
    throw BuildError(m_place.empty() ? message : m_place + ": " + message);
}

void SourceObject::AllowOnly(const std::vector<std::string_view>& names) const
{
    for (const std::string& name : Names()) {
        if (std::find(names.begin(), names.end(), name) == names.end()) Refuse("unknown member " + name);
    }
}

void SourceObject::Require(const std::vector<std::string_view>& names) const
{
    for (const std::string_view name : names)
        Member(std::string(name));
}

std::vector<std::string> SourceObject::Names() const
{
    std::vector<std::string> names;
    for (const auto& member : m_value.items())
        names.push_back(member.key());
    return names;
}

const SourceObject::Json& SourceObject::Member(const std::string& name) const
{
    const auto member = m_value.find(name);
    if (member == m_value.end()) Refuse(name + " is missing");
    return *member;
}

std::string SourceObject::PlaceOf(const std::string& name) const
{
    return m_place.empty() ? name : m_place + "." + name;
}

std::string SourceObject::Text(const std::string& name) const
{
    const Json& member = Member(name);
    if (!member.is_string()) Refuse(name + " must be a text");
    return member.get<std::string>();
}

std::string SourceObject::TextOr(const std::string& name, const std::string& absent) const
{
    return Has(name) ? Text(name) : absent;
}

Long SourceObject::Whole(const std::string& name) const
{
    const Json& member = Member(name);
    if (!member.is_number_integer()) Refuse(name + " must be a whole number");
    const auto value = member.get<Json::number_integer_t>();
    using Limits = std::numeric_limits<Long>;
    if (value < Limits::min() || value > Limits::max()) Refuse(name + " is too large");
    return static_cast<Long>(value);
}

Long SourceObject::WholeOr(const std::string& name, Long absent) const
{
    return Has(name) ? Whole(name) : absent;
}

Double SourceObject::Number(const std::string& name) const
{
    const Json& member = Member(name);
    if (!member.is_number()) Refuse(name + " must be a number");
    return member.get<Double>();
}

platform::Currency SourceObject::Money(const std::string& name) const
{
    const Double value = Number(name);
    const platform::Currency money = platform::ToCurrency(value);
    if (platform::ToDouble(money) != value) Refuse(name + " has more than four decimals");
    return money;
}

std::string SourceObject::TextOrWhole(const std::string& name) const
{
    return Member(name).is_string() ? Text(name) : std::to_string(Whole(name));
}

SourceObject SourceObject::Object(const std::string& name) const { return {Member(name), PlaceOf(name)}; }

std::vector<SourceObject> SourceObject::Objects(const std::string& name) const
{
    std::vector<SourceObject> objects;
    if (!Has(name)) return objects;
    const Json& list = Member(name);
    if (!list.is_array()) Refuse(name + " must be a list");
    for (const Json& element : list) {
        objects.emplace_back(element, PlaceOf(name) + "[" + std::to_string(objects.size()) + "]");
    }
    return objects;
}

std::vector<std::string> SourceObject::Texts(const std::string& name) const
{
    std::vector<std::string> texts;
    for (const Json& element : Member(name)) {
        if (!element.is_string()) Refuse(name + " must be a list of texts");
        texts.push_back(element.get<std::string>());
    }
    return texts;
}

std::string SourceObject::RichText(const std::string& name) const
{
    try {
        return MarkupToRtf(Text(name));
    } catch (const BuildError& error) {
        Refuse(name + ": " + error.what());
    }
}

Cell SourceObject::CellOf(const Column& column) const
{
    switch (column.kind) {
    case ColumnKind::plainText: return Text(column.name);
    case ColumnKind::markup: return RichText(column.name);
    case ColumnKind::whole: return std::int64_t{Whole(column.name)};
    case ColumnKind::single: return SingleCell(Number(column.name));
    case ColumnKind::money: return CurrencyCell(Money(column.name));
    }
    Refuse("no such kind of column");
}

Row SourceObject::Cells(std::span<const Column> columns) const
{
    Row row;
    for (const Column& column : columns) {
        if (Has(column.name)) row.emplace_back(column.name, CellOf(column));
    }
    return row;
}

} // namespace datafile_builder
