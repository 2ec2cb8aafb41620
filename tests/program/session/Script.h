#pragma once

#include "program/session/Hands.h"

#include <random>
#include <string>
#include <vector>

/// A change that a user of the sample "smith-creek" makes on some worksheet and leaves the row or worksheet
/// after, so that the program has saved it when the change is done.
struct Change
{
    /// What the file has when the change is saved: the query's one cell, a rich text as plain text, is what
    /// Value gave.
    const char* query;
    /// Another value for the cell, which now is `old`.
    std::string (*value)(std::minstd_rand& random, const std::string& old);
    void (*make)(Hands& hands, const std::string& value);
};

/// On most worksheets, of cells, texts, topics, safety issues and alternatives.
const std::vector<Change>& Changes();

/// The cell that a change is of, as the file has it. Nobody may have the file open.
std::string InFile(const std::string& path, const Change& change);
