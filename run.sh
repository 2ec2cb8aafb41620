#!/usr/bin/env bash
# ./run.sh [FILE]: installs what is missing, builds what changed and opens the file; without one, a working copy of
# the sample fire "Smith Creek". Without a display the fire's decision is printed instead.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
build=$here/build/release
bin=$build/bin

source "$here/tools/packages.sh"
# shellcheck disable=SC2086
need_packages $packages_build $packages_run

log=$build/run.log
mkdir -p "$build"

build_first_time() {
    echo "Building VEXA Basic. The first time takes some minutes." >&2
    cmake --preset release -S "$here" -B "$build" >"$log" 2>&1 && ninja -C "$build" >&2
}
build_changes() { ninja -C "$build" >"$log" 2>&1; }

if [ -f "$build/build.ninja" ]; then step=build_changes; else step=build_first_time; fi
"$step" || {
    cat "$log" >&2
    echo "The build failed. What it said stands above." >&2
    exit 1
}

if [ $# -gt 0 ]; then
    file=$*
else
    file="$bin/VEXAData/Smith Creek.qel"
    mkdir -p "$bin/VEXAData"
    [ -f "$file" ] || cp "$bin/samples/smith-creek.qel" "$file"
fi

display_is_there() {
    [ -n "${WAYLAND_DISPLAY:-}" ] && return 0
    case "${DISPLAY:-}" in
    "") return 1 ;;
    :*) local number=${DISPLAY#:} && [ -S "/tmp/.X11-unix/X${number%%.*}" ] ;;
    *) return 0 ;;
    esac
}

if display_is_there; then
    exec "$bin/vexa" "$file"
fi
echo "There is no display, so the decision of this fire is printed instead of shown: $file" >&2
"$bin/vexa-cli" table "$file"
report=$bin/VEXAData/$(basename "${file%.*}").pdf
mkdir -p "$bin/VEXAData"
"$bin/vexa-cli" report "$file" "$report"
echo "Its report: $report" >&2
