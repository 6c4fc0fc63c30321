#!/usr/bin/env bash
# Selections in a folder of 100,000 files (select all, a click clearing it, the status that
# follows), clearing a filter, Back restoring a selection of 20,000, and stopping a worker stuck in
# a slow file system. Run by scripts/bench.sh.
set -euo pipefail
. "$(dirname "$0")/../scripts/bench-data.sh"
bench_files 20000 100000
bench_run selection_bench.exe
