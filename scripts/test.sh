#!/usr/bin/env bash
# Runs every test, native and under Wine, as one ctest run inside one virtual display.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
cat > "$here/build/CTestTestfile.cmake" <<'CTEST'
# Both builds' tests as one run.
subdirs("native")
subdirs("win64")
CTEST
exec xvfb-run -a -s "-screen 0 1280x800x24 -nolisten tcp" bash -c '
  . "'"$here"'/scripts/wine-env.sh"
  tessel_wine_warm
  cd "'"$here"'/build"
  ctest --output-on-failure -j2; status=$?
  "$WINESERVER" -k 2>/dev/null || true
  exit $status'
