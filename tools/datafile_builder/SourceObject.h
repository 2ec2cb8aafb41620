#pragma once

#include "datafile_builder/DatafileWriter.h"

#include <nlohmann/json.hpp>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace datafile_builder {

/// How a member of a source becomes the cell of a column.
enum class ColumnKind {
    plainText,
    markup, // becomes rich text
    whole,
    single,
    money,
};

struct Column
{
    const char* name = "";
    ColumnKind kind = ColumnKind::plainText;
};

/// An object of a JSON source together with its place in it, so that what is wrong is told with the place:
/// "Alternatives[2].Outcomes.Target: FireSize is missing". Refers to the document, which must outlive it.
/// All members throw BuildError for a member that is missing or of the wrong type.
class SourceObject
{
public:
    using Json = nlohmann::ordered_json;

    SourceObject(const Json& value, std::string place);

    /// Throws unless every member is one of these names: a misspelt member must not pass as an absent one.
    void AllowOnly(const std::vector<std::string_view>& names) const;
    /// Throws unless every one of these members is there.
    void Require(const std::vector<std::string_view>& names) const;
    bool Has(const std::string& name) const { return m_value.contains(name); }
    /// Names of the members in the order of the source.
    std::vector<std::string> Names() const;

    std::string Text(const std::string& name) const;
    std::string TextOr(const std::string& name, const std::string& absent) const;
    Long Whole(const std::string& name) const;
    Long WholeOr(const std::string& name, Long absent) const;
    Double Number(const std::string& name) const;
    /// An amount of dollars with at most four decimals.
    platform::Currency Money(const std::string& name) const;
    /// A text or a whole number, as text: how ratings name their criterion.
    std::string TextOrWhole(const std::string& name) const;

    SourceObject Object(const std::string& name) const;
    /// The objects of a list; no such member is an empty list.
    std::vector<SourceObject> Objects(const std::string& name) const;
    std::vector<std::string> Texts(const std::string& name) const;

    /// The cells of those of the columns that the object has.
    Row Cells(std::span<const Column> columns) const;
    /// The rich text of a marked up member.
    std::string RichText(const std::string& name) const;

    /// Throws BuildError with the object's place before the message.
    [[noreturn]] void Refuse(const std::string& message) const;

private:
    const Json& Member(const std::string& name) const;
    std::string PlaceOf(const std::string& name) const;
    Cell CellOf(const Column& column) const;

    const Json& m_value;
    std::string m_place;
};

} // namespace datafile_builder
