#!/usr/bin/env bash
# clang-tidy over the project's own sources, or over the files named.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset lint >/dev/null
cmake --build --preset lint # the generated headers of the forms must exist
if [ "$#" -gt 0 ]; then files=("$@"); else mapfile -t files < <(git ls-files 'src/*.cpp' 'tools/*.cpp'); fi
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/lint --quiet
