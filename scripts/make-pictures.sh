#!/usr/bin/env bash
# Remakes the pictures the program ships, in data/: the help document's boards and How To Play's
# page of rules and screenshot. They come from our own help document and screenshot test, drawn
# under a virtual X display with the DejaVu fonts. Run it after changing the window or the help.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${BUILD:-build}
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j2 --target bq_qt_screenshots >/dev/null
BQ_PICTURES_DIR="$PWD/data" QT_QPA_PLATFORM=xcb \
  xvfb-run -a "$build/tests/ui/qt/bq_qt_screenshots" -silent
ls -l data/help-board-*.png data/howto-*.jpg
