#!/usr/bin/env bash
# The directory watch (10,000 files copied into a shown folder, the delay until a new file shows)
# and "%sel_files%" over 100,000 selected files. Run by scripts/bench.sh.
set -euo pipefail
. "$(dirname "$0")/../scripts/bench-data.sh"
bench_files 10000 100000
bench_run commands_bench.exe
