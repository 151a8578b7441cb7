#!/usr/bin/env bash
# The git hook tools/pre-commit on a temporary repository: a commit with a
# badly laid out file is refused, and accepted once `tidewright -i` has laid
# it out and it is staged again. The hook judges the staged text, not the
# work tree: a fix left unstaged does not help, and unstaged mess does not hurt.
#   pre-commit-check.sh SOURCE-DIR PROGRAM-DIR
set -u
source_dir=$1
PATH=$2:$PATH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home TIDEWRIGHT_SCHEME_DIR=$work/schemes GIT_CONFIG_NOSYSTEM=1
mkdir -p "$HOME"
fail=0
say() { echo "pre-commit-check: $*" >&2; fail=1; }
commit() { git commit -q -m "$1" >"$work/out" 2>&1; }

git init -q "$work/repo" && cd "$work/repo" || exit 1
git config user.name Tester && git config user.email tester@example.invalid
cp "$source_dir/tools/pre-commit" .git/hooks/pre-commit

printf 'int  main( ){if(1){return 0;}}\n' > bad.cpp
printf 'notes  are   not   C\n' > notes.txt
git add bad.cpp notes.txt
if commit "badly laid out"; then
    say "the hook accepted a badly laid out file"
else
    grep -qF "bad.cpp" "$work/out" || say "the refusal does not name bad.cpp: $(cat "$work/out")"
    grep -qF "tidewright -i" "$work/out" || say "the refusal does not say how to fix it: $(cat "$work/out")"
fi

# Laid out in the work tree but not staged: still refused.
tidewright -i bad.cpp || say "tidewright -i failed"
if commit "fixed but not staged"; then
    say "the hook judged the work tree instead of the staged text"
fi

git add bad.cpp
commit "laid out" || say "the hook refused a laid out file: $(cat "$work/out")"

# Staged text laid out, work tree messed up again: accepted.
printf 'int  other( ){return 1;}\n' > good.cpp
tidewright -i good.cpp && git add good.cpp
printf 'int  other( ){return 1;}\n' > good.cpp
commit "staged text laid out" || say "the hook judged the unstaged text of good.cpp: $(cat "$work/out")"

# A file that does not parse is refused too, and deletions pass.
printf 'int main( {\n' > broken.c
git add broken.c
if commit "does not parse"; then say "the hook accepted a file that does not parse"; fi
git rm -q --cached broken.c && rm broken.c
git rm -q bad.cpp
commit "deletion" || say "the hook refused a deletion: $(cat "$work/out")"

# The hook says so when the program is missing.
if TIDEWRIGHT=no-such-tidewright git commit -q --allow-empty -m empty >"$work/out" 2>&1; then
    say "the hook passed without the program"
fi
grep -qF "was not found" "$work/out" || say "no message for a missing program: $(cat "$work/out")"

[[ $fail -eq 0 ]] && echo "pre-commit-check: the hook refuses and accepts as it should"
exit $fail
