#!/usr/bin/env bash
# Builds the fuzz targets and runs each: scripts/fuzz.sh [seconds, 10] [inputs, without limit of time].
# The corpora grow in build/fuzz/corpus, seeded from the recorded streams; a finding ends the run and stays in
# build/fuzz/findings.
set -euo pipefail
cd "$(dirname "$0")/.."
limits=(-max_total_time="${1:-10}")
[ $# -lt 2 ] || limits=(-runs="$2")

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
mkdir -p build/fuzz/findings
# seed TARGET: what its corpus begins with.
seed() {
  local streams=tests/devices/flussi
  case $1 in
    conversazione)
      cp $streams/{identita,scarico}*.flusso "$corpus"
      # A heat that is refused, one that is downloaded; the timer fires.
      printf 'AK C\t00EF\r\n\2AK F\t00F2\r\n\2AK C\t00EF\r\nH\r\nH\r\nA\nDE 07\t0110\r\n\3\1' >"$corpus/intera"
      ;;
    versione) printf '1\r\n2\n-30' >"$corpus/tre" ;;
    *) cp $streams/"$1"*.flusso "$corpus" ;;
  esac
}
for target in online scarico520 scarico540 identita conversazione versione; do
  corpus=build/fuzz/corpus/$target
  log=build/fuzz/$target.log
  mkdir -p "$corpus"
  seed "$target"
  if ! build/fuzz/fuzz/fuzz_$target "${limits[@]}" -max_len=4096 -timeout=10 -dict=fuzz/tag.dict \
    -artifact_prefix=build/fuzz/findings/"$target"- -print_final_stats=1 -verbosity=0 "$corpus" >"$log" 2>&1; then
    cat "$log"
    echo "fuzz_$target: a finding, kept in build/fuzz/findings"
    exit 1
  fi
  echo "fuzz_$target: $(sed -n 's/^stat::number_of_executed_units: //p' "$log") inputs without a finding"
done
