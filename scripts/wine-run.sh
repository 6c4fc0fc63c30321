#!/usr/bin/env bash
# Runs one Windows program under Wine (the test emulator of the win64 build); passes its exit code on.
. "$(dirname "$0")/wine-env.sh"
if [ -z "${DISPLAY:-}" ]; then
  echo "wine-run.sh: no DISPLAY; run under xvfb-run (make test does)" >&2
  exit 2
fi
exec "$WINE" "$@"
