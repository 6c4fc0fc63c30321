# Sourced by the start-up benchmarks: starts Tessel 11 times through winctl (the first start
# only warms the caches) and collects the start times and one memory figure of the other 10.
# launch_runs <windows exe path> <winctl memory figure name> [function run before each start]
# leaves the figures in the arrays `times` and `memory`; `median` prints the median of its arguments.
launch_runs() {
  local exe=$1 figure=$2 prepare=${3:-} out
  times=()
  memory=()
  for run in $(seq 0 10); do
    [ -n "$prepare" ] && "$prepare"
    rm -f "$work/trace.txt"
    # Into a file: a command substitution would wait for Wine's helpers holding the pipe.
    TESSEL_START_TRACE="Z:${work//\//\\}\\trace.txt" "$WINE" "$bin/winctl.exe" launch "$exe" > "$work/launch.txt"
    out=$(tr -d '\r' < "$work/launch.txt")
    "$WINE" "$bin/winctl.exe" close 20000
    [ "$run" -eq 0 ] && continue
    times+=("$(sed -n 's/^window-ms: //p' <<<"$out")")
    cat "$work/trace.txt" >> "$work/traces.txt" 2>/dev/null || true
    memory+=("$(sed -n "s/^$figure: //p" <<<"$out")")
  done
}

# The median time of each start-up step over the runs (ms since the process was created).
split() {
  local step line=""
  for step in $(awk -F': ' '!seen[$1]++ { print $1 }' "$work/traces.txt"); do
    line+="${line:+, }$step $(median $(sed -n "s/^$step: //p" "$work/traces.txt"))"
  done
  echo "$line"
}

median() { printf '%s\n' "$@" | sort -n | awk '{a[NR]=$1} END {print (NR%2 ? a[(NR+1)/2] : (a[NR/2]+a[NR/2+1])/2)}'; }
