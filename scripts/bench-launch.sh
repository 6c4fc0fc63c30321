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
    # Into a file: a command substitution would wait for Wine's helpers holding the pipe.
    "$WINE" "$bin/winctl.exe" launch "$exe" > "$work/launch.txt"
    out=$(tr -d '\r' < "$work/launch.txt")
    "$WINE" "$bin/winctl.exe" close 20000
    [ "$run" -eq 0 ] && continue
    times+=("$(sed -n 's/^window-ms: //p' <<<"$out")")
    memory+=("$(sed -n "s/^$figure: //p" <<<"$out")")
  done
}

median() { printf '%s\n' "$@" | sort -n | awk '{a[NR]=$1} END {print (NR%2 ? a[(NR+1)/2] : (a[NR/2]+a[NR/2+1])/2)}'; }
