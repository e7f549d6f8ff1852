#!/usr/bin/env bash
# Makes the .deb with CPack, unpacks it into a scratch root and runs the program from there.
set -euo pipefail
build=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cpack --config "$build/CPackConfig.cmake" -B "$scratch/out" >"$scratch/cpack.log" ||
  { cat "$scratch/cpack.log" >&2; exit 1; }
deb=$(ls "$scratch"/out/bramblequay_*.deb)
dpkg-deb --field "$deb" Depends | grep -q 'libqt6widgets6'
dpkg-deb -x "$deb" "$scratch/root"
test -s "$scratch/root/usr/share/applications/org.example.bramblequay.desktop"
test -s "$scratch/root/usr/share/bramblequay/help.html"
"$scratch/root/usr/bin/bramblequay" --version | grep -qx "bramblequay [0-9.]*"
echo "package checks passed: $(basename "$deb"), $(stat -c %s "$deb") bytes"
