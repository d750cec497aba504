#!/usr/bin/env bash
# run.sh [--demo]: installs what is missing, builds the release and starts the program.
# Without a display, or with --demo, it shows what the program does instead: on a private display other programs copy, and
# the boxes are read and photographed into build/demo. Your own clipboard and files are not touched by that.
set -euo pipefail
cd "$(dirname "$0")"

demo=
if [ "${1:-}" = --demo ]; then
  demo=yes
elif [ -z "${DISPLAY:-}" ]; then
  echo "There is no X display (nor XWayland) here: showing the demonstration on a private one."
  demo=yes
fi

scripts/packages.sh build run ${demo:+display}
cmake --log-level=NOTICE --preset release -DSNIPDECK_TESTS=OFF
cmake --build --preset release

if [ -n "$demo" ]; then
  SNIPDECK_SCREEN=1100x860x24 exec scripts/private_display.sh /usr/bin/python3 scripts/demo.py build/release/bin/qm_snipdeck build/demo
fi
exec build/release/bin/qm_snipdeck
