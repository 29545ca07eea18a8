# SPDX-License-Identifier: MIT
# Completion for kivconvert: subcommands, options, shapes, and files. A test compares them with the program's.

_kivconvert() {
    local word=${COMP_WORDS[COMP_CWORD]} choices= options=
    local shapes='rectangle: rotated-rectangle: circle: ellipse: ring: ring-sector: polygon:'
    case ${COMP_WORDS[1]} in
    region) options='--output --to --recursive --resume --threshold --sort --width --height --contour --alpha --no-alpha --page --annotation --of-image --category' ;;
    image) options='--output --to --recursive --resume --foreground --background --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    contours) options='--output --to --recursive --resume --image --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    points) options='--output --to --recursive --resume --once --width --height --contour --rounded --alpha --no-alpha --page --annotation --of-image --category' ;;
    matrix) options='--output --to --recursive --resume --alpha --no-alpha --page --annotation --of-image --category' ;;
    edit) options='--output --to --add --cut --alpha --no-alpha --page --annotation --of-image --category' ;;
    union) options='--output --to --rules --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    intersection) options='--output --to --rules --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    difference) options='--output --to --rules --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    xor) options='--output --to --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    complement) options='--output --to --rules --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    dilate) options='--output --to --recursive --resume --size --disk --element --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    erode) options='--output --to --recursive --resume --size --disk --element --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    open) options='--output --to --recursive --resume --size --disk --element --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    close) options='--output --to --recursive --resume --size --disk --element --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    fill) options='--output --to --recursive --resume --connectivity --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    components) options='--output --to --recursive --resume --connectivity --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    measure) options='--output --json --by --recursive --connectivity --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    report) options='--output --by --recursive --connectivity --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    compare) options='--picture --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    dataset) options='--output --to --by --segmentation --measures --connectivity --recursive --alpha --no-alpha --page --annotation --of-image --category' ;;
    info) options='--json --recursive --width --height --alpha --no-alpha --page --annotation --of-image --category' ;;
    esac
    if [[ $COMP_CWORD == 1 ]]; then
        choices='region image contours points matrix edit union intersection difference xor complement dilate erode open close fill components measure report compare dataset info'
        choices+=' --help --version --from --jobs --max-memory'
    elif [[ ${COMP_WORDS[COMP_CWORD - 1]} == --roi ]]; then
        choices=$shapes
        compopt -o nospace 2>/dev/null
    elif [[ $word == -* ]]; then
        choices="$options --help --from --jobs --max-memory"
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}

complete -o default -F _kivconvert kivconvert
