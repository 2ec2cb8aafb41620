// What a fire of 40 alternatives and 100 threatened items costs on the worksheets: a key typed in a rating, a
// loss or a size against the same key in a bare table that shows as many cells, by turns, each with the
// drawing that follows; and entering a worksheet against filling such a table.

#include "Measure.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/Grid.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/TabStrip.h"
#include "session/a1VEXA.h"
#include "support/GeneratedFire.h"
#include "support/TempFolder.h"
#include "vexa/Program.h"
#include "worksheets/frm02Tabs.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableWidget>

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kAlternatives = 40;
constexpr int kKeys = 300;
constexpr int kVisits = 15;
constexpr double kKeyAllowed = 2.0;
constexpr double kEntryAllowed = 3.0;

struct Sheet
{
    const char* name;
    int section;
    int tab;
    const char* grid;
    Long column;     // that a key is typed in
    const char* box; // that it is typed in instead; empty: none
};
constexpr Sheet kSheets[] = {
    {"rating of an outcome's safety", 5, 2, "Grid1", 3, ""},
    {"rating of an outcome", 5, 3, "Grid1", 3, ""},
    {"loss of an item", 5, 4, "grdImpacts", 3, ""},
    {"size of an outcome", 4, 3, "grdOutcomes", 2, "txtSize"},
};

using BareTable = std::unique_ptr<QTableWidget>;

/// A table of the toolkit with the texts and the place of a grid.
BareTable FillBare(const platform::Grid& grid)
{
    auto table = std::make_unique<QTableWidget>(grid.Rows() - 1, grid.Cols());
    for (Long row = 1; row < grid.Rows(); ++row) {
        for (Long column = 0; column < grid.Cols(); ++column)
            table->setItem(
                row - 1, column, new QTableWidgetItem(QString::fromStdString(grid.Text(row, column))));
    }
    for (Long column = 0; column < grid.Cols(); ++column) {
        table->setHorizontalHeaderItem(column,
                                       new QTableWidgetItem(QString::fromStdString(grid.Text(0, column))));
        table->setColumnWidth(column, grid.columnWidth(column));
    }
    table->verticalHeader()->hide();
    table->resize(grid.size());
    table->show();
    QApplication::processEvents();
    return table;
}

void Key(QWidget& editor, int key, const QString& text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&editor, &press);
    QApplication::sendEvent(&editor, &release);
    QApplication::processEvents();
}

/// Milliseconds of one key and what follows it: a digit, and at the next call its removal.
double CostOfAKey(QWidget& editor, int number)
{
    const bool digit = number % 2 == 0;
    return bench::Milliseconds(
        [&] { Key(editor, digit ? Qt::Key_5 : Qt::Key_Backspace, QString::fromUtf8(digit ? "5" : "")); });
}

class Bench
{
public:
    explicit Bench(frm0_VEXA& window) : m_window(window) {}

    void Measure(const Sheet& sheet)
    {
        Entry(sheet);
        Keys(sheet);
    }

private:
    void GoTo(int section, int tab)
    {
        m_window.Tabs()->vsTab1().SetCurrTab(section);
        m_window.Tabs()->vsTab2().SetCurrTab(tab);
        QApplication::processEvents();
    }
    platform::Grid& GridOf(const Sheet& sheet)
    {
        return *m_window.findChild<platform::Grid*>(QString::fromUtf8(sheet.grid));
    }
    QLineEdit& EditorOf(const Sheet& sheet, platform::Grid& grid)
    {
        if (*sheet.box != '\0') return *m_window.findChild<QLineEdit*>(QString::fromUtf8(sheet.box));
        grid.Select(2, sheet.column);
        grid.EditCell();
        QApplication::processEvents();
        return *grid.findChild<QLineEdit*>();
    }

    void Entry(const Sheet& sheet)
    {
        std::vector<double> ours;
        std::vector<double> bare;
        for (int visit = 0; visit < kVisits; ++visit) {
            GoTo(sheet.section, 1);
            ours.push_back(bench::Milliseconds([&] { GoTo(sheet.section, sheet.tab); }));
            BareTable table;
            bare.push_back(bench::Milliseconds([&] { table = FillBare(GridOf(sheet)); }));
        }
        bench::PrintMedians(
            std::string("entering, ") + sheet.name + " / bare table", ours, bare, kEntryAllowed);
    }

    void Keys(const Sheet& sheet)
    {
        GoTo(sheet.section, sheet.tab);
        platform::Grid& grid = GridOf(sheet);
        const BareTable table = FillBare(grid);
        m_window.activateWindow(); // the bare table's editor would close when it takes place later
        QApplication::processEvents();
        QLineEdit& editor = EditorOf(sheet, grid);
        editor.clear();
        table->setCurrentCell(1, sheet.column);
        table->editItem(table->item(1, sheet.column));
        auto* bareEditor = table->findChild<QLineEdit*>();
        bareEditor->clear();
        std::vector<double> ours;
        std::vector<double> bare;
        for (int key = 0; key < kKeys; ++key) {
            bare.push_back(CostOfAKey(*bareEditor, key));
            ours.push_back(CostOfAKey(editor, key));
        }
        bench::PrintMedians(
            std::string("a key in the ") + sheet.name + " / bare table", ours, bare, kKeyAllowed);
        GoTo(sheet.section, 1);
    }

    frm0_VEXA& m_window;
};

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int toolkitArguments = std::min(argc, 1);
    platform::Application application(toolkitArguments, argv);
    support::TempFolder folder;
    const std::string path = folder.File("Fire.qel");
    support::CopyFile(support::BuiltFile("QEL.new"), path);
    GenerateFire(path, kAlternatives);
    Program program;
    program.Start("");
    program.Window().resize(1200, 900);
    a1VEXA::StartWithFile(path);
    if (program.Window().Tabs() == nullptr) return 1;
    Bench worksheets(program.Window());
    for (const Sheet& sheet : kSheets)
        worksheets.Measure(sheet);
    program.Window().close();
    return 0;
}
