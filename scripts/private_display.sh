#!/usr/bin/env bash
# private_display.sh COMMAND...: runs COMMAND on a display of its own (Xvfb with openbox), with a session bus and folders of
# its own, so that it neither sees nor touches the clipboard, the screen or the files of whoever runs it.
# Exit status: COMMAND's.
set -euo pipefail

private=$(mktemp -d "${TMPDIR:-/tmp}/snipdeck-display.XXXXXX")
servers=()
finish() {
  for server in "${servers[@]}"; do
    kill "$server" 2>/dev/null || true
    wait "$server" 2>/dev/null || true
  done
  rm -rf "$private"
}
trap finish EXIT
trap 'exit 143' TERM INT HUP

# Give up after 20 seconds, with the reason that the log holds.
wait_for() {
  local what=$1 log=$2 tries=0
  shift 2
  until "$@" >/dev/null 2>&1; do
    if [ $((++tries)) -gt 400 ]; then
      echo "private_display.sh: $what did not start" >&2
      cat "$log" >&2
      exit 1
    fi
    sleep 0.05
  done
}

export HOME="$private/home" XDG_RUNTIME_DIR="$private/runtime"
export XDG_CONFIG_HOME="$HOME/.config" XDG_DATA_HOME="$HOME/.local/share" XDG_CACHE_HOME="$HOME/.cache"
mkdir -p -m 700 "$HOME" "$XDG_RUNTIME_DIR"
mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME"
unset WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS XAUTHORITY SESSION_MANAGER

# Xvfb looks for a free number itself and writes it once it accepts clients.
Xvfb -displayfd 3 -screen 0 "${SNIPDECK_SCREEN:-1280x900x24}" -nolisten tcp -noreset \
  3>"$private/number" >"$private/xvfb.log" 2>&1 &
servers=($!)
wait_for Xvfb "$private/xvfb.log" test -s "$private/number"
DISPLAY=":$(cat "$private/number")"
export DISPLAY

openbox >"$private/openbox.log" 2>&1 &
servers=($! "${servers[@]}")
wait_for openbox "$private/openbox.log" xdotool get_num_desktops

# The session bus starts the accessibility bus when somebody asks for it; both go when the session bus goes.
dbus-daemon --session --nofork --print-address=3 3>"$private/bus" >"$private/dbus.log" 2>&1 &
servers=($! "${servers[@]}")
wait_for dbus-daemon "$private/dbus.log" test -s "$private/bus"
DBUS_SESSION_BUS_ADDRESS=$(cat "$private/bus")
export DBUS_SESSION_BUS_ADDRESS QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8

# Not exec: the display has to be taken down afterwards.
"$@" </dev/null
