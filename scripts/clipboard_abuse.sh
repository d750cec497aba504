#!/usr/bin/env bash
# clipboard_abuse.sh [MINUTES] [BUILD_FOLDER]: runs the program of a build (build/release) for so many minutes (30) among
# clipboard owners that hang, lie, die, flood and change their minds, on a private display. Prints how fast the window
# answered all the while and what memory it took. Fails if it answered too slowly or lost a well-behaved copy.
set -euo pipefail
cd "$(dirname "$0")/.."

minutes=${1:-30}
build=$(realpath "${2:-build/release}")
scripts/packages.sh run display
export SNIPDECK_BINARY="$build/bin/qm_snipdeck" CLIPBOARD_OWNER="$build/bin/clipboard_owner"
cd tests/e2e
exec ../../scripts/private_display.sh /usr/bin/python3 -B abuse.py "$minutes"
