# SPDX-License-Identifier: MIT
# OpenCV's types are in the binary interface: the installed package refuses another version of OpenCV than it was built with,
# by a sentence that names both. And where the linker does not look for OpenCV by itself, the pkg-config files say where it is.
. "$(dirname "$0")/common.sh"
need pkg-config
work="$PWD/other_opencv"
new_folder "$work"
mkdir "$work/older" "$work/elsewhere"

cat >"$work/older/OpenCVConfig.cmake" <<'END'
set(OpenCV_VERSION 3.0.0)
set(OpenCV_FOUND TRUE)
END
if cmake -S "$KIV_SOURCE/tests/install/consumer" -B "$work/consumer" -DCMAKE_CXX_COMPILER="$CXX" -DEXAMPLE="$example" \
    -DCMAKE_PREFIX_PATH="$KIV_TREE" -DOpenCV_DIR="$work/older" >"$work/log" 2>&1; then
    echo "another OpenCV is taken" >&2
    exit 1
fi
tr -s ' \n' ' ' <"$work/log" | grep -q 'was built with OpenCV [0-9.]*, and OpenCV 3.0.0 was found' || { cat "$work/log"; exit 1; }

cat >"$work/elsewhere/OpenCVConfig.cmake" <<'END'
set(OpenCV_VERSION 4.6.0)
set(OpenCV_VERSION_MAJOR 4)
foreach(module core imgproc)
    add_library(opencv_${module} SHARED IMPORTED)
    set_target_properties(opencv_${module} PROPERTIES
        IMPORTED_CONFIGURATIONS RELEASE IMPORTED_LOCATION_RELEASE ${CMAKE_CURRENT_LIST_DIR}/lib/libopencv_${module}.so)
endforeach()
END
cmake -S "$KIV_SOURCE" -B "$work/library" -DCMAKE_CXX_COMPILER="$CXX" -DOpenCV_DIR="$work/elsewhere" -DKIV_BUILD_TESTS=OFF \
    -DKIV_BUILD_TOOLS=OFF >"$work/log"
for library in KivDataConvert libs/KivData/KivData libs/KivRLC/KivRLC; do
    grep -qxF "Libs: -L\${libdir} -l$(basename $library) -L$work/elsewhere/lib -lopencv_core" "$work/library/$library.pc"
done
if grep -l 'opencv_core' "$KIV_TREE/$KIV_LIBDIR"/pkgconfig/*.pc | xargs grep -n -- '-L.* -L'; then
    echo "the folder that OpenCV has here is searched anyway" >&2
    exit 1
fi
