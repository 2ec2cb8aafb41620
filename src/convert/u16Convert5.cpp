#include "convert/u16Convert5.h"

#include "convert/ConversionQuestion.h"
#include "convert/ConversionSteps.h"
#include "convert/Rows.h"
#include "platform/data/Schema.h"

#include <array>

namespace u16Convert5 {

namespace {

using platform::ColumnType;
using platform::Recordset;

constexpr Long kNumber = 5;

/// What every rich text of the program begins with.
#define VEXA_RICH_HEAD                                                                                       \
    "{\\rtf1\\ansi\\ansicpg1252\\uc0\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0\\fprq2 Arial;}}"               \
    "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue255;}"
constexpr const char* kRichStart = VEXA_RICH_HEAD "\\plain\\f0\\fs20 \\pard ";
constexpr const char* kRichEnd = "\\par }";
/// What stands in a stage III topic that nobody wrote in.
constexpr const char* kEmptyTopic = VEXA_RICH_HEAD "\\deftab1134\\plain\\f0\\fs20 }";
#undef VEXA_RICH_HEAD

/// An old key and the one that takes its place.
struct KeyPair
{
    Long old;
    Long now;
};

constexpr KeyPair kFixedItems[] = {
    {211, 52}, {212, 61}, {213, 62}, {214, 53}, {215, 55}, {216, 54}, {224, 57}, {231, 81}, {236, 88}};
constexpr KeyPair kStage2Topics[] = {{1, 141}, {2, 143}, {3, 144}, {4, 145}, {5, 146}, {6, 151}, {7, 153}};
/// The stage III topics came in two layouts, told apart by their number.
constexpr Long kLongLayout = 20;
constexpr KeyPair kStage3TopicsOf20[] = {{1, 162},
                                         {2, 165},
                                         {6, 167},
                                         {7, 169},
                                         {10, 172},
                                         {11, 173},
                                         {12, 174},
                                         {13, 175},
                                         {14, 181},
                                         {15, 182},
                                         {16, 183},
                                         {17, 187},
                                         {18, 184},
                                         {19, 185},
                                         {20, 188}};
constexpr Long kShortLayout = 17;
constexpr KeyPair kStage3TopicsOf17[] = {{2, 162},
                                         {3, 172},
                                         {4, 173},
                                         {5, 169},
                                         {6, 174},
                                         {7, 167},
                                         {8, 175},
                                         {9, 181},
                                         {10, 182},
                                         {11, 183},
                                         {12, 187},
                                         {13, 184},
                                         {14, 185},
                                         {16, 188}};

/// The new key of a row; 0 where it has none and the row is dropped without a word.
template <std::size_t count> Long NewKey(const KeyPair (&pairs)[count], Long old)
{
    for (const KeyPair& pair : pairs) {
        if (pair.old == old) {
            return pair.now;
        }
    }
    return 0;
}

void DropOldTables()
{
    platform::Schema schema(OpenDatabase());
    for (const char* table :
         {"ORLNAssessment", "ORLNRisk", "ORLNComplexity", "ORLNNeed", "ORLNRevalidation", "ORLNContents"}) {
        schema.DropTable(table);
    }
}

void ChangeOutcomesTable()
{
    platform::Schema(OpenDatabase()).AddColumn("Outcomes", {"SuccessRationale", ColumnType::Text});
}

void CreateRatings()
{
    platform::Schema(OpenDatabase())
        .CreateTable({"ORLNRatings",
                      {{"ItemKey", ColumnType::Automatic},
                       {"RatingValue", ColumnType::Long},
                       {"Description", ColumnType::Text}},
                      {"ItemKey"}});
}

void CreateResources()
{
    platform::Schema(OpenDatabase())
        .CreateTable({"ORLNResources",
                      {{"ItemKey", ColumnType::Long},
                       {"ItemIndex", ColumnType::Long},
                       {"ItemName", ColumnType::Text},
                       {"UnitsName", ColumnType::Text},
                       {"bTime", ColumnType::Boolean},
                       {"UnitCost", ColumnType::Currency},
                       {"Quantity", ColumnType::Long},
                       {"TimePeriods", ColumnType::Long}},
                      {"ItemKey"}});
}

void CreateContents()
{
    platform::Schema(OpenDatabase())
        .CreateTable({"ORLNContents",
                      {{"ItemKey", ColumnType::Long},
                       {"ItemName", ColumnType::Text},
                       {"bNeeded", ColumnType::Boolean},
                       {"bCompleted", ColumnType::Boolean},
                       {"ParentKey", ColumnType::Long},
                       {"ChildIndex", ColumnType::Long}},
                      {"ItemKey"}});
}

/// A key that is taken already fails: two rows cannot become one.
void RenumberFixedItems()
{
    Recordset items = OpenDatabase().OpenTable("Items");
    for (const KeyPair& pair : kFixedItems) {
        items.Seek(pair.old);
        if (!items.NoMatch()) {
            items.Edit();
            items.Set("ItemKey", pair.now);
            items.Update();
        }
    }
}

void AddItem(Recordset& items, Long key, const std::string& body)
{
    items.AddNew();
    items.Set("ItemKey", key);
    items.Set("Body", body);
    items.Update();
}

void CopyStage2Topics()
{
    Recordset items = OpenDatabase().OpenTable("Items");
    Rows::ForEach("ORLN2Topics", [&](const Recordset& topic) {
        const Long key = NewKey(kStage2Topics, topic.LongValue("Key"));
        const std::string body = topic.Text("Body");
        if (key != 0 && !body.empty()) {
            AddItem(items, key, PlainToRichText(body));
        }
    });
}

template <std::size_t count> void CopyStage3Rows(const KeyPair (&pairs)[count])
{
    Recordset items = OpenDatabase().OpenTable("Items");
    Rows::ForEach("ORLN3Topics", [&](const Recordset& topic) {
        const Long key = NewKey(pairs, topic.LongValue("Key"));
        // A null is no body that could differ; an empty text is one.
        if (key != 0 && !topic.IsNull("Body") && topic.Text("Body") != kEmptyTopic) {
            AddItem(items, key, topic.Text("Body"));
        }
    });
}

/// They are kept, though no worksheet shows them.
void CopyStage3Topics()
{
    const Long count = OpenDatabase().OpenTable("ORLN3Topics").RecordCount();
    if (count == kLongLayout) {
        CopyStage3Rows(kStage3TopicsOf20);
    } else if (count == kShortLayout) {
        CopyStage3Rows(kStage3TopicsOf17);
    }
}

void DropTopicTables()
{
    platform::Schema schema(OpenDatabase());
    schema.DropTable("ORLN2Topics");
    schema.DropTable("ORLN3Topics");
}

} // namespace

bool QueryConvertTo5()
{
    return ConversionQuestion::Ask({"All ORLN Stage I and Periodic Assessment data will be lost.",
                                    "All ORLN Stage II and most Stage III report sections will be saved.",
                                    "All VEXA Safety issues will be lost.",
                                    "All values for VEXA Threatened Items will be lost."},
                                   "All other VEXA data will be saved.");
}

void Convert41to5()
{
    ConversionSteps::Run("Convert41to5",
                         kNumber,
                         {DropOldTables,
                          ChangeOutcomesTable,
                          CreateRatings,
                          CreateResources,
                          CreateContents,
                          RenumberFixedItems,
                          CopyStage2Topics,
                          CopyStage3Topics,
                          DropTopicTables,
                          [] { Rows::WriteProperty("DataFormatID", "05.01.02"); }});
}

std::string PlainToRichText(std::string text)
{
    text.erase(text.find_last_not_of(' ') + 1); // blanks alone, no other white space
    std::string rich = kRichStart;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            i += text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n' ? 1 : 0;
            rich += "\\par ";
        } else {
            rich += text[i]; // backslashes and braces too: they are not escaped
        }
    }
    return rich + kRichEnd;
}

} // namespace u16Convert5
