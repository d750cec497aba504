#!/usr/bin/env bash
# bench_copyq.sh CLIPBOARD_OWNER: how many copies of a burst CopyQ keeps, with the bursts that bench_capture plays.
set -euo pipefail
owner=$1
count=1000

copyq >/dev/null 2>&1 &
for _ in $(seq 100); do
  copyq size >/dev/null 2>&1 && break
  sleep 0.1
done
# It keeps 200 texts unless it is told otherwise.
copyq config maxitems 10000 >/dev/null

# The number of texts, once it has stood still for two seconds.
settled_size() {
  local before=-1 now
  now=$(copyq size)
  while [ "$now" != "$before" ]; do
    sleep 2
    before=$now
    now=$(copyq size)
  done
  echo "$now"
}

burst() {
  local interval=$1 what=$2 before after took
  shift 2
  before=$(settled_size)
  took=$(mktemp)
  # Each burst copies other texts, for a text that it has already is not kept twice.
  "$owner" "UTF8_STRING:$what $interval: copy %d " --count "$count" --interval "$interval" --size 1000 "$@" >"$took" &
  until [ "$(grep -c '^took' "$took")" -ge "$count" ]; do sleep 0.5; done
  after=$(settled_size)
  printf '  %d copies %2d ms apart, %-38s %8d kept\n' "$count" "$interval" "$what" $((after - before))
  kill $! 2>/dev/null || true
  rm -f "$took"
}

for interval in 25 10; do
  burst "$interval" "one owner"
  burst "$interval" "a new owner process each time" --new-process
done
copyq exit >/dev/null 2>&1 || true
