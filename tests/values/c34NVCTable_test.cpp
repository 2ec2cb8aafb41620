#include "platform/base/Errors.h"
#include "platform/data/DatabaseError.h"
#include "session/u14Properties.h"
#include "support/TestSession.h"
#include "values/ValueRows.h"
#include "values/c34NVCTable.h"

#include <gtest/gtest.h>

namespace {

using namespace value_rows;

class NVCTable : public support::TestSession
{
protected:
    c34NVCTable& Table(Long key = 0)
    {
        m_table.Initialize(key);
        return m_table;
    }

private:
    c34NVCTable m_table;
};

TEST_F(NVCTable, Cells_AreReadByResourceAndLevel)
{
    OpenNew(Nvc(0, 1, "-1,-2,-3,-4,-5,-6") + Nvc(0, 14, "7,8,9,10,11,12.5"));
    EXPECT_EQ(Table().NVCCellValue(1, 1), -1.0F);
    EXPECT_EQ(Table().NVCCellValue(1, 6), -6.0F);
    EXPECT_EQ(Table().NVCCellValue(14, 1), 7.0F);
    EXPECT_EQ(Table().NVCCellValue(14, 6), 12.5F);
    EXPECT_EQ(Table().NVCCellValue(2, 1), 0.0F);
}

TEST_F(NVCTable, MissingRowsAndNulls_ReadAsZero)
{
    OpenNew("DELETE FROM NVCPerAcre WHERE ResourceIndex = 3; UPDATE NVCPerAcre SET Fil2 = NULL;");
    EXPECT_EQ(Table().NVCCellValue(3, 1), 0.0F);
    EXPECT_EQ(Table().NVCCellValue(4, 2), 0.0F);
    EXPECT_EQ(Table(77).NVCCellValue(1, 1), 0.0F);
}

TEST_F(NVCTable, TextInACell_ReadsAsItsLeadingNumber)
{
    OpenNew(Nvc(0, 1, "'-12 per acre','none',0,0,0,0"));
    EXPECT_EQ(Table().NVCCellValue(1, 1), -12.0F);
    EXPECT_EQ(Table().NVCCellValue(1, 2), 0.0F);
}

TEST_F(NVCTable, CellBeyondASingle_FailsTheLoad)
{
    OpenNew(Nvc(0, 5, "0,0,1e39,0,0,0"));
    EXPECT_THROW(Table(), platform::DatabaseError);
}

TEST_F(NVCTable, IndexOutside_IsABoundsError)
{
    OpenNew();
    c34NVCTable& table = Table();
    for (const Long resource : {0, 15, -1}) {
        EXPECT_THROW(table.NVCCellValue(resource, 1), platform::OutOfBounds) << resource;
        EXPECT_THROW(table.SetNVCCellValue(resource, 1, 1), platform::OutOfBounds) << resource;
        EXPECT_THROW(table.NVCCellFilteredValue(resource, 1), platform::OutOfBounds) << resource;
        EXPECT_THROW(table.bResourceValue(resource), platform::OutOfBounds) << resource;
    }
    for (const Long fil : {0, 7}) {
        EXPECT_THROW(table.NVCCellValue(1, fil), platform::OutOfBounds) << fil;
        EXPECT_THROW(table.SetNVCCellValue(1, fil, 1), platform::OutOfBounds) << fil;
        EXPECT_THROW(table.FilTotal(fil), platform::OutOfBounds) << fil;
    }
}

TEST_F(NVCTable, TableOfZeros_HasNoTotalsAndNoValues)
{
    OpenNew();
    c34NVCTable& table = Table();
    for (Long fil = 1; fil <= 6; ++fil) {
        EXPECT_EQ(table.FilTotal(fil), 0.0F) << fil;
    }
    for (Long resource = 1; resource <= 14; ++resource) {
        EXPECT_FALSE(table.bResourceValue(resource)) << resource;
    }
}

TEST_F(NVCTable, GainsSwitchedOff_CountAsZeroButStillShow)
{
    OpenNew(Nvc(0, 1, "100,0,0,0,0,0") + Nvc(0, 2, "-30,0,0,0,0,0"));
    c34NVCTable& table = Table();
    EXPECT_EQ(table.NVCCellValue(1, 1), 100.0F);
    EXPECT_EQ(table.NVCCellFilteredValue(1, 1), 0.0F);
    EXPECT_EQ(table.NVCCellFilteredValue(2, 1), -30.0F);
    EXPECT_EQ(table.FilTotal(1), -30.0F);
    EXPECT_FALSE(table.bResourceValue(1));
    EXPECT_TRUE(table.bResourceValue(2));
}

TEST_F(NVCTable, AnyTextButNo_LetsGainsCount)
{
    for (const char* value : {"Yes", "no", "NO", "No ", "", "0"}) {
        OpenNew(Nvc(0, 1, "100,0,0,0,0,0") + "INSERT INTO Properties VALUES ('UseNVCGains','" + value +
                "');");
        EXPECT_EQ(Table().NVCCellFilteredValue(1, 1), 100.0F) << value;
        EXPECT_EQ(Table().FilTotal(1), 100.0F) << value;
        EXPECT_TRUE(Table().bResourceValue(1)) << value;
    }
}

TEST_F(NVCTable, ChangedProperty_TakesEffectAtTheNextCell)
{
    OpenNew(Nvc(0, 1, "100,0,0,0,0,0"));
    c34NVCTable& table = Table();
    EXPECT_EQ(table.FilTotal(1), 0.0F);
    u14Properties::Property_Set("UseNVCGains", "Yes");
    EXPECT_EQ(table.FilTotal(1), 100.0F);
    u14Properties::Property_Set("usenvcgains", "No");
    EXPECT_EQ(table.FilTotal(1), 0.0F);
}

TEST_F(NVCTable, PropertyOfAnotherFile_IsLookedUpAgain)
{
    const std::string gain = Nvc(0, 1, "100,0,0,0,0,0");
    OpenNew(gain + "INSERT INTO Properties VALUES ('UseNVCGains','Yes');");
    EXPECT_EQ(Table().FilTotal(1), 100.0F);
    OpenNew(gain);
    EXPECT_EQ(Table().FilTotal(1), 0.0F);
}

TEST_F(NVCTable, FirstFilteredCell_AddsThePropertyAlsoForALoss)
{
    OpenNew();
    Table().NVCCellValue(1, 1);
    EXPECT_EQ(u14Properties::Property_Get("UseNVCGains"), "");
    Table().NVCCellFilteredValue(1, 1);
    EXPECT_EQ(u14Properties::Property_Get("UseNVCGains"), "No");
}

TEST_F(NVCTable, FilTotal_IsRoundedToThreeDigits)
{
    OpenNew(Nvc(0, 1, "-1234,-1000,-0.1234,-1235,-1245,-99.95") + Nvc(0, 2, "-0.4,0,0,0,0,0"));
    EXPECT_EQ(Table().FilTotal(1), -1230.0F);
    EXPECT_EQ(Table().FilTotal(2), -1000.0F);
    EXPECT_EQ(Table().FilTotal(3), -0.123F);
    EXPECT_EQ(Table().FilTotal(4), -1240.0F); // 123.5 halves to even
    EXPECT_EQ(Table().FilTotal(5), -1240.0F); // 124.5 halves to even
    EXPECT_EQ(Table().FilTotal(6), -99.9F);   // the single nearest to 99.95 lies below it
}

TEST_F(NVCTable, FilTotal_OfAPowerOfTen_KeepsADigitMore)
{
    OpenNew(Nvc(0, 1, "-999.9,-1000,-1001,0,0,0"));
    EXPECT_EQ(Table().FilTotal(1), -1000.0F);
    EXPECT_EQ(Table().FilTotal(2), -1000.0F);
    EXPECT_EQ(Table().FilTotal(3), -1000.0F); // the next power of ten is 10000, the step 10
}

TEST_F(NVCTable, FilTotal_AddsInSinglesInOrder)
{
    // In doubles the sum would be 8 and -8; in singles each 4 is half a step and lost.
    OpenNew(Nvc(0, 1, "-100000000,-4,0,0,0,0") + Nvc(0, 2, "-4,-4,0,0,0,0") + Nvc(0, 3, "-4,0,0,0,0,0") +
            Nvc(0, 4, "100000000,100000000,0,0,0,0") + Nvc(0, 5, "0,-100000000,0,0,0,0") +
            "INSERT INTO Properties VALUES ('UseNVCGains','Yes');");
    EXPECT_EQ(Table().FilTotal(1), 0.0F);
    EXPECT_EQ(Table().FilTotal(2), -8.0F);
}

TEST_F(NVCTable, FilTotal_BeyondASingle_IsAnOverflow)
{
    OpenNew(Nvc(0, 1, "-3e38,0,0,0,0,0") + Nvc(0, 2, "-3e38,0,0,0,0,0"));
    c34NVCTable& table = Table();
    EXPECT_THROW(table.FilTotal(1), platform::Overflow);
    EXPECT_EQ(table.FilTotal(2), 0.0F);
}

TEST_F(NVCTable, SaveChanges_WritesAllRows)
{
    OpenNew();
    c34NVCTable& table = Table();
    table.SetNVCCellValue(2, 3, -45.5F);
    EXPECT_EQ(table.NVCCellValue(2, 3), -45.5F);
    table.SaveChanges();
    EXPECT_EQ(Query("SELECT FMZKey, ResourceIndex, Fil3 FROM NVCPerAcre WHERE Fil3 <> 0"),
              (support::Rows{{"0", "2", "-45.5"}}));
}

TEST_F(NVCTable, SaveChanges_NothingChanged_WritesNothing)
{
    OpenNew("DELETE FROM NVCPerAcre;"); // a write would fail
    EXPECT_NO_THROW(Table().SaveChanges());
}

TEST_F(NVCTable, SaveChanges_EqualValueWritten_CountsAsAChange)
{
    OpenNew("DELETE FROM NVCPerAcre;");
    c34NVCTable& table = Table();
    table.SetNVCCellValue(1, 1, 0);
    EXPECT_THROW(table.SaveChanges(), platform::DatabaseError);
}

TEST_F(NVCTable, SaveChanges_MissingRow_FailsAtTheEditAndAddsNone)
{
    OpenNew("DELETE FROM NVCPerAcre WHERE ResourceIndex = 9;");
    c34NVCTable& table = Table();
    table.SetNVCCellValue(1, 1, -5);
    EXPECT_THROW(table.SaveChanges(), platform::DatabaseError);
    EXPECT_EQ(Query("SELECT count(*) FROM NVCPerAcre"), (support::Rows{{"13"}}));
}

TEST_F(NVCTable, SaveChanges_Done_IsNotRepeated)
{
    OpenNew();
    c34NVCTable first;
    first.Initialize(0);
    first.SetNVCCellValue(1, 1, -5);
    first.SaveChanges();
    c34NVCTable second;
    second.Initialize(0);
    second.SetNVCCellValue(1, 1, -6);
    second.SaveChanges();
    first.SaveChanges();
    EXPECT_EQ(Query("SELECT Fil1 FROM NVCPerAcre WHERE ResourceIndex = 1"), (support::Rows{{"-6.0"}}));
}

} // namespace
