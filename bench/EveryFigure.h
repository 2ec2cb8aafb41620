#pragma once

#include <string>

/// Opens a file as the program does, asks every figure of the decision once, and closes it. Returns the sum
/// of the figures, so that nothing of it can be left out.
double EveryFigure(const std::string& path);
