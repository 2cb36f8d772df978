#!/usr/bin/env bash
# Plain text everywhere, then clang-tidy over the project's own sources, or over the files named.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/check-text.sh
cmake --preset lint >/dev/null
cmake --build --preset lint >/dev/null # the generated headers of the forms must exist

# tidy FILE: shows what is found and fails, unless all of it lies inside a library's header: the analyzer takes the
# slot objects of Qt's timers and queued calls, which Qt itself deletes, for leaks.
tidy() {
  local found
  found=$(clang-tidy -p build/lint --quiet "$1" 2>/dev/null) && return
  if grep -qE '^/usr/include/.*: (error|warning): ' <<<"$found" &&
    ! grep -E ': (error|warning): ' <<<"$found" | grep -qvE '^/usr/include/'; then
    return
  fi
  printf '%s\n' "$found"
  return 1
}
export -f tidy

if [ "$#" -gt 0 ]; then files=("$@"); else mapfile -t files < <(git ls-files 'src/*.cpp' 'tools/*.cpp'); fi
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" bash -c 'tidy "$1"' _
