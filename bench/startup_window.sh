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
times=()
sets=()
for run in $(seq 0 10); do
  # Into a file: a command substitution would wait for Wine's helpers holding the pipe.
  "$WINE" "$bin/winctl.exe" launch "$exe" > "$work/launch.txt"
  out=$(tr -d '\r' < "$work/launch.txt")
  "$WINE" "$bin/winctl.exe" close 20000
  [ "$run" -eq 0 ] && continue  # the first start warms the caches
  times+=("$(sed -n 's/^window-ms: //p' <<<"$out")")
  sets+=("$(sed -n 's/^working-set-mb: //p' <<<"$out")")
done
median() { printf '%s\n' "$@" | sort -n | awk '{a[NR]=$1} END {print (NR%2 ? a[(NR+1)/2] : (a[NR/2]+a[NR/2+1])/2)}'; }
echo "Start to main window, 10 runs (ms): ${times[*]}"
echo "startup-window-ms: $(median "${times[@]}")"
echo "startup-window-working-set-mb: $(median "${sets[@]}")"
