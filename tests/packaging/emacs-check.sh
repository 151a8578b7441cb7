#!/bin/sh
# The Emacs recipe (tools/editors/tidewright.el) in `emacs --batch`:
# tidewright-buffer lays out a C++ buffer as tidewright does, with
# tidewright-arguments passed on, and leaves a buffer that does not parse as
# it was. Exit 77 (skipped) when emacs is missing, as on the usual test
# machine.
#   emacs-check.sh SOURCE-DIR PROGRAM-DIR
set -u
source_dir=$1
PATH=$2:$PATH
export PATH
if ! command -v emacs >/dev/null 2>&1; then
    echo "SKIPPED: emacs is not installed; the Emacs recipe is not tried" >&2
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home TIDEWRIGHT_SCHEME_DIR=$work/schemes
mkdir -p "$HOME"
cd "$work" || exit 1
fail=0
say() { echo "emacs-check: $*" >&2; fail=1; }

printf 'int  main( ){if(1){return 0;}}\n' > bad.cpp
printf 'int main( {\n' > broken.cpp
tidewright --assume-filename bad.cpp < bad.cpp > expected.cpp || say "tidewright failed on the sample"
tidewright --scheme GNU --assume-filename bad.cpp < bad.cpp > expected-gnu.cpp || say "tidewright --scheme GNU failed"

# emacs_edit FILE OUTPUT [LISP]: loads FILE, sets LISP, runs tidewright-buffer, writes the buffer to OUTPUT.
emacs_edit()
{
    emacs --batch -Q -L "$source_dir/tools/editors" -l tidewright \
        --eval "(progn ${3:-} (find-file \"$1\") (tidewright-buffer) (write-region (point-min) (point-max) \"$2\"))" \
        >"$work/emacs.log" 2>&1
}
emacs_edit bad.cpp out.cpp
cmp -s out.cpp expected.cpp || say "tidewright-buffer: $(cat out.cpp "$work/emacs.log")"
emacs_edit bad.cpp out-gnu.cpp '(setq tidewright-arguments (list "--scheme" "GNU"))'
cmp -s out-gnu.cpp expected-gnu.cpp || say "tidewright-arguments: $(cat out-gnu.cpp "$work/emacs.log")"
emacs_edit broken.cpp out-broken.cpp
cmp -s out-broken.cpp broken.cpp || say "tidewright-buffer changed a buffer that does not parse: $(cat out-broken.cpp)"
grep -q "tidewright: .*broken.cpp" "$work/emacs.log" || say "no message for a buffer that does not parse: $(cat "$work/emacs.log")"

[ $fail -eq 0 ] && echo "emacs-check: tidewright-buffer works"
exit $fail
