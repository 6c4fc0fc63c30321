#!/usr/bin/env bash
# Navigation into folders of 1,000, 10,000 and 100,000 files: Tessel against a bare host of the
# same shell view, also with colours and a filter; the folder sizes of a tree of 100,000 files;
# the export of the largest list; back and forward against direct navigations; the address
# bar's sub-folder popup of 10,000 folders; the status worker in the largest folder. The folders
# are made once, from the host side, in build/bench-data. Run by scripts/bench.sh with the Wine environment set.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
. "$here/scripts/wine-env.sh"
data=$here/build/bench-data
mkdir -p "$data/empty"
for n in 1000 10000 100000; do
  [ -e "$data/complete-$n" ] && continue
  rm -rf "$data/files-$n" && mkdir -p "$data/files-$n"
  (cd "$data/files-$n" && seq -f 'f%06g.txt' 0 $((n - 1)) | xargs touch)
  touch "$data/complete-$n"
done
if [ ! -e "$data/complete-folders-10000" ]; then  # the address bar's popup reads these
  rm -rf "$data/folders-10000" && mkdir -p "$data/folders-10000"
  (cd "$data/folders-10000" && seq -f 'd%05g' 0 9999 | xargs mkdir)
  touch "$data/complete-folders-10000"
fi
if [ ! -e "$data/complete-tree-100000" ]; then  # the folder sizes walk these: 100 x 100 folders of 10 files
  rm -rf "$data/tree-100000"
  for a in $(seq -w 0 99); do
    for b in $(seq -w 0 99); do mkdir -p "$data/tree-100000/a$a/b$b"; done
    (cd "$data/tree-100000/a$a" && for b in b*; do printf '%s\n' "$b"/f{0..9}.dat; done | xargs touch)
  done
  touch "$data/complete-tree-100000"
fi
mkdir -p "$data/deep/level1/level2/level3/level4/level5/level6/level7/level8/level9/level10/level11/level12"
out=$(mktemp)
trap 'rm -f "$out"' EXIT
# Into a file: a command substitution would wait for Wine's helpers holding the pipe.
"$WINE" "$here/build/win64/bin/navigate_bench.exe" "Z:${data//\//\\}" > "$out" 2>/dev/null
tr -d '\r' < "$out"
