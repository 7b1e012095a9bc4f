#!/usr/bin/env bash
# watch_ctrl_c.sh PROGRAM OUTPUT: Ctrl+C ends `reminders watch` as asked for, with exit code 0.
set -euo pipefail

program=$1
output=$2
run=$(dirname -- "${BASH_SOURCE[0]}")/../../tools/wine-run

rm -f "$output"
"$run" "$program" watch </dev/null >"$output" 2>&1 &
watch=$!
trap 'kill -KILL "$watch" 2>/dev/null || true' EXIT

until grep -q '^Watching 0 reminders' "$output" 2>/dev/null; do
  kill -0 "$watch" || { cat "$output"; exit 1; }
  sleep 0.1
done
# What a terminal sends.
kill -INT "$watch"
status=0
wait "$watch" || status=$?
cat "$output"
if ((status != 0)); then
  echo "reminders watch ended with $status"
fi
exit "$status"
