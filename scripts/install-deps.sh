#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need; does nothing when all are present.
# With "fuzz": also clang and its runtime libraries, which libFuzzer needs.
set -euo pipefail
packages=(build-essential cmake pkg-config qt6-base-dev qt6-multimedia-dev libgl-dev
          libgtest-dev libgmock-dev libbenchmark-dev xvfb xauth fonts-dejavu-core
          desktop-file-utils appstream dpkg-dev
          dbus at-spi2-core python3-pyatspi)
# libclang-rt-14-dev holds libFuzzer; it is only a Recommends of clang.
[ "${1:-}" = fuzz ] && packages+=(clang libclang-rt-14-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0
echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
