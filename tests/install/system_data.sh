# SPDX-License-Identifier: MIT
# Builds the library on other data libraries, which are installed, and a program on both.
. "$(dirname "$0")/common.sh"
work="$PWD/system_data"
new_folder "$work"

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
