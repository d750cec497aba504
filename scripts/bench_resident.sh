#!/usr/bin/env bash
# bench_resident.sh PROGRAM: starts PROGRAM on the present display and prints its resident memory once that stands still.
set -euo pipefail

"$1" &
program=$!
trap 'kill $program' EXIT
xdotool search --sync --onlyvisible --pid "$program" >/dev/null

resident() { awk '/^VmRSS:/ { print $2 }' "/proc/$program/status"; }
before=-1
now=$(resident)
while [ "$now" != "$before" ]; do
  sleep 0.5
  before=$now
  now=$(resident)
done
awk -v kb="$now" 'BEGIN { printf "  resident memory after the start %.1f MB (mark: 60 or less)%s\n", kb / 1024, (kb > 60 * 1024 ? "  MISSED" : "") }'
