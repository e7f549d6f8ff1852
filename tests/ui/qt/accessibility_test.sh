#!/bin/sh
# Runs accessibility_test.py in a D-Bus session of its own under Xvfb; says "skipped" (and ends
# with 77, which ctest counts as skipped) where the packages it needs are missing.
program="$1"
skip() {
  echo "skipped: $1 is not installed (scripts/install-deps.sh installs it)"
  exit 77
}
command -v xvfb-run >/dev/null 2>&1 || skip xvfb
command -v dbus-run-session >/dev/null 2>&1 || skip dbus
[ -x /usr/libexec/at-spi-bus-launcher ] || skip at-spi2-core
/usr/bin/python3 -c "import pyatspi" >/dev/null 2>&1 || skip python3-pyatspi
exec dbus-run-session -- xvfb-run -a /usr/bin/python3 "$(dirname "$0")/accessibility_test.py" "$program"
