#!/usr/bin/env bash
# Installs the Debian packages that are missing. Usage: scripts/packages.sh build|test|check|screenshots ...
set -euo pipefail

build=(
  g++ cmake ninja-build ccache pkg-config
  qtbase5-dev libqt5svg5-dev libqt5x11extras5-dev qttools5-dev qttools5-dev-tools qt5-image-formats-plugins
  fonts-open-sans librsvg2-bin imagemagick
  libboost-dev libboost-filesystem-dev libboost-thread-dev
  libopencv-core-dev libopencv-imgproc-dev
  libcli11-dev nlohmann-json3-dev libpng-dev
  libaravis-dev libusb-1.0-0-dev
)
test=(libgtest-dev libgmock-dev xauth xvfb openbox xcompmgr xdotool x11-xserver-utils aravis-tools)
check=(clang clang-format clang-tidy libclang-rt-14-dev libbenchmark-dev git)
screenshots=("${test[@]}")

wanted=()
for group in "$@"; do
  case "$group" in
    build) wanted+=("${build[@]}") ;;
    test) wanted+=("${test[@]}") ;;
    check) wanted+=("${check[@]}") ;;
    screenshots) wanted+=("${screenshots[@]}") ;;
    *) echo "packages.sh: unknown group '$group'." >&2; exit 2 ;;
  esac
done

missing=()
for package in "${wanted[@]}"; do
  state=$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null || true)
  [ "$state" = "install ok installed" ] || missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "These packages are missing and sudo is not there to install them: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}" >&2
"${as_root[@]}" apt-get update -qq >&2
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
