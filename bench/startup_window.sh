#!/usr/bin/env bash
# Time from process start to Tessel's visible main window, Wine server warm, median of 10 runs.
# Run by scripts/bench.sh inside its display with the Wine environment set.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
bin=$here/build/win64/bin
. "$here/scripts/wine-env.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$bin/tessel.exe" "$work/"
printf '\xff\xfe' > "$work/Tessel.ini"  # portable: the benchmark leaves the user's settings alone
exe=$(WINEDEBUG=-all "$WINE" winepath -w "$work/tessel.exe" 2>/dev/null | tr -d '\r')
. "$here/scripts/bench-launch.sh"
launch_runs "$exe" working-set-mb
echo "Start to main window, 10 runs (ms): ${times[*]}"
echo "  median ms since the process was created, by step: $(split)"
echo "startup-window-ms: $(median "${times[@]}")"
echo "startup-window-working-set-mb: $(median "${memory[@]}")"
