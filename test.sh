#!/usr/bin/env bash
# Installs what is missing, checks the format, builds with sanitizers and runs every test.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/check-format.sh
cmake --preset sanitize
cmake --build --preset sanitize
ctest --preset sanitize
scripts/fuzz.sh 5
