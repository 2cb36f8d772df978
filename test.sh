#!/usr/bin/env bash
# Installs what is missing, checks the format, builds with sanitizers, fuzzes each decoder for some seconds and runs
# every test.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/check-format.sh
cmake --preset sanitize
cmake --build --preset sanitize
scripts/fuzz.sh 5
ctest --preset sanitize
