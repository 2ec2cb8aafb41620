#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace support {

/// A fire that the checks of every figure go over.
struct Fire
{
    std::string name;
    std::string sample;   // empty: a generated one
    int alternatives = 0; // of a generated one
    std::string sql;

    friend void PrintTo(const Fire& fire, std::ostream* out) { *out << fire.name; }
};

/// The samples, and fires made for the purpose: with and without land units, in every kind of figure.
std::vector<Fire> Fires();
/// Turns a copy of the template into this fire, a generated one.
void Generate(const Fire& fire, const std::string& path);

} // namespace support
