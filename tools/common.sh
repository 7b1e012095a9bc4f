# shellcheck shell=bash
# Shared by the scripts: what must be installed, how the project is built, and its private Wine prefixes.
# To be sourced by bash scripts that run under `set -euo pipefail`.
#
# Everything that they make stands below build/:
#   wineprefix       prefix of ./run.sh and tools/wine-run; its registry holds the user's reminders
#   testprefix       prefix of ./test.sh, made anew by each run; testprefix.NAME is the one of a single test
#   wine/template    a pristine prefix, made once in about 8 s; the others are clones of it, in 0.1 s
#   wine/home, tmp   what Wine and its libraries would else write to the home directory and to /tmp

# With standard input closed, the next file that a program opens would become its input.
{ : <&0; } 2>/dev/null || exec </dev/null

ts_root=$(cd -P -- "${BASH_SOURCE[0]%/*}/.." && pwd)
ts_build=$ts_root/build
ts_wine=$ts_build/wine

# Debian's `wine` is a wrapper that complains on stderr when there is no 32-bit Wine; this is the loader itself.
ts_wine_loader=/usr/lib/wine/wine64
ts_wine_server=/usr/lib/wine/wineserver64

ts_packages=(cmake ninja-build g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 wine64
  googletest libcli11-dev nlohmann-json3-dev)

# Progress goes to stderr: stdout belongs to the program that is run.
ts_say() {
  printf '%s\n' "$*" >&2
}

# ts_fail CODE MESSAGE
ts_fail() {
  ts_say "${0##*/}: $2"
  exit "$1"
}

# Lets a script end through its EXIT trap when it is interrupted.
ts_exit_on_signals() {
  trap 'exit 129' HUP
  trap 'exit 130' INT
  trap 'exit 143' TERM
}

# ts_lock NAME: from here to its end, no other script runs under that name. Processes that may outlive the
# script must close descriptor 9, or they would keep the lock.
ts_lock() {
  mkdir -p "$ts_build"
  exec 9>"$ts_build/$1.lock"
  flock -n 9 || { ts_say "Waiting for another script of this folder ($1) ..." && flock 9; }
}

# ts_locked NAME COMMAND...: keeps the lock for the time of the command.
ts_locked() {
  (
    ts_lock "$1"
    shift
    "$@"
  )
}

# ts_quietly LOG COMMAND...: shows the command's output only when it fails.
ts_quietly() {
  local log=$1 status=0
  shift
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if ((status != 0)); then
    cat "$log" >&2
  fi
  return "$status"
}

# --- packages ---

# ts_apt_get ARGS...: as root, or through a sudo that asks for no password.
ts_apt_get() {
  local -a sudo=()
  ((EUID == 0)) || sudo=(sudo -n)
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 "$@"
}

# The package lists may be missing or too old to find the files, so a failed installation is tried once more.
ts_apt_get_install() {
  ts_apt_get install --no-install-recommends "$@" ||
    { ts_apt_get update && ts_apt_get install --no-install-recommends "$@"; }
}

