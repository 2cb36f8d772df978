#!/usr/bin/env bash
# The floors hold, and what breaks them is caught: in a source, in the header that a form promotes, in a room without
# a floor.
set -euo pipefail
check=$(realpath "$(dirname "$0")/../scripts/check-floors.sh")
"$check"

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
# caught FILE LINE: the line, added to that file of a copy, is what the check names.
caught() {
  rm -rf "$copy/src"
  cp -r "$(dirname "$check")/../src" "$copy/src"
  mkdir -p "$(dirname "$copy/src/$1")"
  printf '%s\n' "$2" >>"$copy/src/$1"
  local found
  if found=$("$check" "$copy/src") || [ "$(wc -l <<<"$found")" -ne 1 ] || [[ $found != "$1 includes "* ]]; then
    echo "not caught: $1: $2"
    exit 1
  fi
}
caught archive/Statement.cpp '#include "common/Valori.h"'
caught starts/frmRipartenza.cpp '#include "live/Catene.h"'
caught readings/frmTempiManuale.ui '<header>download/ElencoPressostati.h</header>'
caught cellar/Vino.h '#include "archive/Statement.h"'
