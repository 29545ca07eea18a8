#!/bin/sh
# SPDX-License-Identifier: MIT
# Each function of the library but maxbit is called by the command that the README names: the loader tells which symbols a run
# binds. Functions are bound when they are first called, unless the program is linked to bind them all at once.
#
#   functions_command_line_test.sh KIVCONVERT
. "$(dirname "$0")/command_line.sh"

if readelf -d "$kivconvert" | grep -q 'BIND_NOW\|FLAGS.* NOW'; then
    echo 'skipped: this build binds all functions before it begins'
    exit 77
fi

# calls FUNCTION ARGUMENT...
calls() {
    function=$1
    shift
    LD_DEBUG=bindings "$kivconvert" "$@" >out.txt 2>bindings.txt || fail "kivconvert $*: fails"
    grep -q "symbol \`_ZN5KIVMV${#function}$function" bindings.txt || fail "kivconvert $*: does not call $function"
}

shape='roi:ring:30,24,8,20 --width 64 --height 48'
other='roi:circle:30,24,9'
# shellcheck disable=SC2086 # several words
{
    calls KivROIToBinImage image $shape -o a.png
    calls KivROIToRegion region $shape -o a.csv
    calls KivROIToContourArray contours $shape -o a.json
    calls KivROIAdd union $shape $other -o out.csv
    calls KivROIAnd intersection $shape $other -o out.csv
    calls KivROISub difference $shape $other -o out.csv
    calls KivROINot complement $shape -o out.csv
}
calls KivImageToRegion region a.png -o out.csv
calls KivBinImageToRegion region a.png --threshold 1 -o out.csv
calls radixsort region a.csv --sort -o out.csv
calls KivRegionToBinImage image a.csv -o out.png
calls KivRegionToBinImage union a.csv a.csv -o out.png
calls KivRegionToImage image a.csv --foreground 3 -o out.png
calls KivRegionToPointArray points a.csv -o whole.csv
calls KivRegionToVarArray points a.csv --once -o out.csv
calls KivVarArrayToRegion region whole.csv -o out.csv
calls KivVarArrayToContour contours whole.csv -o out.json
printf 'x,y\n0.5,1.5\n6.4,1.5\n6.4,7.75\n' >fine.csv
calls KivPointArrayToRegion region fine.csv -o out.csv
calls KivPointArrayToContour contours fine.csv -o out.json
calls KivBinImageToContourArray contours a.png -o out.json
calls KivRegionToContourArray contours a.csv -o out.json
calls KivContourArrayToRegion region a.json -o out.csv
calls KivContourArrayToBinImage image a.json -o out.png
calls KivContourToRegion region a.json --contour 0 -o out.csv
calls KivContourToPointArray points a.json --contour 0 -o out.csv
calls KivContourToVarArray points a.json --contour 0 --rounded -o out.csv
calls KivMergContour edit a.png a.json --add -o out.png
calls KivImageToMatrix matrix a.png -o matrix.csv
calls KivMatrixToImage matrix matrix.csv -o out.png
calls KivRegionAdd union a.csv a.png -o out.csv
calls KivRegionAnd intersection a.csv a.png -o out.csv
calls KivRegionSub difference a.csv a.png -o out.csv
calls KivRegionNot complement a.csv -o out.csv
calls KivRegionToROI union a.csv a.csv --as-roi -o out.csv
calls KivBinImageToROI union a.png a.png --as-roi -o out.csv

[ "$failures" = 0 ]
