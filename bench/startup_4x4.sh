#!/usr/bin/env bash
# Start-up with a last state of four T-Views with four tabs each: time from process start to the
# main window, which shows once the T-View in use is listed (the others open right after: the
# split's "later-views" step); Wine server warm, median of 10 runs. Run by scripts/bench.sh
# inside its display with the Wine environment set.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
bin=$here/build/win64/bin
. "$here/scripts/wine-env.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$bin/tessel.exe" "$work/"
mkdir -p "$work/folders"
for v in 1 2 3 4; do
  for t in 0 1 2 3; do
    mkdir -p "$work/folders/v$v-t$t"
    (cd "$work/folders/v$v-t$t" && seq -f 'f%04g.txt' 0 199 | xargs touch)
  done
done
winpath() { printf 'Z:%s' "${1//\//\\}"; }
state() {  # the last state: layout 0, four T-Views, four tabs each, the second selected
  printf 'Tessel Version=4.19\r\nViewMode=0\r\n'
  for v in 1 2 3 4; do
    printf 'Folder%d=%s\r\n' "$v" "$(winpath "$work/folders/v$v-t1")"
    for t in 0 1 2 3; do
      printf 'Folder%d_%d=%s\r\nViewMode%d_%d=4\r\n' "$v" "$t" "$(winpath "$work/folders/v$v-t$t")" "$v" "$t"
      [ "$t" -eq 1 ] && printf 'CurSel%d_%d=1\r\n' "$v" "$t"
      printf 'CurPos%d_%d=%d\r\n' "$v" "$t" "$t"
    done
  done
  printf 'SP0=5000\r\nSP1=5000\r\nSP2=5000\r\nFocus=1\r\n\r\n'
}
exe=$(winpath "$work/tessel.exe")
fresh_state() {
  printf '\xff\xfe' > "$work/Tessel.ini"  # portable, so the data folder is this one
  { printf '\xff\xfe'; state | iconv -f UTF-8 -t UTF-16LE; } > "$work/start.tsf"
}
. "$here/scripts/bench-launch.sh"
launch_runs "$exe" peak-working-set-mb fresh_state
echo "Start with 4 T-Views x 4 tabs to main window, 10 runs (ms): ${times[*]}"
echo "  median ms since the process was created, by step: $(split)"
echo "startup-4x4-ms: $(median "${times[@]}")"
echo "startup-peak-working-set-mb: $(median "${memory[@]}")"
