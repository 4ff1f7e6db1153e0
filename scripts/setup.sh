#!/usr/bin/env bash
# Installs what a bare Debian 12 machine lacks. Usage: scripts/setup.sh [run|test|bench|fuzz|lint]
set -euo pipefail

packages=(build-essential cmake ninja-build ccache pkg-config
          qt6-base-dev qt6-base-dev-tools qt6-svg-dev qt6-multimedia-dev libgl-dev libsqlcipher-dev
          fonts-liberation breeze-icon-theme)
case "${1:-run}" in
  run)   if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then packages+=(xvfb xauth xdotool scrot); fi ;;
  test)  packages+=(libgtest-dev poppler-utils dbus-daemon python3) ;;
  bench) packages+=(libbenchmark-dev) ;;
  fuzz)  packages+=(clang python3) ;;
  lint)  packages+=(clang clang-tidy libgtest-dev) ;;
esac

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "These packages are missing; install them as root: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -q
DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
