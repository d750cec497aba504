#!/usr/bin/env bash
# bench_converters.sh BIN_FOLDER: turns the same 10 MB of RTF prose into text with richtext_convert, LibreOffice and AbiWord,
# one after the other, and prints the processor seconds of each, start and end of the programs included. The mark is 15
# times the speed of either. Those that are not installed are skipped. Exit status 1 if the mark is missed.
set -euo pipefail

bin=${1:?the folder of bench_richtext and richtext_convert}
mark=15
work=$(mktemp -d "${TMPDIR:-/tmp}/snipdeck-converters.XXXXXX")
trap 'rm -rf "$work"' EXIT
export QT_QPA_PLATFORM=offscreen HOME=$work XDG_RUNTIME_DIR=$work
"$bin/bench_richtext" --rtf "$work/prose.rtf"

# Processor seconds of a command and of what it starts; fails when the command leaves no text behind.
seconds() {
  local out=$1 TIMEFORMAT='%U %S'
  shift
  { time "$@" >/dev/null 2>"$work/log"; } 2>"$work/time"
  [ -s "$out" ] || { echo "no text from: $*" >&2; cat "$work/log" >&2; exit 1; }
  awk '{ print $1 + $2 }' "$work/time"
}

ours=$(seconds "$work/ours.txt" "$bin/richtext_convert" "$work/prose.rtf" "$work/ours.txt")
echo "  10 MB of RTF to text: richtext_convert $ours s"
code=0
compare() {
  local name=$1 theirs=$2
  awk -v name="$name" -v ours="$ours" -v theirs="$theirs" -v mark=$mark 'BEGIN {
    ratio = theirs / ours
    printf "  10 MB of RTF to text: %s %s s, %.1f times as long (mark: %d or more)%s\n",
           name, theirs, ratio, mark, (ratio >= mark ? "" : "  MISSED")
    exit ratio < mark }' || code=1
}
if command -v soffice >/dev/null; then
  compare LibreOffice "$(seconds "$work/prose.txt" soffice "-env:UserInstallation=file://$work/profile" --headless \
    --convert-to txt:Text --outdir "$work" "$work/prose.rtf")"
fi
if command -v abiword >/dev/null; then
  compare AbiWord "$(seconds "$work/abiword.txt" abiword --to=txt -o "$work/abiword.txt" "$work/prose.rtf")"
fi
exit $code
