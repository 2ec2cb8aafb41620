#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

/// What the programs of this folder measure with, and the table that all of them print rows of.
namespace bench {

inline double Milliseconds(const std::function<void()>& job)
{
    const auto start = std::chrono::steady_clock::now();
    job();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> costs)
{
    const auto middle = costs.begin() + static_cast<std::ptrdiff_t>(costs.size() / 2);
    std::nth_element(costs.begin(), middle, costs.end());
    return *middle;
}

/// A row, in the columns of processes.py: the figure, ours, the floor, the ratio and the most that is allowed
/// of it.
inline void
PrintRow(const std::string& figure, double ours, double floor, double budget, const char* unit = "ms")
{
    const double ratio = ours / floor;
    std::printf("%-58s %10.3f %10.3f %-2s %7.2f %7.2f%s\n",
                figure.c_str(),
                ours,
                floor,
                unit,
                ratio,
                budget,
                ratio > budget ? "  over" : "");
    std::fflush(stdout);
}

/// The row of two lists of milliseconds, by their medians.
inline void PrintMedians(const std::string& figure,
                         const std::vector<double>& ours,
                         const std::vector<double>& floor,
                         double budget)
{
    PrintRow(figure, Median(ours), Median(floor), budget);
}

} // namespace bench
