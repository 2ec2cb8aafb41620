#pragma once

#include "model/g41Objectives.h"
#include "model/g42SafetyIssues.h"
#include "values/g36ThreatenedItems.h"
#include "vexa-cli/JsonWriter.h"

class c51Alternative;
class c53Outcome;

namespace vexa_cli {

/// The collections by whose keys figures are written; nothing where the file's rows make none.
struct KeyedBy
{
    const g41Objectives::Objectives* objectives = nullptr;
    const g42SafetyIssues::SafetyIssues* safetyIssues = nullptr;
    const platform::Collection<std::shared_ptr<c36ThreatenedItem>>* threatenedItems = nullptr;
};

/// The whole document of the open file. Figures that fail are null. `path` is written as given.
void WriteDocument(JsonWriter& json, const std::string& path);
void WriteAlternative(JsonWriter& json, const KeyedBy& keyedBy, c51Alternative& alternative);
void WriteOutcome(JsonWriter& json, const KeyedBy& keyedBy, c53Outcome& outcome);

} // namespace vexa_cli
