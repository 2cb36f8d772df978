#!/usr/bin/env bash
# A file includes only files of its own room or of a lower floor.
set -euo pipefail
cd "$(dirname "$0")/../src"

declare -A floor=([archive]=0 [common]=1 [scoring]=2 [timing]=2 [event]=3 [entries]=3 [correction]=3 [exchange]=3
  [output]=4 [shell]=5)
# The two output entry points that windows of lower rooms may call.
entry_points='^output/(ApriReport|CompilaExcel)\.h$'
failed=0
while IFS=: read -r file _ include; do
  room=${file%%/*}
  target=$(sed -E 's/.*"([^"]+)".*/\1/' <<<"$include")
  other=${target%%/*}
  [ "$other" = "$target" ] && continue # generated form headers
  [ -n "${floor[$other]:-}" ] || { echo "$file: unknown room of $target"; failed=1; continue; }
  [ "$room" = "$other" ] && continue
  [ "${floor[$other]}" -lt "${floor[$room]}" ] && continue
  # The windows of timing and correction stand on one floor and open each other; those of timing use scoring.
  case $room/${file##*/}:$target in
    timing/frm*:correction/* | correction/frm*:timing/frm* | timing/frm*:scoring/* | timing/Finestra*:scoring/*) continue ;;
  esac
  case $room in scoring | entries | correction) [[ $target =~ $entry_points ]] && continue ;; esac
  echo "$file includes $target: not a lower floor"
  failed=1
done < <(grep -rnE '^#include "' --include='*.h' --include='*.cpp' .  | sed 's|^\./||')
exit "$failed"
