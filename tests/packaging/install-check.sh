#!/bin/sh
# Installs the build into a temporary prefix and runs both programs from
# there (run-installed.sh). Also checks that every installed piece is in its
# place: programs, built-in schemes, documentation, man pages, menu entry,
# icon, shell completions and the git hook.
#   install-check.sh CMAKE BUILD-DIR
set -eu
cmake=$1
build=$2
here=$(cd "$(dirname "$0")" && pwd)
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
"$cmake" --install "$build" --prefix "$prefix" >/dev/null
fail=0
for file in bin/tidewright bin/tidewright-gui \
            share/tidewright/schemes/default.tws share/tidewright/schemes/GNU.tws \
            share/doc/tidewright/README.md share/doc/tidewright/command-line.md \
            share/doc/tidewright/integration.md share/doc/tidewright/copyright \
            share/doc/tidewright/changelog.Debian.gz \
            share/man/man1/tidewright.1.gz share/man/man1/tidewright-gui.1.gz \
            share/applications/tidewright-gui.desktop share/icons/hicolor/scalable/apps/tidewright-gui.svg \
            share/bash-completion/completions/tidewright share/zsh/vendor-completions/_tidewright \
            share/tidewright/git-hooks/pre-commit; do
    [ -f "$prefix/$file" ] || { echo "install-check: missing: $file" >&2; fail=1; }
done
# The built-in schemes are read-only: that is what makes them built-in.
writable=$(find "$prefix/share/tidewright/schemes" -name '*.tws' -perm /222)
[ -z "$writable" ] || { echo "install-check: writable built-in schemes: $writable" >&2; fail=1; }
"$here/run-installed.sh" "$prefix" || fail=1
exit $fail
