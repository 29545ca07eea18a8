# SPDX-License-Identifier: MIT
# Builds the example, and each library's header alone, with the options that pkg-config prints and no others.
. "$(dirname "$0")/common.sh"
need pkg-config
export PKG_CONFIG_PATH="$KIV_TREE/$KIV_LIBDIR/pkgconfig"

for header in KivRLC/KivRLC.h KivData/KivData.h KivDataConvert/KivDataConvert.h; do
    package=$(basename "$header" .h)
    pkg-config --validate "$package"
    echo "#include <$header>" | eval "$CXX -std=c++17 -fsyntax-only -x c++ - $(pkg-config --cflags "$package")"
done

pkg-config --exists 'KivDataConvert >= 3.0 KivDataConvert < 4'
eval "$CXX -std=c++17 \"\$example\" -o example_by_pkg_config $(pkg-config --cflags --libs KivDataConvert)"
LD_LIBRARY_PATH="$KIV_TREE/$KIV_LIBDIR" expect_example ./example_by_pkg_config
