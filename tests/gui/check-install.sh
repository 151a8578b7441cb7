#!/bin/sh
# Installs the build into a temporary prefix and checks the desktop
# application's files: the program, its menu entry, its icon, and the help
# pages with their pictures.
#   check-install.sh CMAKE BUILD-DIR
set -eu
cmake=$1
build=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
"$cmake" --install "$build" --prefix "$prefix" >/dev/null
fail=0
for file in bin/tidewright-gui share/applications/tidewright-gui.desktop \
            share/icons/hicolor/scalable/apps/tidewright-gui.svg; do
    [ -f "$prefix/$file" ] || { echo "missing: $file" >&2; fail=1; }
done
docs=$(find "$prefix/share/doc" -name desktop.md | head -n 1)
[ -n "$docs" ] || { echo "missing: share/doc/.../desktop.md" >&2; fail=1; }
[ -z "$docs" ] || [ -f "$(dirname "$docs")/images/main-window.png" ] || { echo "missing: the help pictures" >&2; fail=1; }
desktop=$prefix/share/applications/tidewright-gui.desktop
if [ -f "$desktop" ]; then
    for line in '[Desktop Entry]' 'Type=Application' 'Exec=tidewright-gui' 'Icon=tidewright-gui'; do
        grep -qxF "$line" "$desktop" || { echo "the menu entry lacks: $line" >&2; fail=1; }
    done
fi
exit $fail
