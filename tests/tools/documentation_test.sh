#!/bin/bash
# SPDX-License-Identifier: MIT
# The manual page, the completion and the README tell the subcommands and options that --help tells, no more, no fewer;
# and the README tells how each function of the library is reached, as the program really does.
#
#   documentation_test.sh KIVCONVERT REPOSITORY
set -u
kivconvert=$1
repository=$2
page=$repository/tools/kivconvert/doc/kivconvert.1
readme=$repository/tools/README.md
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

# same WHAT EXPECTED ACTUAL: two lists of words.
same() {
    local difference
    difference=$(diff <(tr ' ' '\n' <<<"$2" | sort -u) <(tr ' ' '\n' <<<"$3" | sort -u)) || fail "$1:"$'\n'"$difference"
}

options_in_help() {
    "$kivconvert" "$@" --help | sed -nE 's/^ +(-[a-z],)?(--[a-z-]+).*/\2/p' | sort -u
}

# The words that are offered after the given ones; the last one has been begun.
completions() {
    COMP_WORDS=("$kivconvert" "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _kivconvert 2>/dev/null
    echo "${COMPREPLY[*]}"
}

subcommands=$("$kivconvert" --help | sed -nE '1,/^Subcommands:/d; s/^  ([a-z]+) .*/\1/p')
[ "$(wc -w <<<"$subcommands")" -gt 9 ] || fail "the help tells the subcommands $subcommands"
. "$repository/tools/kivconvert/doc/kivconvert.bash"

synopsis=$(sed -n '/^\.Sh SYNOPSIS/,/^\.Sh DESCRIPTION/p' "$page")
same 'subcommands of the manual page' "$subcommands" "$(sed -nE 's/^\.Cm ([a-z]+)$/\1/p' <<<"$synopsis")"
same 'subcommands of the completion' "$subcommands" "$(completions '' | tr ' ' '\n' | grep -v '^-')"
same 'completion of a subcommand' 'contours complement' "$(completions co)"
described=$(sed -n '/^The options are:/,/^\.Ss/p' "$page" | grep '^\.It' | grep -oE -- 'Fl -[a-z-]+' | sed 's/Fl -/--/')
all=$(options_in_help)
for subcommand in $subcommands; do
    options=$(options_in_help "$subcommand")
    all="$all $options"
    same "options of $subcommand in the completion" "$options" "$(completions "$subcommand" --)"
    line=$(sed -n "/^\.Cm $subcommand\$/,/^\.Nm/p" <<<"$synopsis" | grep -oE -- 'Fl -[a-z-]+' | sed 's/Fl -/--/')
    same "options of $subcommand in the manual page" "$(grep -vxE -- '--(help|output|roi)' <<<"$options")" "$line"
    grep -q "\`kivconvert $subcommand " "$readme" || fail "the README lacks $subcommand"
    "$kivconvert" "$subcommand" --help | grep -A 1 '^Example:' | grep -q "^  kivconvert $subcommand " ||
        fail "the help of $subcommand lacks an example"
done
same 'described options' "$all" "$described"
for option in $(tr ' ' '\n' <<<"$all" | grep -vxE -- '--(help|version|output)' | sort -u); do
    grep -qE -- "$option([^a-z-]|\$)" "$readme" || fail "the README lacks $option"
done
shapes=$("$kivconvert" region --help | sed -nE 's/^  --roi ([a-z-]+:).*/\1/p')
same 'shapes in the completion' "$shapes" "$(completions region --roi '')"
same 'shapes in the manual page' "$shapes" "$(sed -nE 's/^\.It Cm ([a-z-]+:) Ns .*/\1/p' "$page")"

# Functions: those that the program calls are those of the library, but for one that tells
# nothing about shapes.
functions=$(sed -nE 's/^KIVMV_API (int|void) ([A-Za-z]+)\(.*/\2/p' "$repository/include/KivDataConvert/KivDataConvert.h")
[ "$(wc -w <<<"$functions")" = 35 ] || fail "the header declares $(wc -w <<<"$functions") functions"
called=$(nm -DC --undefined-only "$kivconvert" | sed -nE 's/.* KIVMV::([A-Za-z]+)\(.*/\1/p')
same 'functions that are called' "$functions" "$called maxbit"
for function in $functions; do
    grep -q "\`$function\`" "$readme" || fail "the README does not tell how $function is reached"
done

# Blocks of the README: its commands can be run one after the other, and the files that it shows are read.
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
PATH=$(dirname "$kivconvert"):$PATH
# block LANGUAGE NUMBER: one of the blocks of code of a language.
block() {
    awk -v fence="\`\`\`$1" -v number="$2" '
        /^```/ { within = !within; wanted = within && $0 == fence && ++count == number; next }
        wanted' "$readme"
}
mkdir masks
for file in parts.png masks/1.png; do
    "$kivconvert" image roi:ring:640,480,170,450 --width 1280 --height 960 -o "$file" || fail "cannot make $file"
done
block sh 1 | grep -q '^kivconvert ' || fail 'the README shows no commands'
while read -r command; do
    $command </dev/null || fail "$command"
done < <(block sh 1)
block '' 1 >1.csv
for number in 1 2 3 4; do
    block json "$number" >"$number.json"
done
for file in 1.csv 1.json 2.json 3.json 4.json; do
    "$kivconvert" info "$file" >/dev/null || fail "$(cat "$file")"
done
[ -z "$(block json 5)$(block '' 2)$(block sh 2)" ] || fail 'the README shows more than is tested'

if command -v mandoc >/dev/null; then
    complaints=$(mandoc -Tlint -W warning "$page") || fail "the manual page: $complaints"
fi
[ "$failures" = 0 ]
