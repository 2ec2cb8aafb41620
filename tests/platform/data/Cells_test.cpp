#include "DataTest.h"

#include <cstdint>
#include <limits>

using platform::Currency;
using platform::DatabaseError;
using platform::Recordset;

namespace {

class CellsTest : public DataTest
{
protected:
    /// A cursor at a row whose one cell holds the value of an SQL expression, in a column of this type.
    Recordset Cell(const std::string& type, const std::string& expression)
    {
        database.reset();
        support::ExecuteSql(path,
                            "DROP TABLE IF EXISTS T; CREATE TABLE T (K INTEGER PRIMARY KEY, V " + type +
                                "); INSERT INTO T VALUES (1, " + expression + ")");
        Recordset row = Open().OpenTable("T");
        row.Seek(1);
        return row;
    }
};

Currency Money(std::int64_t tenThousandths) { return Currency::FromTenThousandths(tenThousandths); }

} // namespace

TEST_F(CellsTest, Null_ReadsAsTheEmptyValue)
{
    const Recordset row = Cell("INTEGER", "NULL");
    EXPECT_EQ(row.Text("V"), "");
    EXPECT_EQ(row.LongValue("V"), 0);
    EXPECT_EQ(row.SingleValue("V"), 0.0F);
    EXPECT_EQ(row.CurrencyValue("V"), Money(0));
    EXPECT_TRUE(row.IsNull("V"));
}

TEST_F(CellsTest, ALong_IsReadFromWhateverTheCellHolds)
{
    const struct
    {
        const char* type;
        const char* cell;
        Long value;
    } cases[] = {{"INTEGER", "7", 7},
                 {"REAL", "2.5", 2},
                 {"REAL", "3.5", 4},
                 {"TEXT", "'12'", 12},
                 {"TEXT", "'12 acres'", 12},
                 {"INTEGER", "'none'", 0},
                 {"TEXT", "'2.5'", 2},
                 {"", "x'3132'", 12},
                 {"INTEGER", "2147483647", 2147483647},
                 {"INTEGER", "-2147483648", std::numeric_limits<Long>::min()}};
    for (const auto& c : cases) {
        EXPECT_EQ(Cell(c.type, c.cell).LongValue("V"), c.value) << c.type << " " << c.cell;
    }
}

TEST_F(CellsTest, ALongBeyond32Bits_Throws)
{
    for (const char* cell :
         {"2147483648", "-2147483649", "1e12", "9e999", "'99999999999'", "'1e999'", "9223372036854775807"}) {
        const Recordset row = Cell("", cell);
        EXPECT_THROW(row.LongValue("V"), DatabaseError) << cell;
    }
}

TEST_F(CellsTest, ASingle_IsTheNearestAndThrowsBeyondItsRange)
{
    EXPECT_EQ(Cell("REAL", "0.1").SingleValue("V"), 0.1F);
    EXPECT_EQ(Cell("REAL", "16777217").SingleValue("V"), 16777216.0F);
    EXPECT_EQ(Cell("TEXT", "'1,5'").SingleValue("V"), 1.0F);
    EXPECT_EQ(Cell("INTEGER", "5").SingleValue("V"), 5.0F);
    for (const char* cell : {"1e39", "-1e39", "9e999", "'1e39'"}) {
        const Recordset row = Cell("", cell);
        EXPECT_THROW(row.SingleValue("V"), DatabaseError) << cell;
    }
}

TEST_F(CellsTest, Money_IsTheCellsExactValueToFourDecimals)
{
    const struct
    {
        const char* cell;
        std::int64_t money;
    } cases[] = {{"0", 0},
                 {"12", 120000},
                 {"-12.3456", -123456},
                 {"0.03125", 312},
                 {"0.09375", 938},
                 {"0.00005", 1},
                 {"'12.5 dollars'", 125000},
                 {"922337203685477", 9223372036854770000}};
    for (const auto& c : cases) {
        EXPECT_EQ(Cell("CURRENCY", c.cell).CurrencyValue("V"), Money(c.money)) << c.cell;
    }
    for (const char* cell : {"922337203685478", "1e15", "-1e15", "'1e300'"}) {
        const Recordset row = Cell("CURRENCY", cell);
        EXPECT_THROW(row.CurrencyValue("V"), DatabaseError) << cell;
    }
}

TEST_F(CellsTest, AMoneyColumn_IsRoundedToFourDecimalsBeforeAnythingElse)
{
    EXPECT_EQ(Cell("CURRENCY", "0.00004").SingleValue("V"), 0.0F);
    EXPECT_EQ(Cell("REAL", "0.00004").SingleValue("V"), 0.00004F);
    EXPECT_EQ(Cell("CURRENCY", "0.50004").LongValue("V"), 0);
    EXPECT_EQ(Cell("REAL", "0.50004").LongValue("V"), 1);
}

TEST_F(CellsTest, ATextOfANumber_IsItsShortest)
{
    EXPECT_EQ(Cell("REAL", "0.1").Text("V"), "0.1");
    EXPECT_EQ(Cell("REAL", "1250").Text("V"), "1250");
    EXPECT_EQ(Cell("INTEGER", "-7").Text("V"), "-7");
    EXPECT_EQ(Cell("TEXT", "5").Text("V"), "5");
}

TEST_F(CellsTest, WhatIsWritten_IsReadBack)
{
    MakeAndOpen("CREATE TABLE T (K INTEGER PRIMARY KEY, S REAL, D REAL, C CURRENCY, L INTEGER)");
    Recordset row = database->OpenTable("T");
    row.AddNew();
    row.Set("K", Long(1));
    row.Set("S", 0.1F);
    row.Set("D", 0.1);
    row.Set("C", Money(-123456789));
    row.Set("L", std::numeric_limits<Long>::min());
    row.Update();
    row.Seek(1);
    EXPECT_EQ(row.SingleValue("S"), 0.1F);
    EXPECT_EQ(std::get<Double>(row.Value("S")), Double(0.1F)) << "a single is stored widened";
    EXPECT_EQ(std::get<Double>(row.Value("D")), 0.1);
    EXPECT_EQ(row.CurrencyValue("C"), Money(-123456789));
    EXPECT_EQ(row.LongValue("L"), std::numeric_limits<Long>::min());
    EXPECT_EQ(Query("SELECT C, typeof(C) FROM T"), (support::Rows{{"-12345.6789", "real"}}));
}

TEST_F(CellsTest, WholeMoneyOfEverySize_IsStoredExactly)
{
    MakeAndOpen("CREATE TABLE T (K INTEGER PRIMARY KEY, C CURRENCY)");
    Recordset row = database->OpenTable("T");
    row.AddNew();
    row.Set("K", Long(1));
    row.Set("C", Money(9223372036854770000));
    row.Update();
    row.Seek(1);
    EXPECT_EQ(row.CurrencyValue("C"), Money(9223372036854770000));
    EXPECT_EQ(Query("SELECT C FROM T"), (support::Rows{{"922337203685477"}}));
}
