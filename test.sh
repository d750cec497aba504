#!/usr/bin/env bash
# test.sh [CTEST OPTIONS]: installs what is missing, builds with warnings as errors and runs every test on a private display.
# Exit status: that of CTest, or of the step that failed before it.
set -euo pipefail
cd "$(dirname "$0")"

scripts/packages.sh build run display test
cmake --log-level=NOTICE --preset debug
cmake --build --preset debug
exec scripts/private_display.sh ctest --preset debug --parallel "$(nproc)" "$@"
