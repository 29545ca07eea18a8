# SPDX-License-Identifier: MIT
# Completion for kivconvert: subcommands, options, shapes, and files. A test compares them with the program's.

_kivconvert() {
    local word=${COMP_WORDS[COMP_CWORD]} choices= options=
    local shapes='rectangle: rotated-rectangle: circle: ellipse: ring: ring-sector: polygon:'
    case ${COMP_WORDS[1]} in
    region) options='--output --to --recursive --threshold --sort --width --height --contour --alpha --no-alpha --page' ;;
    image) options='--output --to --recursive --foreground --background --width --height --alpha --no-alpha --page' ;;
    contours) options='--output --to --recursive --image --width --height --alpha --no-alpha --page' ;;
    points) options='--output --to --recursive --once --width --height --contour --rounded --alpha --no-alpha --page' ;;
    matrix) options='--output --to --recursive --alpha --no-alpha --page' ;;
    edit) options='--output --add --cut --alpha --no-alpha --page' ;;
    union) options='--output --rules --width --height --alpha --no-alpha --page' ;;
    intersection) options='--output --rules --width --height --alpha --no-alpha --page' ;;
    difference) options='--output --rules --width --height --alpha --no-alpha --page' ;;
    xor) options='--output --width --height --alpha --no-alpha --page' ;;
    complement) options='--output --rules --width --height --alpha --no-alpha --page' ;;
    dilate) options='--output --to --recursive --size --disk --element --width --height --alpha --no-alpha --page' ;;
    erode) options='--output --to --recursive --size --disk --element --width --height --alpha --no-alpha --page' ;;
    open) options='--output --to --recursive --size --disk --element --width --height --alpha --no-alpha --page' ;;
    close) options='--output --to --recursive --size --disk --element --width --height --alpha --no-alpha --page' ;;
    fill) options='--output --to --recursive --connectivity --width --height --alpha --no-alpha --page' ;;
    components) options='--output --to --recursive --connectivity --width --height --alpha --no-alpha --page' ;;
    measure) options='--output --json --by --recursive --connectivity --width --height --alpha --no-alpha --page' ;;
    compare) options='--picture --width --height --alpha --no-alpha --page' ;;
    info) options='--width --height --alpha --no-alpha --page' ;;
    esac
    if [[ $COMP_CWORD == 1 ]]; then
        choices='region image contours points matrix edit union intersection difference xor complement dilate erode open close fill components measure compare info'
        choices+=' --help --version --jobs --max-memory'
    elif [[ ${COMP_WORDS[COMP_CWORD - 1]} == --roi ]]; then
        choices=$shapes
        compopt -o nospace 2>/dev/null
    elif [[ $word == -* ]]; then
        choices="$options --help --jobs --max-memory"
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}

complete -o default -F _kivconvert kivconvert
