#!/usr/bin/env bash
# corpus_score.sh [CONVERTER [SIDE]]: turns every RTF document of the shared corpus into text with richtext_convert and scores
# the words against what is expected; then checks what is known of formats. LOW=20 lists the lowest; OUT=DIR keeps the texts. Says so and succeeds where there is no
# corpus; fails when a document makes the converter crash or hang.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
corpus=${SNIPDECK_CORPUS:-$root/../shared/corpus}
converter=${1:-$root/build/release/bin/richtext_convert}
side=${2:-}
if [ ! -f "$corpus/INDEX.tsv" ]; then
  echo "corpus_score.sh: skipped, there is no corpus in $corpus"
  exit 0
fi
[ -x "$converter" ] || { echo "corpus_score.sh: build richtext_convert first ($converter)" >&2; exit 1; }

out=${OUT:-$(mktemp -d "${TMPDIR:-/tmp}/snipdeck-corpus.XXXXXX")}
[ -n "${OUT:-}" ] || trap 'rm -rf "$out"' EXIT
mkdir -p "$out"

# One line a document that did not end well; exit codes 1 to 3 are the converter's own refusals.
convert() {
  local status=0
  timeout 20 "$converter" --from 5 --to 1 ${LABELS:+--labels} "$corpus/$1" "$out/${1//\//__}.txt" 2>>"$out/warnings.log" || status=$?
  [ "$status" -le 3 ] || echo "$1: exit status $status"
}
export -f convert
export converter corpus out LABELS

failed=$(awk -F'\t' '$2 == "rtf" || $2 == "clipboard/rtf" { print $1 }' "$corpus/INDEX.tsv" |
  xargs -d '\n' -P "$(nproc)" -I{} bash -c 'convert "$1"' _ {})
python3 "$corpus/score.py" "$corpus" "$out" ${side:+"$side"}
python3 "$root/scripts/corpus_facts.py" "$corpus" "$converter"
if [ -n "$failed" ]; then
  echo "Crashed or hung:" >&2
  echo "$failed" >&2
  exit 1
fi
