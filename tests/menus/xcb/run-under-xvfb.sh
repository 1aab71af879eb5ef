#!/usr/bin/env bash
# Runs a command under a private Xvfb (no window manager, no compositor) on the xcb platform.
# Xvfb picks a free display itself (-displayfd) and ends with its last client (-terminate);
# the trap stops it in any case. Exits 77, which ctest reads as skipped, where none starts.
set -u
if ! command -v Xvfb >/dev/null 2>&1; then
    echo "SKIP: Xvfb is not installed"
    exit 77
fi
tmp=$(mktemp -d)
xvfb=""
trap '[ -n "$xvfb" ] && kill "$xvfb" 2>/dev/null && wait "$xvfb"; rm -rf "$tmp"' EXIT
trap 'exit 130' INT TERM HUP
mkfifo "$tmp/display"
Xvfb -displayfd 3 -screen 0 800x600x24 -nolisten tcp -terminate 3>"$tmp/display" \
    >"$tmp/xvfb.log" 2>&1 &
xvfb=$!
display=""
read -r -t 20 display <"$tmp/display"
if [ -z "$display" ]; then
    echo "SKIP: Xvfb did not start:"
    cat "$tmp/xvfb.log"
    exit 77
fi
DISPLAY=":$display" QT_QPA_PLATFORM=xcb "$@"
