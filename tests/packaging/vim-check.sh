#!/bin/sh
# The Vim recipe (tools/editors/tidewright.vim, as docs/integration.md gives
# it) driven by `vim -Es`: gq and = through 'formatprg' and 'equalprg' lay
# out a C++ buffer as tidewright does, and :Tidewright leaves a buffer that
# does not parse as it was. Exit 77 (skipped) when vim is missing.
#   vim-check.sh SOURCE-DIR PROGRAM-DIR
set -u
source_dir=$1
PATH=$2:$PATH
export PATH
if ! command -v vim >/dev/null 2>&1; then
    echo "SKIPPED: vim is not installed; the Vim recipe is not tried" >&2
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home TIDEWRIGHT_SCHEME_DIR=$work/schemes
mkdir -p "$HOME" "$work/my dir"
cd "$work/my dir" || exit 1
fail=0
say() { echo "vim-check: $*" >&2; fail=1; }
plugin=$source_dir/tools/editors/tidewright.vim

# vim_edit FILE -c COMMAND...: edits FILE in Ex mode with the recipe loaded, runs
# the commands, writes the buffer to $work/out and quits.
vim_edit()
{
    file=$1
    shift
    set -- -Es -u NONE -i NONE -N -c 'filetype on' -c "source $plugin" -c 'filetype detect' "$@"
    vim "$@" -c "write! $work/out" -c 'qall!' "$file" </dev/null >"$work/vim.log" 2>&1
}

printf 'int  main( ){if(1){return 0;}\nreturn 1;}\n' > 'bad file.cpp'
tidewright --assume-filename 'bad file.cpp' < 'bad file.cpp' > expected.cpp || say "tidewright failed on the sample"

vim_edit 'bad file.cpp' -c 'normal gggqG'
cmp -s "$work/out" expected.cpp || say "gq through formatprg: $(cat "$work/out" "$work/vim.log")"
vim_edit 'bad file.cpp' -c 'normal gg=G'
cmp -s "$work/out" expected.cpp || say "= through equalprg: $(cat "$work/out" "$work/vim.log")"
vim_edit 'bad file.cpp' -c 'Tidewright'
cmp -s "$work/out" expected.cpp || say ":Tidewright: $(cat "$work/out" "$work/vim.log")"

printf 'int main( {\n' > broken.cpp
vim_edit broken.cpp -c 'silent! Tidewright'
cmp -s "$work/out" broken.cpp || say ":Tidewright changed a buffer that does not parse: $(cat "$work/out")"

[ $fail -eq 0 ] && echo "vim-check: formatprg, equalprg and :Tidewright work"
exit $fail
