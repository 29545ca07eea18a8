#!/bin/sh
# SPDX-License-Identifier: MIT
# Does what docs/installing.md says, word by word, from the project's folder: installs the library from source and as Debian
# packages, builds and runs the README's program on each, and takes each out again. With --examples, also what docs/README.md
# says of the examples. It changes the system that it runs on.
set -eu
source="$PWD"

# blocks LANGUAGE PAGE HEADING: the code in this language below this heading.
blocks() {
    awk -v opening="\`\`\`$1" -v heading="$3" '
        /^##/ { here = $0 == heading }
        /^```/ { code = here && $0 == opening; next }
        code { print; found = 1 }
        END { exit !found }' "$source/docs/$2"
}

# follow PAGE HEADING: runs the commands below it.
follow() {
    echo "== $2"
    commands=$(blocks sh "$1" "$2")
    sh -eux -c "$commands"
}

build_program() {
    program=$(mktemp -d)
    cp "$source/examples/readme_example.cpp" "$program/my_program.cpp"
    blocks cmake installing.md "## In a program" > "$program/CMakeLists.txt"
    (cd "$program" && follow installing.md "## In a program" > printed)
    cat "$program/printed"
    [ "$(grep -cx 'ring: 360 runs, 2 contours' "$program/printed")" = 2 ] # by CMake, and by pkg-config
    rm -r "$program"
}

# expect_gone LIST: of the files that it names none is there.
expect_gone() {
    [ -s "$1" ]
    while IFS= read -r path; do
        if [ ! -d "$path" ] && { [ -e "$path" ] || [ -L "$path" ]; }; then
            echo "left behind: $path" >&2
            exit 1
        fi
    done <"$1"
}

follow installing.md "## From source"
build_program
follow installing.md "### Uninstalling"
expect_gone build/install/install_manifest.txt

follow installing.md "## Debian packages"
build_program
kivconvert --version
files=$(mktemp)
for package in build/package/*.deb; do
    dpkg-query -L "$(dpkg-deb -f "$package" Package)"
done >"$files"
follow installing.md "### Uninstalling packages"
expect_gone "$files"

if [ "${1-}" = --examples ]; then
    follow README.md "## Examples"
fi
