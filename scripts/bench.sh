#!/usr/bin/env bash
# bench.sh [SUBJECT...]: builds the release and prints its figures, each beside its mark where it has one. Subjects, all of
# them by default:
#   capture     copies of other programs: how fast, how many of a burst; memory, start; the same bursts against CopyQ
#   boxes       the main window with full boxes, and with very long texts
#   richtext    reading and writing RTF; the same file against LibreOffice and AbiWord
#   files       loading and saving, in each format
#   editor      the text editor, page view
# Takes about ten minutes; for figures that mean something, let the machine do nothing else. Exit status 1 if a mark is
# missed.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build run display
cmake --log-level=NOTICE --preset release -DSNIPDECK_TESTS=ON
cmake --build --preset release --target qm_snipdeck clipboard_owner richtext_convert bench_capture bench_boxes \
  bench_layout bench_long_texts bench_richtext bench_files bench_editor bench_pages

bin=$PWD/build/release/bin
code=0
on_display() { scripts/private_display.sh "$@" || code=1; }
offscreen() {
  echo "${1##*/} ${*:2}"
  QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*=false' XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$PWD/build} "$@" || code=1
}

bench_capture() {
  for subject in memory start latency bursts; do on_display "$bin/bench_capture" "$subject"; done
  echo "The program itself, started and left alone:"
  on_display scripts/bench_resident.sh "$bin/qm_snipdeck"
  if command -v copyq >/dev/null; then
    echo "CopyQ $(dpkg-query -W -f='${Version}' copyq 2>/dev/null), the same bursts, the peer to compare with:"
    on_display scripts/bench_copyq.sh "$bin/clipboard_owner"
  else
    echo "CopyQ is not installed and was skipped (scripts/packages.sh bench installs it)."
  fi
}

bench_boxes() {
  for program in bench_layout bench_boxes bench_long_texts; do offscreen "$bin/$program"; done
}

bench_richtext() {
  offscreen "$bin/bench_richtext"
  scripts/bench_converters.sh "$bin" || code=1
}

bench_files() { offscreen "$bin/bench_files"; }

bench_editor() {
  for program in bench_editor bench_pages; do offscreen "$bin/$program"; done
}

echo "QM_Snipdeck, release, $(nproc) cores:"
for subject in "${@:-capture boxes richtext files editor}"; do
  # shellcheck disable=SC2086 # the default is five words
  for one in $subject; do
    declare -F "bench_$one" >/dev/null || { echo "bench.sh: no subject \"$one\"" >&2; exit 2; }
    "bench_$one"
  done
done
exit $code
