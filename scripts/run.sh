#!/usr/bin/env bash
# Starts tessel.exe under Wine in a Wine virtual desktop. With a display it opens there and
# runs until closed. Without one it starts Xvfb, waits for the main window, saves a screenshot,
# prints its path, closes Tessel normally and exits 0. Arguments go to Tessel's command line.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
bin=$here/build/win64/bin
# Started through winctl, which puts each argument in double quotes on Tessel's command line
# (Wine quotes only arguments with blanks, and Tessel tells paths apart by their quotes).
exe="Z:${bin//\//\\}\\tessel.exe"
if [ -n "${DISPLAY:-}" ]; then
  . "$here/scripts/wine-env.sh"
  "$WINE" "$bin/winctl.exe" launch "$exe" "$@" >/dev/null
  exec "$WINESERVER" -w
fi

display=:$((90 + RANDOM % 400))
Xvfb "$display" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
export DISPLAY=$display
cleanup() { "$WINESERVER" -k 2>/dev/null || true; kill "$xvfb" 2>/dev/null || true; }
for _ in $(seq 50); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
. "$here/scripts/wine-env.sh"
trap cleanup EXIT

if ! "$WINE" "$bin/winctl.exe" launch "$exe" "$@" >/dev/null; then
  echo "run.sh: Tessel's main window did not appear" >&2
  exit 1
fi
sleep 1  # let the first paint finish
shot=$here/build/screenshot.png
import -window root "$shot"
echo "$shot"
"$WINE" "$bin/winctl.exe" close 20000
