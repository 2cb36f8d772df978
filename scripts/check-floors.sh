#!/usr/bin/env bash
# check-floors.sh [SRC]: a file or form includes only files of its own room or of a room on a lower floor.
set -euo pipefail
cd "${1:-$(dirname "$0")/../src}"

declare -A floor=([archive]=0 [common]=1 [devices]=2 [output]=2 [event]=2 [exchange]=2 [scoring]=3 [entries]=3
  [readings]=4 [download]=5 [live]=6 [starts]=6 [publication]=6 [memory]=6 [shell]=7)
failed=0
while IFS=: read -r file include; do
  room=${file%%/*}
  target=$(sed -E 's/.*(#include "|<header>)([^"<]+).*/\2/' <<<"$include")
  other=${target%%/*}
  [ "$other" = "$target" ] && continue # the generated header of a form
  if [ -z "${floor[$room]:-}" ] || [ -z "${floor[$other]:-}" ]; then
    echo "$file includes $target: a room without a floor"
    failed=1
  elif [ "$room" != "$other" ] && [ "${floor[$other]}" -ge "${floor[$room]}" ]; then
    echo "$file includes $target: not a lower floor"
    failed=1
  fi
done < <(grep -roE '^#include "[^"]+"|<header>[^<]+</header>' --include='*.h' --include='*.cpp' --include='*.ui' . |
  sed 's|^\./||')
exit "$failed"
