# SPDX-License-Identifier: MIT
# Completion for kivconvert: subcommands, options, shapes, and files. A test compares them with the program's.

_kivconvert() {
    local word=${COMP_WORDS[COMP_CWORD]} choices= options=
    local shapes='rectangle: rotated-rectangle: circle: ellipse: ring: ring-sector: polygon:'
    case ${COMP_WORDS[1]} in
    region) options='--output --to --threshold --sort --width --height --contour --alpha --no-alpha --page' ;;
    image) options='--output --to --foreground --background --width --height --alpha --no-alpha --page' ;;
    contours) options='--output --to --image --width --height --alpha --no-alpha --page' ;;
    points) options='--output --to --once --width --height --contour --rounded --alpha --no-alpha --page' ;;
    matrix) options='--output --to --alpha --no-alpha --page' ;;
    edit) options='--output --add --cut --alpha --no-alpha --page' ;;
    union) options='--output --as-roi --width --height --alpha --no-alpha --page' ;;
    intersection) options='--output --as-roi --width --height --alpha --no-alpha --page' ;;
    difference) options='--output --as-roi --width --height --alpha --no-alpha --page' ;;
    complement) options='--output --as-roi --width --height --alpha --no-alpha --page' ;;
    info) options='--width --height --alpha --no-alpha --page' ;;
    esac
    if [[ $COMP_CWORD == 1 ]]; then
        choices='region image contours points matrix edit union intersection difference complement info'
        choices+=' --help --version --max-memory'
    elif [[ ${COMP_WORDS[COMP_CWORD - 1]} == --roi ]]; then
        choices=$shapes
        compopt -o nospace 2>/dev/null
    elif [[ $word == -* ]]; then
        choices="$options --help --max-memory"
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}

complete -o default -F _kivconvert kivconvert
