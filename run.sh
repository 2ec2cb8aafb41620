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
{
    [ -f "$build/build.ninja" ] || cmake --preset release -S "$here" -B "$build"
    ninja -C "$build"
} >"$log" 2>&1 || {
    cat "$log" >&2
    echo "The build failed; what it said stands above and in $log" >&2
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
exec "$bin/vexa-cli" table "$file"
