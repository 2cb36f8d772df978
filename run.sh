#!/usr/bin/env bash
# Builds Velmora and starts it on the user's own archive, kept in programma/ between runs.
#   --esempio  starts on the sample rally, in a folder and with settings of its own
# Without a display it runs the rehearsal instead: the real windows on a copy of the sample rally, whose reports and
# pictures stay in prova/.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
[ -e build/release/src/shell/velmora ] || echo "Building for the first time: some minutes, once."
cmake --preset release >/dev/null
cmake --build --preset release --target velmora velmora_aiuto crea_esempio prova simulatore_tag simulatore_tabellone

# lay FOLDER: a program folder with the program as it is now; an archive that is there stays.
lay() {
  mkdir -p "$1"
  cp --remove-destination build/release/src/shell/velmora "$1/velmora"
  cp "build/release/programma/vlm help.hlp" "$1/"
}

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ "$(uname)" = Linux ]; then
  echo "No display: running the rehearsal on the sample rally. What it prints is in prova/."
  exec scripts/rehearse.sh build/release prova
fi

if [ "${1:-}" = --esempio ]; then
  folder=programma-esempio
  lay "$folder"
  # Settings apart: the active event of the user's own archive must not be taken for one of the sample's.
  export XDG_CONFIG_HOME="$PWD/$folder/impostazioni"
  [ -e "$folder/mdvlm.mdb" ] || build/release/tools/crea_esempio assets/esempio "$folder" --attiva >/dev/null
  exec "$folder/velmora"
fi

lay programma
exec programma/velmora
