#!/usr/bin/env bash
# Builds release and prints each measure beside its baseline, with the ratio, in one run.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
cmake --preset release >/dev/null
cmake --build --preset release
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
exec build/release/bench/velmora_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true "$@"
