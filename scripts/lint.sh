#!/usr/bin/env bash
# Plain text everywhere, then clang-tidy over the project's own sources, or over the files named, with the build that
# ./test.sh makes.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/check-text.sh
build=build/sanitize
if [ ! -f "$build/src/velmora_ui_autogen/include/ui_frmMain.h" ]; then
  cmake --preset sanitize >/dev/null
  cmake --build --preset sanitize # the generated headers of the forms must exist
fi
if [ "$#" -gt 0 ]; then files=("$@"); else mapfile -t files < <(git ls-files 'src/*.cpp' 'tools/*.cpp'); fi
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p "$build" --quiet