# ts_require_packages PACKAGE...: installs those that are missing, or ends the script with code 2.
ts_require_packages() {
  local package installed
  local -a missing=()
  installed=" $(dpkg-query -W -f '${Package}=${db:Status-Status} ' "$@" 2>/dev/null || true)"
  for package in "$@"; do
    [[ $installed == *" $package=installed "* ]] || missing+=("$package")
  done
  if ((${#missing[@]} == 0)); then
    return
  fi
  if ((EUID != 0)) && ! sudo -n true 2>/dev/null; then
    ts_fail 2 "Debian packages are missing, and only root can install them: ${missing[*]}"
  fi
  ts_say "Installing Debian packages: ${missing[*]} ..."
  ts_quietly "$ts_build/install.log" ts_apt_get_install "${missing[@]}" 9>&- ||
    ts_fail 2 "these Debian packages could not be installed: ${missing[*]}"
}

# --- build ---

# A folder that was moved is configured afresh: CMake keeps absolute paths.
ts_configure() {
  local home="CMAKE_HOME_DIRECTORY:INTERNAL=$ts_root"
  if [[ -f $ts_build/build.ninja ]] && grep -qxF "$home" "$ts_build/CMakeCache.txt"; then
    return
  fi
  ts_say "Configuring the build ..."
  ts_quietly "$ts_build/configure.log" cmake --fresh -S "$ts_root" --preset default ||
    ts_fail 1 "the build cannot be configured"
}

# ts_build_target TARGET: says nothing when nothing has changed.
ts_build_target() {
  local -a quiet=(--quiet)
  if [[ $(ninja -C "$ts_build" -n "$1" 2>/dev/null) == *"no work to do."* ]]; then
    return
  fi
  if [[ -t 2 ]]; then
    quiet=()
  fi
  ts_say "Building $1 ..."
  cmake --build "$ts_build" --target "$1" -- "${quiet[@]}" >&2 || ts_fail 1 "the build failed"
}

# --- Wine ---

# ts_enter_wine PREFIX: sets the environment of Wine's programs. For a process that is about to become one.
ts_enter_wine() {
  [[ -d $ts_wine/home && -d $ts_wine/tmp ]] || mkdir -p "$ts_wine/home" "$ts_wine/tmp"
  unset WINEARCH WINELOADER WINESERVER WINEDLLPATH XDG_CACHE_HOME XDG_CONFIG_HOME XDG_DATA_HOME \
    XDG_RUNTIME_DIR WAYLAND_DISPLAY
  export WINEPREFIX=$1 WINEDEBUG=-all HOME=$ts_wine/home TMPDIR=$ts_wine/tmp \
    FONTCONFIG_FILE=$ts_wine/fonts.conf
  # No offers to install Mono and Gecko, no entries in the desktop's menus. With its crash debugger Wine may
  # report a crashed program as a success.
  export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe,winedbg.exe='
  if [[ -n ${TS_DISPLAY-} ]]; then
    export DISPLAY=$TS_DISPLAY
  else
    unset DISPLAY
  fi
  ts_use_utf8
}

# Wine reads arguments in the character set of the environment, which knows ASCII only when no locale is set
# or when the one that is set is not installed. Wine itself needs only the name, so a test whose arguments are
# ASCII gets any user's language and formats with TS_LOCALE.
ts_use_utf8() {
  if [[ -n ${TS_LOCALE-} ]]; then
    export LC_ALL=$TS_LOCALE 2>/dev/null
    return
  fi
  local umlaut=$'\xc3\xa4'
  if ((${#umlaut} != 1)) && [[ $(locale charmap 2>/dev/null) == ANSI_X3.4-1968 ]]; then
    export LC_ALL=C.UTF-8
  fi
}

# ts_in_wine PREFIX PROGRAM ARGS...
ts_in_wine() {
  (
    ts_enter_wine "$1"
    shift
    exec "$@" 9>&-
  )
}

# ts_stop_wine PREFIX: ends all programs of the prefix.
ts_stop_wine() {
  if [[ -d $1 ]]; then
    ts_in_wine "$1" "$ts_wine_server" -k || true
    ts_in_wine "$1" "$ts_wine_server" -w || true
  fi
}

# ts_await_wine PREFIX: waits until Wine's own processes have ended, as they do within a second of the last
# program. Somebody else may be working in the prefix; that one's end is not awaited.
ts_await_wine() {
  if [[ -d $1 ]]; then
    ts_in_wine "$1" timeout 5 "$ts_wine_server" -w || true
  fi
}

# ts_remove_prefix PREFIX: with its programs, and the folder of its server's socket, which its file "wineserver"
# names.
ts_remove_prefix() {
  ts_stop_wine "$1"
  if [[ -s $1/wineserver ]]; then
    rm -rf -- "${ts_wine:?}/tmp/$(<"$1/wineserver")"
  fi
  rm -rf -- "$1"
}

# The template is complete or absent: it is made under another name. It is made anew when Wine was upgraded.
ts_make_template() {
  local template=$ts_wine/template new=$ts_wine/template.new
  local stamp=$template/.update-timestamp status=0
  # Wine's stamp ends with a carriage return.
  if [[ -f $stamp && $(<"$stamp") == "$(stat -c %Y /usr/share/wine/wine.inf)"* ]]; then
    return
  fi
  ts_say "Creating the Wine prefix ..."
  ts_write_font_configuration
  ts_remove_prefix "$new"
  mkdir -p "$new"
  (
    trap 'ts_stop_wine "$new"' EXIT
    ts_exit_on_signals
    # In the background, because the shell answers signals only while it waits.
    ts_quietly "$ts_wine/template.log" ts_fill_template "$new" &
    wait $!
  ) || status=$?
  if ((status > 128)); then
    exit "$status"
  elif ((status != 0)); then
    ts_fail 1 "the Wine prefix cannot be created"
  fi
  ts_own_folders "$new"
  rm -rf "$template"
  mv "$new" "$template"
}

# Windows are drawn by the null driver: tests with windows need no display.
ts_fill_template() {
  ts_in_wine "$1" "$ts_wine_loader" wineboot.exe --init &&
    ts_in_wine "$1" "$ts_wine_loader" reg.exe add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
}

# Wine makes the user's folders (Documents and so on) links into the home directory.
ts_own_folders() {
  local link
  find "$1/drive_c/users" -type l | while read -r link; do
    rm "$link"
    mkdir "$link"
  done
}

# As root the font library would keep its cache below /var; of several cache folders it takes the first.
ts_write_font_configuration() {
  mkdir -p "$ts_wine"
  cat >"$ts_wine/fonts.conf" <<END
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <cachedir>$ts_wine/home/.cache/fontconfig</cachedir>
  <include ignore_missing="yes">/etc/fonts/fonts.conf</include>
</fontconfig>
END
}

# ts_make_prefix PREFIX: clones the template unless the prefix exists. Files are shared by hard links; the
# registry, which Wine keeps in *.reg, is the clone's own.
ts_make_prefix() {
  if [[ -d $1 ]]; then
    return
  fi
  ts_make_template
  rm -rf "$1.new"
  mkdir -p "$1.new"
  cp -al "$ts_wine/template/drive_c" "$1.new/"
  cp -a "$ts_wine/template/"{dosdevices,*.reg,.update-timestamp} "$1.new/"
  mv "$1.new" "$1"
}

# ts_set_up TARGET: all that a script needs before its work: packages, the built target, the template.
ts_set_up() {
  if [[ -e $ts_build && ! -O $ts_build ]]; then
    ts_fail 1 "$ts_build belongs to another user; work as that user, or remove it"
  fi
  ts_locked setup ts_do_set_up "$1"
}

ts_do_set_up() {
  ts_require_packages "${ts_packages[@]}"
  # For the compiler's temporary files.
  mkdir -p "$ts_build/tmp"
  export TMPDIR=$ts_build/tmp
  ts_configure
  ts_build_target "$1"
  ts_make_template
}
