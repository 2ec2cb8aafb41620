#!/usr/bin/env bash
# ./test.sh: installs what is missing, builds everything and runs every test. Arguments go to ctest.
set -euo pipefail

here=$(dirname "$(readlink -f "$0")")
build=$here/build/dev

source "$here/tools/packages.sh"
# shellcheck disable=SC2086
need_packages $packages_build $packages_run $packages_test

[ -f "$build/build.ninja" ] || cmake --preset dev -S "$here" -B "$build"
ninja -C "$build"
exec ctest --test-dir "$build" --output-on-failure -j "$(nproc)" "$@"
