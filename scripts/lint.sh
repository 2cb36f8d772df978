#!/usr/bin/env bash
# clang-tidy over the project's own sources, or over the files named. Needs a configured build in build/dev.
set -euo pipefail
cd "$(dirname "$0")/.."
[ -f build/dev/compile_commands.json ] || cmake --preset dev >/dev/null
# The generated form and meta-object headers must exist.
cmake --build build/dev --target velmora_core_autogen velmora_ui_autogen >/dev/null
if [ "$#" -gt 0 ]; then files=("$@"); else mapfile -t files < <(git ls-files 'src/*.cpp' 'tools/*.cpp'); fi
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/dev --quiet
