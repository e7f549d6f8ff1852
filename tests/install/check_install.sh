#!/usr/bin/env bash
# Installs the build into a scratch root as a package would, then checks what a desktop reads
# (launcher, metadata, icons) and that the installed program runs, finds its data and keeps its
# settings in the user's folder, not beside itself, though it runs as root here.
set -euo pipefail
build=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
DESTDIR="$scratch/root" cmake --install "$build" --prefix /usr >/dev/null
usr="$scratch/root/usr"
id=org.example.bramblequay

desktop-file-validate "$usr/share/applications/$id.desktop"
appstreamcli validate --no-net --pedantic "$usr/share/metainfo/$id.metainfo.xml"
for size in 16 22 24 32 48 64 128 256; do
  test -s "$usr/share/icons/hicolor/${size}x${size}/apps/$id.png"
done
test -s "$usr/share/icons/hicolor/scalable/apps/$id.svg"
for file in click.wav help.html; do test -s "$usr/share/bramblequay/$file"; done

"$usr/bin/bramblequay" --version | grep -qx "bramblequay [0-9.]*"
# The modules loaded when first needed are where the program looks: a connection set up loads
# the network's.
find "$usr" -name bramblequay-sound.so | grep -q .
printf '%s\n' "click optVsHuman" "click cmdSetupRemoteOpponent" "type frmCommunicate.txtPortA 47911" \
  "type frmCommunicate.txtIPB 127.0.0.1" "type frmCommunicate.txtPortB 47912" \
  "click frmCommunicate.cmdSend" "show StatusBar1.Panel(1)" quit |
  "$usr/bin/bramblequay" --headless --settings "$scratch/net.ini" |
  grep -q 'Panel(1) caption="Opponent 127.0.0.1"'
# A headless run through the exit sequence writes the settings file.
export HOME="$scratch/home" XDG_CONFIG_HOME="$scratch/home/config"
echo "close frmGame" | "$usr/bin/bramblequay" --headless >/dev/null
test -s "$XDG_CONFIG_HOME/Bramblequay/Bramblequay.INI"
if find "$scratch/root" -iname 'Bramblequay.INI' | grep -q .; then
  echo "settings written into the installed program's folders" >&2
  exit 1
fi
echo "install checks passed"
