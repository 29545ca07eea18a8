# SPDX-License-Identifier: MIT
# What the tests of the installation share. They get as environment: KIV_SOURCE and KIV_BUILD, the project's folders;
# KIV_TREE, where it is installed; KIV_LIBDIR, the folder of libraries in there; CXX.
set -eu
unset DESTDIR
example="$KIV_SOURCE/examples/readme_example.cpp"

# need TOOL...: skips the test if a tool is missing.
need() {
    for tool in "$@"; do
        command -v "$tool" >/dev/null || { echo "skipped: $tool is missing (scripts/setup installs it)"; exit 77; }
    done
}

# new_folder PATH: makes it, empty.
new_folder() {
    rm -rf "$1"
    mkdir -p "$1"
}

# files_of FOLDER: all files and links in it.
files_of() {
    (cd "$1" && find . ! -type d | LC_ALL=C sort)
}

# expect_example PROGRAM...: runs the example, which must print what it does.
expect_example() {
    printed=$("$@")
    [ "$printed" = "ring: 360 runs, 2 contours" ] || { echo "the example printed: $printed" >&2; exit 1; }
}
