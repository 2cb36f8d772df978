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
QT_QPA_PLATFORM=offscreen exec "$build/tools/prova" "$output/programma" "$output"
