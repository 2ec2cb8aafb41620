#include "worksheets/RoadFigures.h"

#include "model/c51Alternative.h"
#include "model/c53Outcome.h"
#include "model/g53Outcomes.h"
#include "platform/base/Formats.h"
#include "platform/base/Texts.h"
#include "support/TempFolder.h"
#include "values/c67SRUseList.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <stdexcept>

using platform::Format;

namespace {

RoadOutcome OutcomeOfModel(c53Outcome& outcome)
{
    return {outcome.FireSize(),
            outcome.ControlTime(),
            outcome.TotalScore(),
            outcome.SafetyScore(),
            outcome.EstimatedCost(),
            outcome.EstimatedLoss(),
            outcome.CostPerAcre(),
            outcome.CostBySize(),
            outcome.SRUseList().SRUseCost()};
}

/// A figure that is missing, or null because it could not be computed, is no zero.
QJsonValue Value(const QJsonObject& object, const char* name)
{
    const QJsonValue value = object.value(QString::fromUtf8(name));
    if (value.isUndefined() || value.isNull()) throw std::runtime_error(std::string("no ") + name);
    return value;
}

Single SingleIn(const QJsonObject& object, const char* name)
{
    return Single(Value(object, name).toDouble());
}

std::string TextIn(const QJsonObject& object, const char* name)
{
    return Value(object, name).toString().toStdString();
}

Single LinesTotal(const QJsonObject& outcome)
{
    Single total = 0.0F;
    for (const QJsonValue line : Value(outcome, "srUses").toArray())
        total += SingleIn(line.toObject(), "useCost");
    return total;
}

RoadOutcome OutcomeIn(const QJsonObject& object)
{
    return {TextIn(object, "fireSize"),
            Value(object, "controlTime").toInt(),
            SingleIn(object, "totalScore"),
            SingleIn(object, "safetyScore"),
            SingleIn(object, "estimatedCost"),
            SingleIn(object, "estimatedLoss"),
            SingleIn(object, "costPerAcre"),
            SingleIn(object, "costBySize"),
            LinesTotal(object)};
}

std::string Block(const RoadOutcome& outcome)
{
    return "Size:  " + outcome.size + " acres. Control: " + platform::TextOf(outcome.control) +
           " days\nObjectives Score:  " + Format(outcome.objectives, "0.0") +
           "\nSafety Score:  " + Format(outcome.safety, "0.0") +
           "\nEstimated Cost:  " + Format(outcome.cost, "$#,0") +
           "\nEstimated Loss:  " + Format(outcome.loss, "$#,0");
}

} // namespace

std::string RoadFigures::TreeWords() const
{
    return label + "\nExpected Objectives Score:  " + Format(score, "0.0") +
           "\nExpected Safety Score:  " + Format(safety, "0.0") +
           "\nExpected Cost:  " + Format(cost, "$#,0") + "\nExpected Loss:  " + Format(loss, "$#,0") + "\n" +
           platform::TextOf(success) + "%\n" + platform::TextOf(100 - success) + "%\nTarget Outcome\n" +
           Block(target) + "\nExtreme Outcome\n" + Block(extreme);
}

RoadFigures RoadFigures::OfModel(c51Alternative& alternative)
{
    return {alternative.Label(),
            alternative.ExpectedScore(),
            alternative.ExpectedSafetyScore(),
            alternative.ExpectedCost(),
            alternative.ExpectedLoss(),
            alternative.Outcome(1)->Success(),
            OutcomeOfModel(*alternative.Outcome(1)),
            OutcomeOfModel(*g53Outcomes::ExtremeOutcome())};
}

RoadFigures RoadFigures::OfDocument(const QJsonObject& document, int place)
{
    const QJsonObject alternative = Value(document, "alternatives").toArray().at(place).toObject();
    const QJsonObject target = Value(alternative, "outcomes").toArray().at(0).toObject();
    return {TextIn(alternative, "label"),
            SingleIn(alternative, "expectedScore"),
            SingleIn(alternative, "expectedSafetyScore"),
            SingleIn(alternative, "expectedCost"),
            SingleIn(alternative, "expectedLoss"),
            Value(target, "success").toInt(),
            OutcomeIn(target),
            OutcomeIn(Value(document, "extremeOutcome").toObject())};
}

QJsonObject EvaluatedByCompanion(const std::string& path, const std::string& programFolder)
{
    QProcess companion;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEXA_HOME"), QString::fromStdString(programFolder));
    companion.setProcessEnvironment(environment);
    companion.start(QString::fromStdString(support::BuiltFile("vexa-cli")),
                    {QStringLiteral("evaluate"), QString::fromStdString(path)});
    if (!companion.waitForFinished() || companion.exitCode() != 0)
        throw std::runtime_error("vexa-cli: " + companion.readAllStandardError().toStdString());
    return QJsonDocument::fromJson(companion.readAllStandardOutput()).object();
}
