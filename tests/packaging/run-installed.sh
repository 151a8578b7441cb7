#!/bin/sh
# Runs the installed programs of a tree (an install prefix, or the /usr of an
# extracted package) with nothing of the build on their paths: a scrubbed
# environment whose PATH starts with the tree's bin, a new home directory,
# and a working directory outside the source and build trees.
#   run-installed.sh PREFIX
# Checks: tidewright --version, --list-schemes shows the built-in schemes,
# a file formatted with a built-in scheme, and tidewright-gui --version and
# --check under Qt's offscreen platform, which must report the tree's own
# schemes and documentation.
set -eu
prefix=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/home"
cd "$work"
fail=0
say() { echo "run-installed: $*" >&2; fail=1; }
run() {
    env -i PATH="$prefix/bin:/usr/bin:/bin" HOME="$work/home" LANG=C.UTF-8 QT_QPA_PLATFORM=offscreen "$@"
}

version=$(run tidewright --version) || say "tidewright --version failed"
case $version in
    "tidewright "[0-9]*.[0-9]*.[0-9]*) ;;
    *) say "tidewright --version printed: $version" ;;
esac

schemes=$(run tidewright --list-schemes) || say "tidewright --list-schemes failed"
for scheme in default GNU 'K&R' 'Linux kernel' Stroustrup Whitesmiths 'Leave as is'; do
    printf '%s\n' "$schemes" | grep -qxF "$scheme (built-in)" || say "--list-schemes lacks the built-in scheme $scheme"
done
# The built-in schemes were copied, read-only, into the new home.
[ -n "$(find "$work/home/.local/share/tidewright/schemes" -name '*.tws' ! -perm -u+w)" ] \
    || say "the built-in schemes were not installed into the user's scheme directory"

printf 'int  main( ){if(1){return 0;}}\n' > badly.cpp
formatted=$(run tidewright --scheme GNU badly.cpp) || say "formatting with the scheme GNU failed"
[ "$(printf '%s\n' "$formatted" | wc -l)" -gt 1 ] || say "the scheme GNU did not lay out the file: $formatted"
printf '%s\n' "$formatted" > formatted.cpp
run tidewright --check --scheme GNU formatted.cpp >/dev/null || say "the formatted file does not pass --check"
if run tidewright --check --scheme GNU badly.cpp >/dev/null; then
    say "--check accepted a badly laid out file"
fi

gui_version=$(run tidewright-gui --version) || say "tidewright-gui --version failed"
[ "$gui_version" = "tidewright-gui ${version#tidewright }" ] || say "tidewright-gui --version printed: $gui_version"
if report=$(run tidewright-gui --check 2>&1); then :; else say "tidewright-gui --check failed: $report"; fi
count=$(find "$prefix/share/tidewright/schemes" -name '*.tws' | wc -l)
printf '%s\n' "$report" | grep -qF "Built-in schemes: $prefix/share/tidewright/schemes ($count scheme files)" \
    || say "tidewright-gui did not take the installed schemes: $report"
printf '%s\n' "$report" | grep -qF "Documentation: $prefix/share/doc/tidewright" \
    || say "tidewright-gui did not find the installed documentation: $report"
printf '%s\n' "$report" | grep -qF "The main window opened and closed." || say "the main window did not open: $report"
[ $fail -eq 0 ] && echo "run-installed: both programs work from $prefix"
exit $fail
