#include "platform/base/Clock.h"
#include "platform/data/Schema.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/RichTextEdit.h"
#include "worksheets/EveryPlace.h"
#include "worksheets/TopicTest.h"

#include <QApplication>
#include <QFileInfo>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>

#include <clocale>
#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

// ---- Another language of the desktop, in a process of its own

/// What is typed, computed, shown and written, and whether the other language holds there at all.
constexpr const char* kWhatMustHold = "Language.*:RoadByKeys.*:Ratings.*:CostPerAcre.*:CostSummary.*:"
                                      "FromBound.*:TypedNumber.*:DecisionTreeDrawing*";

class Languages : public ::testing::Test
{
protected:
    /// Runs tests of this program on a desktop of that language; what they wrote is in `written`.
    int Run(const char* language, const char* zone, const QString& tests)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LOCPATH"), m_languages.path());
        environment.insert(QStringLiteral("LC_ALL"), Name(language));
        environment.insert(QStringLiteral("VEXA_TEST_LANGUAGE"), Name(language));
        environment.insert(QStringLiteral("TZ"), QString::fromUtf8(zone));
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--gtest_filter=") + tests});
        process.waitForFinished(-1);
        written = process.readAll().toStdString();
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    /// Makes the language known to the C library; false where this machine has no means to.
    bool Make(const char* language)
    {
        const QString source = QStringLiteral("/usr/share/i18n/locales/") + QString::fromUtf8(language);
        if (!QFileInfo::exists(source)) return false;
        QProcess::execute(QStringLiteral("localedef"),
                          {QStringLiteral("-i"),
                           QString::fromUtf8(language),
                           QStringLiteral("-f"),
                           QStringLiteral("UTF-8"),
                           m_languages.filePath(Name(language))});
        return QFileInfo::exists(m_languages.filePath(Name(language) + QStringLiteral("/LC_NUMERIC")));
    }
    void ExpectTheSame(const char* language, const char* zone)
    {
        if (!Make(language)) GTEST_SKIP() << "no sources of languages on this machine";
        EXPECT_EQ(Run(language, zone, QString::fromUtf8(kWhatMustHold)), 0) << written;
        EXPECT_THAT(written, HasSubstr("[       OK ] Language.IsTheOneWanted"));
        EXPECT_THAT(written, HasSubstr("[       OK ] RoadByKeys.EmptyFileToDecision_NoMouseIsNeeded"));
    }

    std::string written;

private:
    static QString Name(const char* language)
    {
        return QString::fromUtf8(language) + QLatin1String(".UTF-8");
    }

    QTemporaryDir m_languages;
};

TEST_F(Languages, DecimalCommas_EverythingReadsAndComputesTheSame)
{
    ExpectTheSame("de_DE", "Europe/Berlin");
}

TEST_F(Languages, LettersWithoutTheUsualCapitals_EverythingReadsAndComputesTheSame)
{
    ExpectTheSame("tr_TR", "Pacific/Chatham");
}

TEST_F(Languages, WrittenFromRightToLeft_EverythingReadsAndComputesTheSame)
{
    ExpectTheSame("ar_SA", "America/Los_Angeles");
}

/// Checked in the processes above; elsewhere there is nothing to check.
class Language : public WindowTest
{
protected:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("VEXA_TEST_LANGUAGE")) GTEST_SKIP() << "run by the test Languages";
    }
};

TEST_F(Language, IsTheOneWanted)
{
    EXPECT_EQ(std::string(std::setlocale(LC_CTYPE, nullptr)), qgetenv("VEXA_TEST_LANGUAGE").toStdString());
    EXPECT_EQ(QLocale::system().name(),
              qEnvironmentVariable("VEXA_TEST_LANGUAGE").section(QLatin1Char('.'), 0, 0));
}

TEST_F(Language, FiguresAndReading_AsAtHome)
{
    EXPECT_STREQ(std::localeconv()->decimal_point, ".");
    EXPECT_EQ(QLocale().toString(1.5), QStringLiteral("1.5"));
    EXPECT_EQ(QLocale().toString(25), QStringLiteral("25"));
    EXPECT_FALSE(QApplication::isRightToLeft());
    Start();
    EXPECT_EQ(window->layoutDirection(), Qt::LeftToRight);
}

TEST_F(Language, ColumnsDeclaredInSmallLetters_HaveTheirTypes)
{
    const std::string file = MakeFile("CREATE TABLE Small (A integer, B double, C text)", "Small.qel");
    platform::Database database(file, platform::Database::Mode::Exclusive);
    const auto table = platform::Schema(database).Definition("Small");
    ASSERT_EQ(table.columns.size(), 3u);
    EXPECT_EQ(table.columns[0].type, platform::ColumnType::Long);
    EXPECT_EQ(table.columns[1].type, platform::ColumnType::Double);
    EXPECT_EQ(table.columns[2].type, platform::ColumnType::Text);
}

// ---- Texts of other languages

class OtherScripts : public TopicTest
{
protected:
    // A fire's name in Hebrew with a number, and one in Arabic.
    const std::string kHebrew = "\u05e9\u05e8\u05e4\u05ea \u05d4\u05d4\u05e8 12 (\u05d3\u05e8\u05d5\u05dd)";
    const std::string kArabic = "\u062d\u0631\u064a\u0642 \u0627\u0644\u062c\u0628\u0644 3,5";
};

