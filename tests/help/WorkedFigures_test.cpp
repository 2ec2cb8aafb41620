#include "help/HelpSources.h"
#include "platform/base/Formats.h"
#include "session/u92Utilities.h"
#include "support/TempFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

// The figures in the help are those that the companion gives for the sample fire, and the sums in it come
// out.

namespace {

QJsonValue Evaluated()
{
    const support::TempFolder folder;
    const std::string copy = folder.File("Smith Creek.qel");
    support::CopyFile(support::BuiltFile("samples/smith-creek.qel"), copy);
    QProcess companion;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEXA_HOME"), QString::fromStdString(folder.Path()));
    companion.setProcessEnvironment(environment);
    companion.start(QString::fromStdString(support::BuiltFile("vexa-cli")),
                    {QStringLiteral("evaluate"), QString::fromStdString(copy)});
    companion.waitForFinished();
    return QJsonDocument::fromJson(companion.readAllStandardOutput()).object();
}

/// The figure at a place such as "/alternatives/1/expectedCost".
double FigureAt(const QJsonValue& all, const QString& place)
{
    QJsonValue value = all;
    for (const QString& step : place.mid(1).split(QLatin1Char('/'))) {
        value = value.isArray() ? value.toArray().at(step.toInt()) : value.toObject().value(step);
    }
    if (value.isString()) return value.toString().toDouble();
    if (!value.isDouble()) throw std::out_of_range(place.toStdString());
    return value.toDouble();
}

/// "7.2 × 75 / 100 + 5.0": products before sums, from the left.
double Value(const QString& sum)
{
    double total = 0;
    double product = 0;
    QString operation = QStringLiteral("+");
    double sign = 1;
    for (const QString& word : sum.simplified().split(QLatin1Char(' '))) {
        bool isNumber = false;
        const double number = QString(word).remove(QLatin1Char(',')).toDouble(&isNumber);
        if (!isNumber) {
            operation = word;
            continue;
        }
        if (operation == QString::fromUtf8("×")) {
            product *= number;
        } else if (operation == QLatin1String("/")) {
            product /= number;
        } else if (operation == QLatin1String("+") || operation == QString::fromUtf8("−")) {
            total += sign * product;
            sign = operation == QLatin1String("+") ? 1 : -1;
            product = number;
        } else {
            throw std::invalid_argument(operation.toStdString());
        }
    }
    return total + sign * product;
}

/// Decimals of the sums, without what binary arithmetic leaves of them.
long long Thousandths(double value) { return std::llround(value * 1000); }

/// A line of working: equal sums, then after the arrow the last one rounded.
void ExpectComesOut(const QString& line, const QString& digits)
{
    const QString plain = QString(line).remove(QRegularExpression(QStringLiteral("<[^>]*>")));
    const QStringList rounded = plain.split(QString::fromUtf8("→"));
    const QStringList sums = rounded.at(0).split(QLatin1Char('='));
    for (const QString& sum : sums)
        EXPECT_EQ(Thousandths(Value(sum)), Thousandths(Value(sums.at(0)))) << line.toStdString();
    EXPECT_EQ(rounded.size(), digits.isEmpty() ? 1 : 2) << line.toStdString();
    if (rounded.size() < 2) return;
    EXPECT_EQ(Thousandths(Value(rounded.at(1))),
              Thousandths(u92Utilities::RoundSignificant(Value(sums.back()), digits.toInt())))
        << line.toStdString();
}

TEST(WorkedFigures, MarkedFigures_AreTheCompanions)
{
    const QJsonValue all = Evaluated();
    const QRegularExpression marked(
        QStringLiteral("data-figure=\"([^\"]*)\" data-format=\"([^\"]*)\">([^<]*)</span>"));
    int count = 0;
    for (const auto& [page, text] : HelpSources().pages) {
        for (auto match = marked.globalMatch(text); match.hasNext(); ++count) {
            const auto figure = match.next();
            const double value = FigureAt(all, figure.captured(1));
            EXPECT_EQ(platform::Format(value, figure.captured(2).toStdString()),
                      figure.captured(3).toStdString())
                << page.toStdString() << ' ' << figure.captured(1).toStdString();
        }
        EXPECT_EQ(text.count(QLatin1String("class=\"figure\"")), text.count(marked)) << page.toStdString();
    }
    EXPECT_GT(count, 90);
}

TEST(WorkedFigures, Sums_ComeOut)
{
    const QRegularExpression working(
        QStringLiteral("<p class=\"working\"(?: data-digits=\"(\\d)\")?>(.*?)</p>"),
        QRegularExpression::DotMatchesEverythingOption);
    int count = 0;
    for (const auto& [page, text] : HelpSources().pages) {
        for (auto match = working.globalMatch(text); match.hasNext(); ++count) {
            const auto line = match.next();
            ExpectComesOut(line.captured(2), line.captured(1));
        }
    }
    EXPECT_GT(count, 14);
}

TEST(WorkedFigures, SumsThatDoNotComeOut_AreTold)
{
    EXPECT_EQ(Value(QString::fromUtf8("100 − 75 − 15")), 10);
    EXPECT_EQ(Value(QString::fromUtf8("24 × 430,000 + 31 × 60,000")), 12180000);
    EXPECT_EQ(Value(QStringLiteral("1 + 6 / 3")), 3);
    EXPECT_THROW(Value(QStringLiteral("1 ^ 2")), std::invalid_argument);
}

} // namespace
