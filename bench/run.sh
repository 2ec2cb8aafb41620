#!/usr/bin/env bash
# bench/run.sh [BUILD]: every figure of speed beside its floor, measured in the same run, with the ratio that is
# allowed. BUILD is build/dev where none is named; it is brought up to date. Public programs that serve as a floor
# (unrtf, soffice, mdb-export, sqlite3) are used when they are installed; the desktop's start needs a display or Xvfb.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
build=${1:-build/dev}
[ -f "$build/CMakeCache.txt" ] || cmake --preset dev -B "$build" >/dev/null
cmake --build "$build" --target bench/all vexa vexa-cli >/dev/null

have() { command -v "$1" >/dev/null || { echo "left out: $2 needs $1" && return 1; }; }

python3 -c 'import sys; sys.path.insert(0, "bench"); import table; table.heading()'
"$build/bench/vexa_bench_evaluate" --benchmark_min_time=0.2 2>/dev/null | grep ' / '
narrative=$(mktemp)
trap 'rm -f "$narrative"' EXIT
"$build/bench/vexa_bench_richtext" make "$narrative"
"$build/bench/vexa_bench_richtext" write "$narrative"
for bench in editor open grid worksheets cost_lists preview; do
    TMPDIR=$([ -w /dev/shm ] && echo /dev/shm || echo "${TMPDIR:-/tmp}") "$build/bench/vexa_bench_$bench"
done
"$build/bench/vexa_bench_report" growth
if [ -n "${DISPLAY:-}" ]; then
    bench/processes.py "$build"
elif have xvfb-run "the start against a bare window"; then
    xvfb-run -a bench/processes.py "$build"
else
    bench/processes.py "$build"
fi
have mdb-export "the import against mdb-export" && bench/import.py "$build/bin/vexa-cli"
