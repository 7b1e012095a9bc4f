#!/usr/bin/env bash
# Runs the reminders console host, or shows what it does. Installs, builds and sets up what is missing.
set -euo pipefail
# shellcheck source=tools/common.sh
source "$(dirname -- "${BASH_SOURCE[0]}")/tools/common.sh"

prefix=$ts_build/wineprefix
export TS_WINEPREFIX=$prefix

help() {
  cat <<'END'
./run.sh                    shows the main job on sample reminders, in the console and in windows
./run.sh reminders ARGS...  runs the console host on the user's reminders, with its exit code
./run.sh --help             shows this

For example:
  ./run.sh reminders --help
  ./run.sh reminders list --filter today
END
}

reminders() {
  "$ts_root/tools/wine-run" "$ts_build/bin/reminders.exe" "$@"
}

# show COMMAND ARGS...: runs it after a line that shows it as one would type it.
show() {
  local argument line='$'
  for argument in "$@"; do
    [[ $argument == +([[:alnum:]_./:-]) ]] || argument=\'$argument\'
    line+=" $argument"
  done
  printf '\n%s\n' "$line"
  "$@"
}

# Lets programs of the prefix show windows on the user's display. Without one they draw nowhere.
use_display() {
  export TS_DISPLAY=$DISPLAY XAUTHORITY=${XAUTHORITY-$HOME/.Xauthority}
  [[ -d $prefix ]] || ts_locked setup ts_make_prefix "$prefix"
  if ! grep -qF '"Graphics"="x11,null"' "$prefix/user.reg"; then
    reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d x11,null /f >/dev/null
    # The driver is chosen when the first program starts.
    ts_await_wine "$prefix"
  fi
}

reg() {
  "$ts_root/tools/wine-run" reg.exe "$@"
}

# The reminders of the sample, at a morning that its dates are made for.
demonstrate() {
  local now=2026-11-21T09:00
  local team='{{7D1E5A40-93C2-4B6F-8E0D-21F4A6C85B13}-0}'
  local contract='{{7D1E5A40-93C2-4B6F-8E0D-21F4A6C85B13}-1}'
  local statement='{{7D1E5A40-93C2-4B6F-8E0D-21F4A6C85B13}-2}'
  cd "$ts_root"
  show reg import hosts/console/sample.reg
  show reminders list --at "$now"
  show reminders next "$statement" --count 4 --from "$now"
  show reminders snooze "$contract" 2h
  show reminders dismiss "$team"
  show reminders list --at "$now"
  show_windows
}

# The service and the application. Only on a display do they use the reminders of this prefix.
show_windows() {
  printf '\n'
  [[ -z ${DISPLAY-} ]] || use_display
  "$ts_root/tools/show-windows"
}

target=reminders
case ${1-} in
'')
  command=demonstrate
  target=programs
  ;;
reminders)
  command=reminders
  shift
  ;;
-h | --help)
  help
  exit
  ;;
*)
  ts_fail 2 "usage: ./run.sh [reminders ARGS...]; ./run.sh --help says more"
  ;;
esac

ts_exit_on_signals
ts_set_up "$target"
trap 'ts_await_wine "$prefix"' EXIT
if [[ $command == reminders ]]; then
  if [[ -n ${DISPLAY-} && " $* " == *' --dialog '* ]]; then
    use_display
  fi
  # The program hears of Ctrl+C, too, and its exit code counts.
  trap : INT
fi
"$command" "$@"
