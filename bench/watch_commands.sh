#!/usr/bin/env bash
# The directory watch (10,000 files copied into a shown folder, the delay until a new file shows)
# and "%sel_files%" over 100,000 selected files. Run by scripts/bench.sh with the Wine environment set.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
. "$here/scripts/wine-env.sh"
data=$here/build/bench-data
mkdir -p "$data"
for n in 10000 100000; do  # made from the host side, which is much faster
  [ -e "$data/complete-$n" ] && continue
  rm -rf "$data/files-$n" && mkdir -p "$data/files-$n"
  (cd "$data/files-$n" && seq -f 'f%06g.txt' 0 $((n - 1)) | xargs touch)
  touch "$data/complete-$n"
done
out=$(mktemp)
trap 'rm -f "$out"' EXIT
# Into a file: a command substitution would wait for Wine's helpers holding the pipe.
"$WINE" "$here/build/win64/bin/commands_bench.exe" "Z:${data//\//\\}" > "$out" 2>/dev/null
tr -d '\r' < "$out"
