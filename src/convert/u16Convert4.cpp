#include "convert/u16Convert4.h"

#include "convert/ConversionSteps.h"
#include "convert/Convert4Items.h"
#include "convert/Convert4Tables.h"
#include "convert/Rows.h"
#include "session/u14Properties.h"

namespace u16Convert4 {

namespace {

constexpr Long kNumber = 4;

void NameFormat()
{
    Rows::WriteProperty("DataFormatID", "04.01.01");
    u14Properties::Property_Set("ProgramID", "Standard");
}

} // namespace

void Convert4to41()
{
    ConversionSteps::Run("Convert4to41",
                         kNumber,
                         {ConvertOutcomesTable,
                          ConvertSRTypesTable,
                          ConvertSRUsesTable,
                          ConvertItemImpactsTable,
                          ConvertObjectivesTable,
                          ConvertRatingsTable,
                          CreateItemsTable,
                          AddGroups,
                          CopyPropertiesToItemsTable,
                          CopyVEXATopicsToItemsTable,
                          CopyAlternativesToItemsTable,
                          CopyManagementGoals,
                          CopyListOfItems,
                          MapItemImpacts,
                          NameFormat});
}

} // namespace u16Convert4
