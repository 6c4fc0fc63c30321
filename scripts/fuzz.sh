#!/usr/bin/env bash
# Runs every fuzz target for FUZZ_SECONDS (default 60) from its seed corpus in fuzz/corpus.
# Prints "fuzz-<target>-runs: N" per target; fails on any crash, leak or timeout, whose input is
# kept in build/fuzz/findings/<target>/.
set -uo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
seconds=${FUZZ_SECONDS:-60}
# Allocation stacks cost a third of the runs; a finding is re-run alone to see them.
export ASAN_OPTIONS=${ASAN_OPTIONS:-malloc_context_size=0}
bin=$here/build/fuzz/bin
failed=()
for exe in "$bin"/fuzz-*; do
  target=${exe##*/fuzz-}
  work=$here/build/fuzz/corpus/$target   # grows from run to run; the seeds stay untouched
  findings=$here/build/fuzz/findings/$target
  mkdir -p "$work" "$findings"
  log=$here/build/fuzz/$target.log
  "$exe" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=8192 -print_final_stats=1 \
    -artifact_prefix="$findings/" "$work" "$here/fuzz/corpus/$target" > "$log" 2>&1
  status=$?
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
  echo "fuzz-$target-runs: ${runs:-0}"
  if [ $status -ne 0 ]; then
    failed+=("$target")
    echo "  finding in $target (exit $status); input kept in $findings, log in $log:"
    grep -E 'ERROR|SUMMARY|Test unit written' "$log" | head -n 5 | sed 's/^/  /'
  fi
done
[ ${#failed[@]} -eq 0 ] || { echo "fuzz findings: ${failed[*]}"; exit 1; }
