#!/bin/sh
# The man pages must follow the programs' options:
#   - the built page is what help2man writes now (tools/man-page, same date);
#   - every long option that --help lists appears in the page;
#   - every long option that the hand-kept text (docs/man/*.h2m) names is one
#     that --help lists, so that the text cannot speak of a removed option.
# Exit 77 (skipped) when help2man is missing: then no page is built.
#   man-pages-check.sh SOURCE-DIR BUILD-DIR EPOCH PROGRAM-PATH...
set -eu
source_dir=$1
build=$2
epoch=$3
shift 3
if ! command -v help2man >/dev/null 2>&1; then
    echo "SKIPPED: help2man is not installed (tools/bootstrap.sh installs it); no man page is built" >&2
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail=0
say() { echo "man-pages-check: $*" >&2; fail=1; }
long_options() { grep -oE -- '(^|[^-a-z\\])--[a-z][-a-z]*' | sed 's/^[^-]*--/--/' | sort -u; }

for program in "$@"; do
    name=$(basename "$program")
    page=$build/man/$name.1
    include=$source_dir/docs/man/$name.h2m
    [ -f "$page" ] || { say "$page was not built"; continue; }
    "$source_dir/tools/man-page" "$program" "$include" "$epoch" "$work/$name.1"
    if ! diff -u "$page" "$work/$name.1" >&2; then
        say "$name.1 is not what help2man writes from the program now (rebuild)"
    fi
    # Roff escapes the hyphens of options: \-\-scheme.
    sed 's/\\-/-/g' "$page" > "$work/$name.text"
    QT_QPA_PLATFORM=offscreen "$program" --help | long_options > "$work/$name.help"
    [ -s "$work/$name.help" ] || say "$name --help lists no long option"
    while read -r option; do
        grep -qF -- "$option" "$work/$name.text" || say "$name.1 does not mention $option"
    done < "$work/$name.help"
    sed 's/\\-/-/g' "$include" | long_options | while read -r option; do
        grep -qxF -- "$option" "$work/$name.help" || { echo "man-pages-check: $name.h2m names $option, which $name --help does not list" >&2; echo x; }
    done > "$work/$name.stale"
    [ -s "$work/$name.stale" ] && fail=1
    echo "man-pages-check: $name.1: $(wc -l < "$work/$name.help") long options, all in the page"
done
exit $fail
