#!/bin/sh
# SPDX-License-Identifier: MIT
# subdirectory.sh SOURCE SCRATCH: fails unless CMake takes the project of examples/my_program, which has this library as a
# folder, and has nothing of the library installed by it. It is configured and not built: what would be built is what is
# tested elsewhere.
set -eu
rm -rf "$2"
mkdir -p "$2"
cp "$1/examples/my_program/CMakeLists.txt" "$2"
cp "$1/examples/readme_example.cpp" "$2/my_program.cpp"
ln -s "$1" "$2/KivDataConvert"
cmake -S "$2" -B "$2/build"
DESTDIR="$2/installed" cmake --install "$2/build"
[ ! -e "$2/installed" ] || { find "$2/installed" >&2; exit 1; }
