# SPDX-License-Identifier: MIT
# Completion for kivconvert: what may stand on its command line is what its own help tells, and files.

_kivconvert_options() {
    sed -nE 's/^ +(-[a-z],)?(--[a-z-]+).*/\2/p' | sort -u
}

_kivconvert() {
    local program=${COMP_WORDS[0]/#\~/$HOME} word=${COMP_WORDS[COMP_CWORD]} help choices=
    if [[ $COMP_CWORD == 1 ]]; then
        help=$("$program" --help 2>/dev/null)
        choices="$(_kivconvert_options <<<"$help") $(sed -nE '1,/^Subcommands:/d; s/^  ([a-z]+) .*/\1/p' <<<"$help")"
    else
        help=$("$program" "${COMP_WORDS[1]}" --help 2>/dev/null)
        if [[ ${COMP_WORDS[COMP_CWORD - 1]} == --roi ]]; then
            choices=$(sed -nE 's/^  --roi ([a-z-]+:).*/\1/p' <<<"$help")
            compopt -o nospace 2>/dev/null
        elif [[ $word == -* ]]; then
            choices=$(_kivconvert_options <<<"$help")
        fi
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}

complete -o default -F _kivconvert kivconvert
