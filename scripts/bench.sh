#!/usr/bin/env bash
# bench.sh: builds the release and prints its figures, each beside its mark, then the same bursts of copies against CopyQ
# where that is installed. Takes about four minutes; for figures that mean something, let the machine do nothing else.
# Exit status 1 if a mark is missed.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build run display
cmake --log-level=NOTICE --preset release -DSNIPDECK_TESTS=ON
cmake --build --preset release --target qm_snipdeck bench_capture bench_long_texts clipboard_owner

bin=$PWD/build/release/bin
code=0
echo "QM_Snipdeck, release, private Xvfb, $(nproc) cores:"
for subject in memory start latency bursts; do
  scripts/private_display.sh "$bin/bench_capture" "$subject" || code=1
done
QT_QPA_PLATFORM=offscreen "$bin/bench_long_texts" || code=1
echo "The program itself, started and left alone:"
scripts/private_display.sh scripts/bench_resident.sh "$bin/qm_snipdeck"
if command -v copyq >/dev/null; then
  echo "CopyQ $(dpkg-query -W -f='${Version}' copyq 2>/dev/null), the same bursts, the peer to compare with:"
  scripts/private_display.sh scripts/bench_copyq.sh "$bin/clipboard_owner"
else
  echo "CopyQ is not installed and was skipped (scripts/packages.sh bench installs it)."
fi
exit $code
