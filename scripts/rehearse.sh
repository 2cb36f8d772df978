#!/usr/bin/env bash
# rehearse.sh BUILD OUTPUT: the rehearsal of a build, offscreen, on a copy of the sample rally in OUTPUT/programma; its
# reports and pictures stay in OUTPUT.
set -euo pipefail
build=$(realpath "$1")
mkdir -p "$2/programma"
output=$(realpath "$2")
rm -rf "${output:?}"/*.pdf "$output"/*.png "$output/programma"
mkdir "$output/programma"
cp "$build/programma/vlm help.hlp" "$output/programma/"
"$build/tools/crea_esempio" "$(dirname "$0")/../assets/esempio" "$output/programma" >/dev/null
# The screen of a laptop: the platform's own is a square of 800.
screen=$output/programma/schermo.json
cat >"$screen" <<'END'
{"screens": [{"name": "portatile", "x": 0, "y": 0, "width": 1366, "height": 768, "logicalDpi": 96, "logicalBaseDpi": 96,
  "dpr": 1}]}
END
QT_QPA_PLATFORM=offscreen:configfile=$screen exec "$build/tools/prova" "$output/programma" "$output"
