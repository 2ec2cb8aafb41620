// What a key, a move, a deletion, a new line and a copied line cost in a resource list of 300 lines, against
// one of 30 in the same file: both get the same by turns, each with the drawing that follows. The master list
// has 200 types. A folder in memory (TMPDIR) leaves the drive out of it.

#include "Measure.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "support/TempFolder.h"
#include "support/TestSession.h"
#include "values/c67SRUseList.h"
#include "vexa/Program.h"
#include "worksheets/CostGrids.h"
#include "worksheets/frm562SRUseList.h"

#include <QKeyEvent>
#include <QPushButton>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int kTurns = 15;
constexpr double kAllowed = 3.0;
constexpr Long kPosition = 0; // columns
constexpr Long kQuantity = 1;
constexpr Long kName = 2;

// Alternative 1001 has the short list (outcome 2), 1002 the long one (outcome 3).
const char* const kRows = R"(
CREATE TEMP TABLE n AS WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM c WHERE i < 300) SELECT i FROM c;
DELETE FROM SRTypes;
INSERT INTO SRTypes SELECT i, NULL, i, 'Resource of type ' || i, 'Type ' || i,
    CASE i % 5 WHEN 0 THEN 'item' ELSE 'time' END, 'days', 100 * i FROM n WHERE i <= 200;
INSERT INTO Items(ItemKey, ItemName, ParentKey, ChildIndex) VALUES (1001, 'Short', 26, 1), (1002, 'Long', 26, 2);
INSERT INTO Outcomes(ItemKey, ParentKey, ChildIndex, Success, CostSource) VALUES
    (2, 1001, 1, 100, 2), (3, 1002, 1, 100, 2), (4, 1001, 2, -1, 1), (5, 1002, 2, -1, 1);
INSERT INTO SRUses SELECT i, 2, i, i, 2, 1 FROM n WHERE i <= 30;
INSERT INTO SRUses SELECT 1000 + i, 3, i, 1 + i % 200, 2, 1 FROM n WHERE i <= 300;
)";

/// The dialog, and what a user does in it.
class List
{
public:
    explicit List(QWidget* window) : m_dialog(window)
    {
        m_dialog.Setup();
        m_dialog.show();
        QApplication::processEvents();
    }

    /// The outcome of that row, with nothing open.
    void Show(Long outcomeRow)
    {
        Grid("grdOutcomes").SetRow(0);
        Grid("grdOutcomes").SetRow(outcomeRow);
        QApplication::processEvents();
    }
    Long Lines() { return Lines_().Rows() - 1; }

    double Key()
    {
        Lines_().Select(Lines() / 2, kQuantity);
        QApplication::processEvents();
        return WithDrawing([] { Press(Qt::Key_1, QStringLiteral("1")); });
    }
    /// One place down and, not measured, back: two lines change in each.
    double Move()
    {
        const Long row = Lines() / 2;
        const double cost = MoveTo(row, row + 1);
        MoveTo(row + 1, row);
        return cost;
    }
    double Delete()
    {
        Lines_().Select(Lines() / 2, kName);
        Lines_().setFocus();
        QApplication::processEvents();
        return WithDrawing([] { Press(Qt::Key_Delete, QString()); });
    }
    double Add()
    {
        auto& master = *m_dialog.findChild<platform::ListBox*>(QStringLiteral("lstSRMaster"));
        master.SetListIndex(100);
        master.setFocus();
        return WithDrawing([] { Press(Qt::Key_Return, QString()); });
    }
    /// A copied line's share of the copy of the list onto itself; the copies go again.
    double Copy(Long outcomeRow, Long sourceRow)
    {
        auto& copy = *m_dialog.findChild<QPushButton*>(QStringLiteral("cmdCopy"));
        const Long lines = Lines();
        Grid("grdLists").SetRow(sourceRow);
        const double cost = WithDrawing([&copy] { copy.click(); });
        c67SRUseList& list = CostGrids::OutcomeIn(Grid("grdOutcomes"), outcomeRow)->SRUseList();
        while (list.SRUseCount() > lines)
            list.DeleteSRUse(list.SRUseCollection().At(list.SRUseCount())->ItemKey());
        return cost / double(lines);
    }

private:
    platform::Grid& Grid(const char* name)
    {
        return *m_dialog.findChild<platform::Grid*>(QString::fromUtf8(name));
    }
    platform::Grid& Lines_() { return Grid("grdSRList"); }

    static void Press(int key, const QString& text)
    {
        QWidget* focus = QApplication::focusWidget();
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(focus, &press);
    }
    static double WithDrawing(const std::function<void()>& work)
    {
        return bench::Milliseconds([&] {
            work();
            QApplication::processEvents();
        });
    }
    double MoveTo(Long row, Long place)
    {
        Lines_().Select(row, kPosition);
        QApplication::processEvents();
        Lines_().SetEditText(std::to_string(place));
        return WithDrawing([] { Press(Qt::Key_Return, QString()); });
    }

    frm562SRUseList m_dialog;
};

using Costs = std::map<std::string, std::vector<double>>;

void Turn(List& list, Long row, Costs& costs)
{
    list.Show(row);
    costs["key"].push_back(list.Key());
    costs["move"].push_back(list.Move());
    costs["delete"].push_back(list.Delete());
    costs["add"].push_back(list.Add());
    list.Show(row);
    costs["copied line"].push_back(list.Copy(row, row));
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int toolkitArguments = std::min(argc, 1);
    platform::Application application(toolkitArguments, argv);
    const support::TempFolder folder;
    const std::string fire = folder.Path() + "/fire.qel";
    support::CopyFile(support::BuiltFile("QEL.new"), fire);
    support::ExecuteSql(fire, kRows);
    Program program;
    program.Start(fire);
    List list(&program.Window());
    list.Show(1);
    const Long fewLines = list.Lines();
    list.Show(2);
    const Long manyLines = list.Lines();
    Costs few;
    Costs many;
    for (int turn = 0; turn < kTurns; ++turn) {
        Turn(list, 1, few);
        Turn(list, 2, many);
    }
    const std::string lines = std::to_string(manyLines) + " lines / among " + std::to_string(fewLines);
    for (const auto& [what, costs] : few)
        bench::PrintMedians(what + " among " + lines, many[what], costs, kAllowed);
    program.Window().close();
    return 0;
}
