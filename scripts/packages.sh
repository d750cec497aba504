#!/usr/bin/env bash
# packages.sh GROUP...: makes sure that the Debian packages of the named groups are installed; the groups are below.
# Missing ones are installed with apt-get, as root or through sudo; where neither is possible it names them and fails.
# When nothing is missing it only asks dpkg and needs neither the network nor any rights.
set -euo pipefail

declare -A groups=(
  [build]="g++ cmake ninja-build pkg-config ccache qt6-base-dev qt6-svg-dev qt6-pdf-dev libxcb1-dev libxcb-xfixes0-dev libzip-dev libxlsxwriter-dev libuchardet-dev libicu-dev"
  [run]="libqt6svg6 fonts-dejavu-core fonts-liberation fonts-crosextra-carlito"
  # dbus-x11 also spares a small system the systemd that the accessibility bus would otherwise draw in.
  [display]="xvfb openbox dbus-x11 at-spi2-core python3-gi gir1.2-atspi-2.0 xclip xdotool wmctrl x11-utils imagemagick"
  [test]="poppler-utils libxml2-utils qpdf cups-daemon cups-client"
  [bench]="copyq"
  [package]="dpkg-dev file desktop-file-utils appstream"
)

wanted=()
for group in "$@"; do
  # shellcheck disable=SC2206 # the words of a group are meant to be split
  wanted+=(${groups[$group]:?"unknown package group: $group"})
done

is_installed() { [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

missing=()
for package in "${wanted[@]}"; do
  is_installed "$package" || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

if [ "$(id -u)" = 0 ]; then
  as_root=()
elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
  as_root=(sudo -n)
else
  as_root=(sudo)
  cannot_install=yes
fi

if ! command -v apt-get >/dev/null || [ -n "${cannot_install:-}" ]; then
  echo "These packages are missing: ${missing[*]}" >&2
  echo "Please install them and try again, on Debian with:" >&2
  echo "  sudo apt-get install --no-install-recommends ${missing[*]}" >&2
  exit 1
fi

echo "Installing ${missing[*]}"
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0)
"${apt[@]}" update
"${apt[@]}" install -y --no-install-recommends "${missing[@]}" >/dev/null
