# SPDX-License-Identifier: MIT
# Builds the library on other data libraries, which are installed, and a program on both.
. "$(dirname "$0")/common.sh"
work="$PWD/system_data"
new_folder "$work"

# install_built SOURCE NAME OPTION...: configures, builds and installs a project. All sources are compiled as one, which
# takes a tenth of the time.
install_built() {
    source="$1"
    name="$2"
    shift 2
    cmake -S "$source" -B "$work/$name" -G Ninja -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_UNITY_BUILD=ON \
        -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 -DCMAKE_INSTALL_PREFIX="$work/prefix" -DCMAKE_PREFIX_PATH="$work/prefix" "$@" >"$work/log"
    cmake --build "$work/$name" >>"$work/log" || { cat "$work/log"; exit 1; }
    cmake --install "$work/$name" >>"$work/log"
}

install_built "$KIV_SOURCE/tests/install/recording_data" data
install_built "$KIV_SOURCE" library -DKIV_DATA_PROVIDER=system
install_built "$KIV_SOURCE/tests/install/consumer" program \
    -DEXAMPLE="$KIV_SOURCE/tests/install/recording_data/program.cpp"

"$work/program/example" >"$work/calls"
diff -u - "$work/calls" <<'CALLS'
region.Width()
region.Height()
region.GetRegionRuns()
roi's parameters.GenMask({(1,0,1)}, 3, 2)
CALLS
