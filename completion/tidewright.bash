# bash completion for tidewright, the C and C++ source formatter.
# Installed as share/bash-completion/completions/tidewright (loaded on demand
# by bash-completion); or source this file from ~/.bashrc.
#
# Completes: the long options (read from `tidewright --help`, so new options
# come with the program), scheme names after --scheme and --print-scheme (from
# `tidewright --list-schemes`, honouring a --scheme-dir given earlier on the
# line), the values of --color, scheme files, projects and directories for
# the options that take them, and otherwise directories and C/C++ files.

# The extensions offered for plain arguments: the program's default FileExtensions.
_TIDEWRIGHT_SOURCE_EXTENSIONS='c|cc|cpp|cxx|h|hh|hpp|hxx|C|CC|CPP|CXX|H|HH|HPP|HXX'

# Adds to COMPREPLY the directories and the files matching the extended glob
# pattern $2 (such as '*.@(c|h)') that begin with $1.
_tidewright_files()
{
    local cur=$1 pattern=$2 path
    local IFS=$'\n'
    local -a found
    found=($(compgen -d -- "$cur"))
    for path in "${found[@]}"; do
        COMPREPLY+=("$path/")
    done
    found=($(compgen -f -- "$cur"))
    # In [[ ]], == matches extended patterns such as @(c|h) whatever extglob says.
    for path in "${found[@]}"; do
        [[ -d $path ]] && continue
        # shellcheck disable=SC2053
        [[ $path == $pattern ]] && COMPREPLY+=("$path")
    done
    # Directories get their slash and no space, so that completion goes on inside.
    compopt -o filenames -o nospace 2>/dev/null
    local i
    for i in "${!COMPREPLY[@]}"; do
        [[ ${COMPREPLY[i]} == */ ]] || { compopt +o nospace 2>/dev/null; break; }
    done
}

# Adds to COMPREPLY the scheme names that begin with $1, quoted for the shell.
_tidewright_schemes()
{
    local cur=$1 name i
    local -a listing=(tidewright)
    for ((i = 1; i < COMP_CWORD; i++)); do
        if [[ ${COMP_WORDS[i]} == --scheme-dir ]] && ((i + 1 < COMP_CWORD)); then
            listing+=(--scheme-dir "${COMP_WORDS[i + 1]}")
        fi
    done
    listing+=(--list-schemes)
    # A quoted name typed so far: compare without its opening quote.
    cur=${cur#[\"\']}
    while IFS= read -r name; do
        name=${name% (built-in)}
        [[ -n $name && $name == "$cur"* ]] && COMPREPLY+=("$(printf '%q' "$name")")
    done < <("${listing[@]}" 2>/dev/null)
}

_tidewright()
{
    COMPREPLY=()
    local cur=${COMP_WORDS[COMP_CWORD]}
    local prev=
    ((COMP_CWORD > 0)) && prev=${COMP_WORDS[COMP_CWORD - 1]}
    # --option=value: bash splits the word at '=' (COMP_WORDBREAKS).
    local after_equals=0
    if [[ $cur == = ]]; then
        cur=
        after_equals=1
    elif [[ $prev == = ]] && ((COMP_CWORD > 1)); then
        prev=${COMP_WORDS[COMP_CWORD - 2]}
        after_equals=1
    fi

    case $prev in
        --scheme | --print-scheme)
            _tidewright_schemes "$cur"
            return 0
            ;;
        --scheme-file)
            _tidewright_files "$cur" '*.tws'
            return 0
            ;;
        --scheme-dir)
            local IFS=$'\n'
            COMPREPLY=($(compgen -d -- "$cur"))
            compopt -o filenames 2>/dev/null
            return 0
            ;;
        --project)
            _tidewright_files "$cur" '*.@(dsp|dsw|vcxproj|sln|json)'
            return 0
            ;;
        --color)
            COMPREPLY=($(compgen -W 'auto always never' -- "$cur"))
            return 0
            ;;
        --assume-filename | --print-effective-scheme)
            _tidewright_files "$cur" "*.@($_TIDEWRIGHT_SOURCE_EXTENSIONS)"
            return 0
            ;;
        --backup)
            # A flag whose value, if any, follows '=': --backup=orig.
            ((after_equals)) && return 0
            ;;
        --max-size | --exclude | --extensions | -j | --jobs)
            # A free value: nothing to offer.
            return 0
            ;;
    esac

    if [[ $cur == -* ]]; then
        local options
        options=$(tidewright --help 2>/dev/null | grep -oE -- '(^|[ ,])--[a-z][-a-z]*' | sed 's/^[ ,]//' | sort -u)
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return 0
    fi
    _tidewright_files "$cur" "*.@($_TIDEWRIGHT_SOURCE_EXTENSIONS)"
    return 0
}
complete -F _tidewright tidewright