TEST_F(OtherScripts, NameWrittenFromTheRight_IsKeptAsTyped)
{
    StartWithNewFile();
    GoTo(2, 2);
    auto* name = Find<QLineEdit>("txtName");
    name->setFocus();
    name->insert(QString::fromStdString(kHebrew));
    EXPECT_THAT(Caption(), HasSubstr(kHebrew));
    GoTo(2, 1);
    EXPECT_EQ(Query("SELECT Body FROM Items WHERE ItemKey = 11"), (support::Rows{{kHebrew}}));
}

TEST_F(OtherScripts, NarrativeWrittenFromTheRight_IsKeptAsTyped)
{
    StartWithSample();
    GoTo(2, 3);
    Body().LoadFromMemory({});
    Body().setFocus();
    Body().insertPlainText(QString::fromStdString(kArabic));
    EXPECT_EQ(Body().Text(), kArabic);
    Leave();
    GoTo(2, 3);
    EXPECT_EQ(Body().Text(), kArabic);
}

// ---- Figures with a decimal comma, typed by habit

TEST_F(OtherScripts, DecimalCommaInARating_IsNotTaken)
{
    StartWithSample();
    GoTo(5, 3);
    auto* grid = Find<platform::Grid>("Grid1");
    grid->setFocus();
    grid->Select(1, 3);
    Key(Qt::Key_F2);
    ASSERT_TRUE(grid->IsEditing());
    Key(Qt::Key_A, Qt::ControlModifier);
    Keys("5,5");
    EXPECT_EQ(grid->EditText(), "55"); // a comma parts thousands and is no key of a rating
    Key(Qt::Key_Return);
    EXPECT_EQ(grid->Text(1, 3), "10");
}

// ---- A desktop that mirrors windows all the same

class Mirrored : public EveryPlace
{
protected:
    Mirrored() { QGuiApplication::setLayoutDirection(Qt::RightToLeft); }
    ~Mirrored() override { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }
};

TEST_F(Mirrored, EveryPlace_ShowsWithoutHarm)
{
    int places = 0;
    VisitAll([&places](QWidget& shown, const std::string& place) {
        EXPECT_FALSE(shown.grab().isNull()) << place;
        ++places;
    });
    EXPECT_GT(places, 30);
}

// ---- Clocks that jump

class Clocks : public TopicTest
{
protected:
    ~Clocks() override { platform::SetClock({}); }

    /// Every look at the clock finds it an hour earlier.
    void RunBackwards()
    {
        platform::SetClock([this] {
            return platform::LocalTime{2026, 11, 1, (m_hour-- % 24 + 24) % 24, 59, 59};
        });
    }

private:
    int m_hour = 23;
};

TEST_F(Clocks, TimeRunsBackwards_LogKeepsTheOrderOfWhatHappened)
{
    RunBackwards();
    StartWithSample();
    Mark();
    GoTo(3, 2);
    EXPECT_EQ(NewLines().at(0), " Start switch to section 3");
    EXPECT_EQ(NewLines().back(), " Finished switching worksheets");
}

TEST_F(Clocks, TimeRunsBackwards_FirstVisitSetsDateAndTimeOnce)
{
    StartWithNewFile();
    RunBackwards();
    GoTo(2, 2);
    const QString time = Find<QLineEdit>("txtCurrentTime")->text();
    EXPECT_EQ(Find<QLineEdit>("txtCurrentDate")->text(), QStringLiteral("11/01/2026"));
    GoTo(2, 3);
    GoTo(2, 2);
    EXPECT_EQ(Find<QLineEdit>("txtCurrentTime")->text(), time);
}

TEST_F(Clocks, TimeRunsBackwards_NothingTypedIsLost)
{
    StartWithSample();
    RunBackwards();
    GoTo(2, 3);
    TypeBody(" Wind shift.");
    Leave();
    GoTo(2, 3);
    EXPECT_THAT(Body().Text(), HasSubstr("Wind shift."));
    window->close();
    EXPECT_EQ(ErrorLog(), "");
}

/// The hour that a spring night has not, and the one that an autumn night has twice, are written like others.
TEST_F(Clocks, NightOfAChange_TimesAreThoseOfTheClock)
{
    std::vector<platform::LocalTime> times = {
        {2026, 3, 8, 1, 59, 59}, {2026, 3, 8, 3, 0, 0}, {2026, 11, 1, 1, 59, 59}, {2026, 11, 1, 1, 0, 0}};
    for (const platform::LocalTime& time : times) {
        platform::SetClock([time] { return time; });
        const std::string file = MakeFile({}, "Night" + platform::ShortTimeText(time) + ".qel");
        Start(file);
        GoTo(2, 2);
        EXPECT_EQ(Find<QLineEdit>("txtCurrentTime")->text().toStdString(), platform::ShortTimeText(time));
        EXPECT_EQ(Find<QLineEdit>("txtCurrentDate")->text().toStdString(), platform::DateText(time));
    }
}

} // namespace
