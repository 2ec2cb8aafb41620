#!/usr/bin/env bash
# bench/run.sh [BUILD]: every figure of speed beside its floor, measured in the same run, with the ratio that is
# allowed. BUILD is build/dev where none is named; what is measured is brought up to date. Public programs that serve
# as a floor (unrtf, soffice, mdb-export, sqlite3) are used when they are installed; the desktop's start needs a
# display or Xvfb. Ends with status 1 when a part of it failed; a figure over its budget says so and is no failure.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
build=$(realpath -m "${1:-build/dev}")
[ -f "$build/CMakeCache.txt" ] || cmake --preset dev -B "$build" >/dev/null
cmake --build "$build" --target bench/all vexa vexa-cli >/dev/null

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
cp "$build/bin/QEL.new" "$home"
export VEXA_HOME=$home XDG_DATA_HOME=$home/data # logs and lists of files are no user's
export QT_LOGGING_RULES='*.warning=false'       # of what a screen lacks that is none
[ -w /dev/shm ] && export TMPDIR=/dev/shm       # a drive's moods are no part of a figure
status=0

part() { "$@" || { echo "failed: $*" && status=1; }; }
have() { command -v "$1" >/dev/null || { echo "left out: $2 needs $1" && return 1; }; }
figures() { "$build/bench/vexa_bench_evaluate" --benchmark_min_time=0.2 2>/dev/null | grep ' / '; }

python3 -c 'import sys; sys.path.insert(0, "bench"); import table; table.heading()'
part figures
"$build/bench/vexa_bench_richtext" make "$home/narrative.rtf"
part "$build/bench/vexa_bench_richtext" write "$home/narrative.rtf"
for bench in editor open grid worksheets cost_lists preview sections; do
    part "$build/bench/vexa_bench_$bench"
done
part "$build/bench/vexa_bench_report" growth
if [ -z "${DISPLAY:-}" ] && have xvfb-run "the start against a bare window"; then
    part xvfb-run -a bench/processes.py "$build"
else
    part bench/processes.py "$build"
fi
have mdb-export "the import against mdb-export" && part bench/import.py "$build/bin/vexa-cli"
exit "$status"
