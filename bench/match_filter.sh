#!/usr/bin/env bash
# Colour rules and view filter per listed item (native, optimised build).
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
"$here/build/native/bin/match_filter_bench"
