# Sourced by the benchmark scripts: the folders of files they share, made once from the host side
# (much faster than from Wine) in build/bench-data, and the run of a benchmark program.
. "$(dirname "${BASH_SOURCE[0]}")/wine-env.sh"
bench_data=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/bench-data
mkdir -p "$bench_data/empty"

# "files-<n>" with n empty files for each n given; a marker file says a folder is complete.
bench_files() {
  local n
  for n in "$@"; do
    [ -e "$bench_data/complete-$n" ] && continue
    rm -rf "$bench_data/files-$n" && mkdir -p "$bench_data/files-$n"
    (cd "$bench_data/files-$n" && seq -f 'f%06g.txt' 0 $((n - 1)) | xargs touch)
    touch "$bench_data/complete-$n"
  done
}

# Runs a benchmark program of build/win64/bin on the data folder and prints its figures.
bench_run() {
  local out rc=0
  out=$(mktemp)
  # Into a file: a command substitution would wait for Wine's helpers holding the pipe.
  "$WINE" "$(dirname "$bench_data")/win64/bin/$1" "Z:${bench_data//\//\\}" > "$out" 2>/dev/null || rc=$?
  tr -d '\r' < "$out"
  rm -f "$out"
  return $rc
}
