# shellcheck shell=bash disable=SC2154
# A screen that nobody sees, with windows as on a user's screen. To be sourced after common.sh.

screen_server=

# start_screen SIZE: sets TS_DISPLAY. The server chooses a number that is free and tells it.
start_screen() {
  local number
  exec 8< <(exec Xvfb -displayfd 1 -screen 0 "$1x24" -nolisten tcp 2>"$ts_build/display.log" 9>&-)
  screen_server=$!
  read -r number <&8 || ts_fail 1 "no screen: see $ts_build/display.log"
  export TS_DISPLAY=:$number
}

stop_screen() {
  [[ -z $screen_server ]] || kill "$screen_server" 2>/dev/null || true
}

# make_drawn_prefix PREFIX: anew. Its windows are drawn. Wine does not find its fonts by itself.
make_drawn_prefix() {
  ts_remove_prefix "$1"
  ts_make_prefix "$1"
  cp --remove-destination /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$1/drive_c/windows/Fonts/"
  set_value "$1" 'HKCU\Software\Wine\Drivers' Graphics x11
}

# set_value PREFIX KEY VALUE DATA [TYPE]
set_value() {
  TS_WINEPREFIX=$1 "$ts_root/tools/wine-run" reg.exe add "$2" /v "$3" ${5:+/t "$5"} /d "$4" /f >/dev/null
}
