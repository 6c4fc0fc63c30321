#!/usr/bin/env bash
# Runs the benchmarks; each prints its figures as "name: value" lines.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
exec xvfb-run -a -s "-screen 0 1280x800x24 -nolisten tcp" bash -c '
  . "'"$here"'/scripts/wine-env.sh"
  tessel_wine_warm
  for bench in "'"$here"'"/bench/*.sh; do [ -e "$bench" ] && bash "$bench"; done
  "$WINESERVER" -k 2>/dev/null || true'
