# SPDX-License-Identifier: MIT
# Builds and installs static libraries, and a program on them by CMake and by pkg-config, which then needs none of the
# libraries to run.
. "$(dirname "$0")/common.sh"
need pkg-config
work="$PWD/static_libraries"
new_folder "$work"

install_built "$KIV_SOURCE" library -DBUILD_SHARED_LIBS=OFF -DCMAKE_BUILD_TYPE=Release -DKIV_BUILD_TESTS=OFF -DKIV_BUILD_TOOLS=OFF
[ "$(files_of "$work/prefix/$KIV_LIBDIR" | grep -c '\.a$')" = 3 ]
[ "$(files_of "$work/prefix/$KIV_LIBDIR" | grep -c '\.so')" = 0 ]

install_built "$KIV_SOURCE/tests/install/consumer" program -DEXAMPLE="$example"
expect_example "$work/program/example"

export PKG_CONFIG_PATH="$work/prefix/$KIV_LIBDIR/pkgconfig"
eval "$CXX -std=c++17 \"\$example\" -o \"\$work/by_pkg_config\" $(pkg-config --static --cflags --libs KivDataConvert)"
expect_example "$work/by_pkg_config"
