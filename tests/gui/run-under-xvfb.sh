#!/bin/sh
# Runs the desktop application's tests named after the program on a virtual X
# server with Qt's X11 platform. Exit 77 (a skipped test for CTest) when
# xvfb-run is not installed.
#   run-under-xvfb.sh TEST-PROGRAM [TEST-FUNCTION...]
if ! command -v xvfb-run >/dev/null 2>&1; then
    echo "SKIPPED: xvfb-run is not installed (Debian package xvfb); the X11 run of the window is not checked" >&2
    exit 77
fi
program=$1
shift
QT_QPA_PLATFORM=xcb exec xvfb-run -a -s "-screen 0 1280x1024x24" "$program" "$@"
