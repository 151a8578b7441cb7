#!/usr/bin/env bash
# Sources the bash completion of tidewright and checks what it offers
# (COMPREPLY) for a few command lines, with the built program first on PATH
# and a scheme directory of its own. Also checks that the zsh completion
# knows every long option of --help.
#   completion-check.sh SOURCE-DIR PROGRAM-DIR
set -u
source_dir=$1
PATH=$2:$PATH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work/home TIDEWRIGHT_SCHEME_DIR=$work/schemes
mkdir -p "$HOME" "$work/tree/sub" "$work/other"
cd "$work/tree" || exit 1
touch a.cpp b.h c.CC notes.txt mine.tws project.vcxproj
fail=0
say() { echo "completion-check: $*" >&2; fail=1; }

# shellcheck source=/dev/null
source "$source_dir/completion/tidewright.bash"
[[ $(complete -p tidewright 2>/dev/null) == *"-F _tidewright"* ]] || say "the completion is not registered"

# complete WORD...: the words of the line, the last being the one completed.
complete_line()
{
    COMP_WORDS=("$@")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMP_LINE="$*"
    COMP_POINT=${#COMP_LINE}
    COMPREPLY=()
    _tidewright 2>/dev/null
}
# expect "LINE" [+WORD | -WORD]...: COMPREPLY holds each +WORD and no -WORD.
expect()
{
    local line=$1 want word found
    shift
    for want in "$@"; do
        word=${want:1}
        found=0
        for reply in "${COMPREPLY[@]}"; do
            [[ $reply == "$word" ]] && found=1
        done
        if [[ $want == +* && $found -eq 0 ]]; then
            say "'$line' does not offer '$word' (offers: ${COMPREPLY[*]})"
        elif [[ $want == -* && $found -eq 1 ]]; then
            say "'$line' offers '$word'"
        fi
    done
}

complete_line tidewright --sch
expect 'tidewright --sch' +--scheme +--scheme-file +--scheme-dir ---check
complete_line tidewright --
expect 'tidewright --' +--check +--in-place +--diff +--list-schemes +--assume-filename +--version +--help
complete_line tidewright --scheme ''
expect 'tidewright --scheme' +GNU +default +'K\&R' +'Linux\ kernel' +'Leave\ as\ is' +Stroustrup
complete_line tidewright --scheme L
expect 'tidewright --scheme L' +'Linux\ kernel' +'Leave\ as\ is' -GNU
complete_line tidewright -i --scheme = G
expect 'tidewright -i --scheme=G' +GNU -default
complete_line tidewright --print-scheme "'Lin"
expect "tidewright --print-scheme 'Lin" +'Linux\ kernel' -'Leave\ as\ is'
complete_line tidewright ''
expect 'tidewright' +a.cpp +b.h +c.CC +sub/ -notes.txt -mine.tws
complete_line tidewright --check s
expect 'tidewright --check s' +sub/ -a.cpp
complete_line tidewright --scheme-file ''
expect 'tidewright --scheme-file' +mine.tws +sub/ -a.cpp
complete_line tidewright --project ''
expect 'tidewright --project' +project.vcxproj -a.cpp
complete_line tidewright --color ''
expect 'tidewright --color' +auto +always +never
complete_line tidewright --backup ''
expect 'tidewright --backup' +a.cpp
complete_line tidewright --backup = ''
((${#COMPREPLY[@]} == 0)) || say "'tidewright --backup=' offers ${COMPREPLY[*]}"
complete_line tidewright --jobs ''
((${#COMPREPLY[@]} == 0)) || say "'tidewright --jobs' offers ${COMPREPLY[*]}"

# A --scheme-dir earlier on the line: its schemes are offered.
tidewright --scheme-dir "$work/other" --list-schemes >/dev/null
{ printf 'Kempt::PropertySet\r\n1\r\n"Mine"\r\n'; tail -n +4 "$work/other/GNU.tws"; } > "$work/other/Mine.tws"
complete_line tidewright --scheme-dir "$work/other" --scheme M
expect 'tidewright --scheme-dir OTHER --scheme M' +Mine
complete_line tidewright --scheme M
expect 'tidewright --scheme M' -Mine

# The zsh completion names every long option of --help.
zsh_file=$source_dir/completion/_tidewright
for option in $(tidewright --help | grep -oE -- '(^|[ ,])--[a-z][-a-z]*' | sed 's/^[ ,]//' | sort -u); do
    grep -qF -- "$option" "$zsh_file" || say "the zsh completion lacks $option"
done
if command -v zsh >/dev/null 2>&1; then
    zsh -n "$zsh_file" || say "the zsh completion does not parse"
    # compinit finds it on fpath and binds it to the command.
    bound=$(zsh -f -c "fpath=(${zsh_file%/*} \$fpath); autoload -U compinit; compinit -u -d $work/zcompdump; print -r -- \${_comps[tidewright]}")
    [[ $bound == _tidewright ]] || say "compinit does not bind _tidewright to tidewright: '$bound'"
fi
[[ $fail -eq 0 ]] && echo "completion-check: every case offers what it should"
exit $fail
