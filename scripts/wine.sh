#!/usr/bin/env bash
# Runs a Windows program of a build with Wine.
#   scripts/wine.sh BUILD_DIR PROGRAM [ARGUMENT...]
#   scripts/wine.sh BUILD_DIR --stop
# Each build has a Wine of its own, in BUILD_DIR/wine, with a drive D: and no display. It is made at the
# first run, and its server stays for some minutes, which makes the next runs fast.
set -euo pipefail
build=$(cd "$1" && pwd)
shift

readonly wine_dir=/usr/lib/wine
readonly server_seconds=300
export WINEPREFIX=$build/wine
export WINEPATH="Z:${build//\//\\}"  # where quorvex.dll is
export LC_ALL=C.UTF-8  # file names keep their letters
export WINEDEBUG=-all,err+module,err+process,err+server,err+virtual  # why a program could not start
# No offers to install what is not needed, and no debugger: it would wait for somebody where a program crashed.
export WINEDLLOVERRIDES="mscoree,mshtml,winedbg.exe="
unset DISPLAY

run=()
# Wine shares a page with its programs at 0x7ffe0000, close behind its own code. A heap that the system puts
# there at random, at one start in about five thousand, ends the program without a word.
if setarch --addr-no-randomize true 2>/dev/null; then  # some containers forbid it
  run+=(setarch --addr-no-randomize)
fi
# root passes every access check, and read-only files would open for writing.
if [[ $(id -u) -eq 0 ]]; then
  run+=(setpriv --inh-caps=-dac_override,-dac_read_search --bounding-set=-dac_override,-dac_read_search)
fi

# What Wine starts for itself outlives this script. It must not hold on to the caller's output, or whoever
# reads that to its end waits for minutes; nor to the lock.
quietly() { "${run[@]}" "$wine_dir/$1" "${@:2}" </dev/null >/dev/null 2>&1 9>&-; }

server_runs() { quietly wineserver64 --kill=0; }  # signal 0 only asks
stop_server() {
  quietly wineserver64 --kill || true  # fails when none runs
  quietly wineserver64 --wait
}

make_prefix() {
  echo "wine: making $WINEPREFIX" >&2
  stop_server
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX" "$build/drive_d"
  quietly wine64 wineboot --init
  # A driver that draws nowhere, so that message boxes work without a display.
  quietly wine64 reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f
  ln -sfn "$build/drive_d" "$WINEPREFIX/dosdevices/d:"  # Wine may have given it to a medium of this machine
  stop_server  # the driver is chosen when the server starts
  touch "$WINEPREFIX/ready"
}

start_server() {
  [[ -e $WINEPREFIX/ready ]] || make_prefix
  quietly wineserver64 --persistent=$server_seconds || true  # one may just have been started
  quietly wine64 wineboot  # its services
}

if [[ $1 == --stop ]]; then
  stop_server
  exit 0
fi
if [[ ! -e $WINEPREFIX/ready ]] || ! server_runs; then
  (flock 9; { [[ -e $WINEPREFIX/ready ]] && server_runs; } || start_server) 9>"$build/wine.lock"
fi
exec "${run[@]}" "$wine_dir/wine64" "$@"
