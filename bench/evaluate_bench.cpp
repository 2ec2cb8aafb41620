// Every figure of a file, from open to the last one, against reading every row once through the bare engine;
// and how the first grows from 100 to 1,000 alternatives. Prints Google Benchmark's figures, then the ratios
// of medians.

#include "BareRead.h"
#include "EveryFigure.h"
#include "Measure.h"
#include "common/ConnectConversions.h"
#include "common/ConnectStores.h"
#include "platform/base/ProgramFolder.h"
#include "support/GeneratedFire.h"
#include "support/ScriptedDesktop.h"
#include "support/TempFolder.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

namespace {

/// Keeps the medians beside the usual output.
class Medians : public benchmark::ConsoleReporter
{
public:
    Medians() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.aggregate_name == "median") {
                m_medians[run.run_name.function_name] = run.GetAdjustedCPUTime();
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }
    void PrintRatio(const std::string& what, const std::string& a, const std::string& b, double limit) const
    {
        if (m_medians.count(a) == 0 || m_medians.count(b) == 0) {
            return; // left out by a filter
        }
        bench::PrintRow(what, m_medians.at(a), m_medians.at(b), limit);
    }

private:
    std::map<std::string, double> m_medians;
};

template <double (*Work)(const std::string&)> void Register(const std::string& name, const std::string& path)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [path](benchmark::State& state) {
                                     for (auto _ : state) {
                                         benchmark::DoNotOptimize(Work(path));
                                     }
                                 })
        ->Repetitions(9)
        ->ReportAggregatesOnly()
        ->Unit(benchmark::kMillisecond);
}

void RegisterPair(const std::string& name, const std::string& path)
{
    Register<BareRead>(name + ".bare", path);
    Register<EveryFigure>(name + ".figures", path);
}

} // namespace

int main(int argc, char** argv)
{
    const support::TempFolder folder;
    const std::string built = std::string(argv[0]).substr(0, std::string(argv[0]).rfind('/')) + "/../bin/";
    platform::SetProgramFolder(folder.Path());
    support::ScriptedDesktop desktop;
    platform::SetDesktop(&desktop);
    ConnectStores();
    ConnectConversions();

    support::CopyFile(built + "samples/smith-creek.qel", folder.File("smith-creek.qel"));
    RegisterPair("smith-creek", folder.File("smith-creek.qel"));
    for (const int alternatives : {100, 1000}) {
        const std::string name = "fire-of-" + std::to_string(alternatives);
        support::CopyFile(built + "QEL.new", folder.File(name + ".qel"));
        GenerateFire(folder.File(name + ".qel"), alternatives);
        RegisterPair(name, folder.File(name + ".qel"));
    }

    benchmark::Initialize(&argc, argv);
    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    medians.PrintRatio(
        "every figure of Smith Creek / bare read of the file", "smith-creek.figures", "smith-creek.bare", 5);
    medians.PrintRatio(
        "every figure of 1,000 alternatives / bare read", "fire-of-1000.figures", "fire-of-1000.bare", 5);
    medians.PrintRatio(
        "every figure of 1,000 / of 100 alternatives", "fire-of-1000.figures", "fire-of-100.figures", 11);
    return 0;
}
