#pragma once

#include "platform/base/Numbers.h"

#include <QJsonObject>

#include <string>

class c51Alternative;

/// What the screens tell of one outcome.
struct RoadOutcome
{
    std::string size; // acres
    Long control = 0; // days
    Single objectives = 0.0F;
    Single safety = 0.0F;
    Single cost = 0.0F; // dollars, as all below
    Single loss = 0.0F;
    Single costPerAcre = 0.0F;
    Single costBySize = 0.0F;
    Single linesTotal = 0.0F; // of its resources, not rounded

    friend bool operator==(const RoadOutcome&, const RoadOutcome&) = default;
};

/// What the screens tell of an alternative without a Fallback.
struct RoadFigures
{
    std::string label;
    Single score = 0.0F;
    Single safety = 0.0F;
    Single cost = 0.0F;
    Single loss = 0.0F;
    Long success = 0; // percent
    RoadOutcome target;
    RoadOutcome extreme;

    friend bool operator==(const RoadFigures&, const RoadFigures&) = default;

    /// The texts of its decision tree, one a line.
    std::string TreeWords() const;
    /// As the model of the open file computes them.
    static RoadFigures OfModel(c51Alternative& alternative);
    /// As the companion printed them, of the alternative at this place from 0.
    static RoadFigures OfDocument(const QJsonObject& document, int place);
};

/// What the companion, a process of its own, prints of a file that no session has open.
QJsonObject EvaluatedByCompanion(const std::string& path, const std::string& programFolder);
