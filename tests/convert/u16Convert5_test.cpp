#include "ConvertTest.h"
#include "convert/u16Convert5.h"

namespace {

using support::Rich;
using support::Rows;
using u16Convert5::PlainToRichText;

constexpr const char* kOld = "04.01.01-epaule-17";
constexpr const char* kEmptyTopic =
    "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 "
    "Arial;}}{\\colortbl;\\red0"
    "\\green0\\blue0;\\red255\\green255\\blue255;}\\deftab1134\\plain\\f0\\fs20 }";

class u16Convert5Test : public support::ConvertTest
{
protected:
    /// Stage III topics of these keys, each with its key as its body.
    void MakeStage3(int first, int last)
    {
        MakeOld(kOld,
                "DELETE FROM ORLN3Topics; DELETE FROM ORLN2Topics; WITH RECURSIVE n(k) AS (SELECT " +
                    std::to_string(first) + " UNION ALL SELECT k + 1 FROM n WHERE k < " +
                    std::to_string(last) + ") INSERT INTO ORLN3Topics (Key, Body) SELECT k, 'b' || k FROM n");
    }
    Rows Copied() { return Query("SELECT ItemKey, Body FROM Items WHERE ItemKey BETWEEN 140 AND 190"); }
};

} // namespace

TEST(PlainToRichText, EndsAndBreaks)
{
    const struct
    {
        const char* plain;
        const char* rich;
    } cases[] = {
        {"", ""},
        {"   ", ""},
        {"one", "one"},
        {"  one \t ", "  one \t"},
        {"one\r\ntwo", "one\\par two"},
        {"one\r\n", "one\\par "},       // an empty paragraph before the end
        {"one  \r\n  ", "one  \\par "}, // only blanks at the very end go
        {"one\r\n\r\ntwo", "one\\par \\par two"},
        {"one\ntwo\rthree", "one\\par two\\par three"},
        {"C:\\maps {3} \\par", "C:\\maps {3} \\par"}, // what means something in rich text is not escaped
        {"R\xC3\xADo", "R\xC3\xADo"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(PlainToRichText(c.plain), Rich(c.rich)) << c.plain;
    }
}

TEST_F(u16Convert5Test, OldAssessmentTables_GoAndTheNewOnesAreEmpty)
{
    MakeOld(kOld);
    ExpectOpens();
    EXPECT_EQ(
        Query("SELECT name FROM sqlite_schema WHERE name LIKE 'ORLN%' AND type = 'table' ORDER BY name"),
        (Rows{{"ORLNContents"}, {"ORLNRatings"}, {"ORLNResources"}}));
    EXPECT_EQ(
        Query("SELECT (SELECT count(*) FROM ORLNContents) + (SELECT count(*) FROM ORLNRatings) + (SELECT "
              "count(*) FROM ORLNResources)"),
        (Rows{{"0"}}));
    EXPECT_EQ(Query("INSERT INTO ORLNRatings (RatingValue) VALUES (5); SELECT ItemKey FROM ORLNRatings"),
              (Rows{{"1"}}));
}

TEST_F(u16Convert5Test, FixedItems_AreRenumberedWithAllTheyHold)
{
    MakeOld(kOld,
            "DELETE FROM Items WHERE ItemKey < 290; INSERT INTO Items (ItemKey, Body, ParentKey) VALUES "
            "(211,'a',1),"
            "(212,'b',2),(213,'c',3),(214,'d',4),(215,'e',5),(216,'f',6),(217,'g',7),(224,'h',8),(231,'i',9),"
            "(236,'j',10)");
    ExpectOpens();
    EXPECT_EQ(Query("SELECT ItemKey, Body, ParentKey FROM Items WHERE length(Body) = 1 ORDER BY Body"),
              (Rows{{"52", "a", "1"},
                    {"61", "b", "2"},
                    {"62", "c", "3"},
                    {"53", "d", "4"},
                    {"55", "e", "5"},
                    {"54", "f", "6"},
                    {"217", "g", "7"},
                    {"57", "h", "8"},
                    {"81", "i", "9"},
                    {"88", "j", "10"}}));
}

TEST_F(u16Convert5Test, NewKeyThatIsTaken_FailsWithTheStepTakenBackAndTheOnesBeforeItMade)
{
    MakeOld(kOld, "INSERT OR REPLACE INTO Items (ItemKey, Body) VALUES (224, 'x'), (57, 'taken')");
    ExpectFails();
    EXPECT_EQ(Format(), "04.01.01");
    EXPECT_EQ(Query("SELECT count(*) FROM Items WHERE ItemKey IN (52, 61)"), (Rows{{"0"}}));
    EXPECT_EQ(Query("SELECT count(*) FROM sqlite_schema WHERE name = 'ORLNRisk'"), (Rows{{"0"}}));
    EXPECT_NE(ErrorLog().find("UNIQUE constraint failed: Items.ItemKey"), std::string::npos) << ErrorLog();
}

TEST_F(u16Convert5Test, Stage2Topics_OutsideOneToSevenOrEmptyAreDroppedWithoutAWord)
{
    MakeOld(kOld,
            "DELETE FROM ORLN3Topics; DELETE FROM ORLN2Topics; INSERT INTO ORLN2Topics (Key, Body) VALUES "
            "(0,'0'),"
            "(1,'1 '),(2,''),(3,NULL),(4,' '),(5,'5'),(6,'6'),(7,'7'),(8,'8'),(-1,'-')");
    ExpectOpens();
    EXPECT_EQ(Copied(),
              (Rows{{"141", Rich("1")},
                    {"145", Rich("")},
                    {"146", Rich("5")},
                    {"151", Rich("6")},
                    {"153", Rich("7")}}));
}

TEST_F(u16Convert5Test, Stage3TopicsOfTwenty_GoByTheirTable)
{
    MakeStage3(1, 20);
    ExpectOpens();
    EXPECT_EQ(Copied(),
              (Rows{{"162", "b1"},
                    {"165", "b2"},
                    {"167", "b6"},
                    {"169", "b7"},
                    {"172", "b10"},
                    {"173", "b11"},
                    {"174", "b12"},
                    {"175", "b13"},
                    {"181", "b14"},
                    {"182", "b15"},
                    {"183", "b16"},
                    {"184", "b18"},
                    {"185", "b19"},
                    {"187", "b17"},
                    {"188", "b20"}}));
}

TEST_F(u16Convert5Test, Stage3TopicsOfSeventeen_GoByTheirs)
{
    MakeStage3(1, 17);
    ExpectOpens();
    EXPECT_EQ(Copied(),
              (Rows{{"162", "b2"},
                    {"167", "b7"},
                    {"169", "b5"},
                    {"172", "b3"},
                    {"173", "b4"},
                    {"174", "b6"},
                    {"175", "b8"},
                    {"181", "b9"},
                    {"182", "b10"},
                    {"183", "b11"},
                    {"184", "b13"},
                    {"185", "b14"},
                    {"187", "b12"},
                    {"188", "b16"}}));
}

TEST_F(u16Convert5Test, LayoutIsToldByTheNumberOfRowsAlone)
{
    MakeStage3(4, 20); // seventeen rows, though of the higher keys
    ExpectOpens();
    EXPECT_EQ(Copied()[0], (std::vector<std::string>{"167", "b7"}));
    for (const int last : {0, 16, 18, 19, 21}) {
        MakeStage3(1, last);
        ExpectOpens();
        EXPECT_EQ(Copied(), Rows()) << last;
    }
}

TEST_F(u16Convert5Test, Stage3BodyEqualToTheEmptyOne_IsDroppedAndAnyOtherKept)
{
    MakeStage3(1, 20);
    support::ExecuteSql(path,
                        std::string("UPDATE ORLN3Topics SET Body = '") + kEmptyTopic +
                            "' WHERE Key > 2; UPDATE ORLN3Topics SET Body = Body || ' ' WHERE Key = 6;"
                            "UPDATE ORLN3Topics SET Body = NULL WHERE Key = 7;"
                            "UPDATE ORLN3Topics SET Body = '' WHERE Key = 10");
    ExpectOpens();
    EXPECT_EQ(Copied(),
              (Rows{{"162", "b1"}, {"165", "b2"}, {"167", std::string(kEmptyTopic) + " "}, {"172", ""}}));
}

TEST_F(u16Convert5Test, MissingTable_FailsWithNothingChanged)
{
    MakeOld(kOld, "DROP TABLE ORLNNeed");
    const Rows before = Query("SELECT name FROM sqlite_schema ORDER BY name");
    ExpectFails();
    EXPECT_EQ(Query("SELECT name FROM sqlite_schema ORDER BY name"), before);
}
