#!/usr/bin/env bash
# Builds release and prints each measure beside its baseline, with the ratio, in one run.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
cmake --preset release >/dev/null
cmake --build --preset release
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
# Start-up is measured on a display; without one, on a virtual one.
if [ -z "${DISPLAY:-}" ]; then
  pipe=$(mktemp -u)
  mkfifo "$pipe"
  Xvfb -displayfd 7 -screen 0 1366x768x24 -nolisten tcp 7>"$pipe" 2>/dev/null &
  trap 'kill %1' EXIT
  read -r display <"$pipe"
  rm "$pipe"
  export DISPLAY=":$display"
fi
build/release/bench/velmora_bench --benchmark_repetitions=5 "$@"
