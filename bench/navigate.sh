#!/usr/bin/env bash
# Navigation into folders of 1,000, 10,000 and 100,000 files: Tessel against a bare host of the
# same shell view, also with colours and a filter; the folder sizes of a tree of 100,000 files;
# the export of the largest list; back and forward against direct navigations; the address
# bar's sub-folder popup of 10,000 folders; the status worker in the largest folder. Run by
# scripts/bench.sh.
set -euo pipefail
. "$(dirname "$0")/../scripts/bench-data.sh"
data=$bench_data
bench_files 1000 10000 100000
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
bench_run navigate_bench.exe
