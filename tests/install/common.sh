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

# install_built SOURCE NAME OPTION...: configures, builds and installs a project, in the folders $work/NAME and $work/prefix.
# All sources are compiled as one, which takes a tenth of the time.
install_built() {
    source="$1"
    name="$2"
    shift 2
    cmake -S "$source" -B "$work/$name" -G Ninja -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_UNITY_BUILD=ON \
        -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 -DCMAKE_INSTALL_PREFIX="$work/prefix" -DCMAKE_PREFIX_PATH="$work/prefix" "$@" >"$work/log"
    cmake --build "$work/$name" >>"$work/log" || { cat "$work/log"; exit 1; }
    cmake --install "$work/$name" >>"$work/log"
}
