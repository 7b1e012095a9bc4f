#!/usr/bin/env bash
# ./test.sh [CTEST ARGS...]: builds everything and runs the tests, in a Wine prefix of their own.
# Installs and sets up what is missing. For one suite: ./test.sh -R NAME
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname -- "${BASH_SOURCE[0]}")/tools/common.sh"

prefix=$ts_build/testprefix
export TS_WINEPREFIX=$prefix
tests=

stop() {
  [[ -z $tests ]] || kill "$tests" 2>/dev/null || true
  ts_stop_wine "$prefix"
  remove_own_prefixes
}

# Some tests have a prefix of their own, which they make when they start.
remove_own_prefixes() {
  local own
  for own in "$prefix".*/; do
    [[ ! -d $own ]] || ts_remove_prefix "${own%/}"
  done
}

ts_exit_on_signals
ts_set_up all
ts_lock test
trap stop EXIT

remove_own_prefixes
ts_remove_prefix "$prefix"
ts_make_prefix "$prefix"
# One server for all tests. It ends by itself when this script is killed.
ts_in_wine "$prefix" "$ts_wine_server" -p10
# The first program of a server takes a second longer than the others.
"$ts_root/tools/wine-run" cmd.exe /c ver >"$ts_build/warm-up.log" 9>&-

# In the background, because the shell answers signals only while it waits.
cd "$ts_root"
ctest --preset default --parallel "${CTEST_PARALLEL_LEVEL:-$(nproc)}" --output-on-failure --no-tests=error \
  "$@" </dev/null 9>&- &
tests=$!
wait "$tests"
