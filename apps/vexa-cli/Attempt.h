#pragma once

#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "vexa-cli/JsonWriter.h"

#include <optional>
#include <string_view>
#include <type_traits>

namespace vexa_cli {

/// The result of a calculation, or nothing when it fails (a division by zero, an overflow, a missing member,
/// a cell that cannot be read). Throws DatabaseError when the file itself is lost.
template <class Calculation> auto Attempt(Calculation calculation)
{
    using Result = std::decay_t<decltype(calculation())>;
    try {
        return std::optional<Result>(calculation());
    } catch (const platform::DatabaseError& error) {
        if (error.FileIsLost()) {
            throw;
        }
    } catch (const platform::Error&) { // the figure is none
    }
    return std::optional<Result>();
}

/// The address of what a function refers to, or nothing when it fails.
template <class Function> auto AttemptReference(Function function)
{
    return Attempt([&] { return &function(); }).value_or(nullptr);
}

/// Writes the result of a calculation, null when it fails.
template <class Calculation> void WriteFigure(JsonWriter& json, Calculation calculation)
{
    if (const auto figure = Attempt(calculation)) {
        json.Value(*figure);
    } else {
        json.Null();
    }
}

/// The same as a member of an object.
template <class Calculation>
void WriteFigure(JsonWriter& json, std::string_view name, Calculation calculation)
{
    json.Key(name);
    WriteFigure(json, calculation);
}

/// A member with a list: `write` for each element; null when there is no list.
template <class List, class Write>
void WriteList(JsonWriter& json, std::string_view name, const List* list, Write write)
{
    json.Key(name);
    if (list == nullptr) {
        json.Null();
        return;
    }
    json.BeginArray();
    for (const auto& element : *list) {
        write(element);
    }
    json.EndArray();
}

/// A member with an object of figures by key, one for every member of a collection; null when there is none.
template <class Members, class Calculation>
void WriteByKey(JsonWriter& json, std::string_view name, const Members* members, Calculation calculation)
{
    json.Key(name);
    if (members == nullptr) {
        json.Null();
        return;
    }
    json.BeginObject();
    for (const auto& member : *members) {
        const Long key = member->ItemKey();
        WriteFigure(json, std::to_string(key), [&] { return calculation(key); });
    }
    json.EndObject();
}

} // namespace vexa_cli
