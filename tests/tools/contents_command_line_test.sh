#!/bin/sh
# SPDX-License-Identifier: MIT
# One shape in every format that kivconvert reads, converted into every format that it writes.
#
#   contents_command_line_test.sh KIVCONVERT
. "$(dirname "$0")/command_line.sh"

expect 0 image roi:ring:30,24,8,20 --width 51 --height 45 -o ring.png
expect 0 region ring.png -o ring.csv
for format in .json .coco.json .coco-counts.json; do
    expect 0 region ring.png -o "ring$format"
done
expect 0 contours ring.png -o contours.json
expect 0 contours ring.png -o contours.geojson
expect 0 contours ring.png -o contours.svg
expect 0 points ring.png -o points.csv
expect 0 points ring.png --once -o once.csv
same points.csv once.csv

# The frame just fits, so that points tell it, too.
for input in ring.png ring.csv ring.json ring.coco.json ring.coco-counts.json contours.json contours.geojson points.csv; do
    for format in .csv .json .coco.json .coco-counts.json; do
        expect 0 region $input -o "out$format"
        same "ring$format" "out$format"
    done
    expect 0 image $input -o out.png
    same ring.png out.png
    expect 0 points $input -o out.csv
    same points.csv out.csv
    expect 0 info $input
    shows 'frame *51 x 45'
    shows 'runs *56'
    [ $input = points.csv ] && continue
    for format in .json .geojson .svg; do
        expect 0 contours $input -o "out$format"
        same "contours$format" "out$format"
    done
done
shape='roi:ring:30,24,8,20 --width 51 --height 45'
# shellcheck disable=SC2086 # several words
expect 0 contours $shape -o out.json
same contours.json out.json
# shellcheck disable=SC2086
expect 0 points $shape -o out.csv
same points.csv out.csv

# A contour of its own: the disc without the hole, its points, and the contour made of them.
expect 0 region contours.json --contour 0 -o disc.csv
expect 0 region roi:circle:30,24,20 --width 51 --height 45 -o out.csv
same disc.csv out.csv
expect 0 points contours.json --contour 0 -o border.csv
expect 0 points contours.json --contour 0 --rounded -o out.csv
same border.csv out.csv
expect 0 contours border.csv -o border.json
expect 0 region border.json -o out.csv
same disc.csv out.csv
printf '{"width":9,"height":9,"contours":[{"points":[[0.5,1.5],[6.4,1.5],[6.4,7.75]]}]}' >fine.json
expect 0 points fine.json --contour 0 -o fine.csv
printf 'x,y\n0.5,1.5\n6.4,1.5\n6.4,7.75\n' >expected.csv
same fine.csv expected.csv
expect 0 points fine.json --contour 0 --rounded -o out.csv
printf 'x,y\n0,2\n6,2\n6,8\n' >expected.csv
same out.csv expected.csv
expect 0 contours fine.csv -o out.json
[ "$(grep -c 0.5,1.5 out.json)" = 1 ] || fail "loses fractions: $(cat out.json)"
for command in region points; do
    expect 2 $command contours.json --contour 2 -o out.csv
    expect 2 $command contours.json --contour -1 -o out.csv
    expect 2 $command ring.csv --contour 0 -o out.csv
done
expect 2 points contours.json --rounded -o out.csv
expect 2 points contours.json --contour 0 --once -o out.csv
expect 2 region contours.json --contour 0 --threshold 1 -o out.csv
expect 2 region contours.json --contour 0 --width 5 --height 5 -o out.csv
expect 2 points contours.json --contour 0 --width 5 --height 5 -o out.csv
expect 2 region ring.csv --threshold 1 -o out.csv

# Runs in any order are sorted by row alone.
printf '# width=7 height=3\nrow,colBegin,colEnd\n2,5,6\n0,4,9\n2,0,1\n-1,0,0\n' >loose.csv
expect 0 region loose.csv --sort -o out.csv
printf '# width=7 height=3\nrow,colBegin,colEnd\n-1,0,0\n0,4,9\n2,5,6\n2,0,1\n' >expected.csv
same out.csv expected.csv
expect 0 region loose.csv -o out.csv
same out.csv loose.csv
expect 0 points loose.csv --once -o out.csv
[ "$(tail -n +2 out.csv | tr '\n' ' ')" = '4,0 5,0 6,0 0,2 1,2 5,2 6,2 ' ] || fail "wrong pixels: $(cat out.csv)"

# What is listed once is counted once, and in the frame alone.
printf '# width=5 height=5\nrow,colBegin,colEnd\n1,-2147483648,2147483647\n' >long.csv
expect 2 points long.csv -o out.csv
expect 0 points long.csv --once -o out.csv
[ "$(tail -n +2 out.csv | tr '\n' ' ')" = '0,1 1,1 2,1 3,1 4,1 ' ] || fail "wrong pixels: $(cat out.csv)"

# Matrices.
printf -- '-1,0.5,1.5\n255,256,1e6\n' >matrix.csv
expect 0 matrix matrix.csv -o out.pgm
[ "$(tail -c 6 out.pgm | od -An -tu1 | tr -s ' ')" = ' 0 0 2 255 255 255' ] || fail "wrong grey values"
expect 0 matrix out.pgm -o out.csv
[ "$(cat out.csv)" = "$(printf '0,0,2\n255,255,255')" ] || fail "wrong values: $(cat out.csv)"
printf 'P5\n2 1\n65535\n\001\000\000\007' >deep.pgm
expect 0 matrix deep.pgm -o out.csv
[ "$(cat out.csv)" = 256,7 ] || fail "wrong values: $(cat out.csv)"

# The rules of regions of interest: the last row that has runs is complemented, too.
printf '# width=3 height=2\nrow,colBegin,colEnd\n0,0,0\n1,0,1\n' >a.csv
expect 0 complement a.csv -o out.csv
expect 0 info out.csv
shows 'pixels *2$'
expect 0 complement a.csv --as-roi -o out.csv
expect 0 info out.csv
shows 'pixels *3$'
expect 0 image a.csv -o a.png
for operation in union intersection difference; do
    expect 0 $operation a.csv a.csv --as-roi -o runs.csv
    expect 0 $operation a.png a.csv --as-roi -o mixed.csv
    same runs.csv mixed.csv
done

# What is wrong is named with its place.
rm -f out.*
complains() {
    expect_refused "$1" region "$2"
    grep -qxF "kivconvert: $2$3" err.txt || fail "$2: says $(cat err.txt)"
}
printf '{"size":[2,3],"counts":"2`"}' >packed.json
complains 2 packed.json ': "counts" breaks off at character 3'
printf '{"size":[2147483647,2147483647],"counts":"2"}' >huge.json
complains 2 huge.json ': a frame of 2147483647 x 2147483647 is too large; 1048576 columns, 1048576 rows and 1073741824 pixels are the most'
printf '{"type":"Polygon","coordinates":[[[1,1],[4,1],[4,4]]]}' >open.geojson
complains 2 open.geojson ': "coordinates"[0]: is not closed; its last position must be its first'
printf '{"type":"Polygon","coordinates":[[[1,1],[4,1],[4,4],[1,1]]]}' >frameless.geojson
complains 2 frameless.geojson ': is in no frame; give --width and --height'
printf 'x,y\n1,2\n3;4\n' >semicolon.csv
complains 2 semicolon.csv ':3: y is missing'
printf 'x,y\n1048576,1048576\n' >far.csv
complains 2 far.csv ': a frame of 1048577 x 1048577 is too large; 1048576 columns, 1048576 rows and 1073741824 pixels are the most'
printf 'x,y\n' >none.csv
complains 1 none.csv ': KIVMV_ERR_LENGTH (1100007): two parallel arrays are empty or of different lengths'
printf '{"width":6,"height":1,"contours":[{"points":[[0,0],[5,0]]}]}' >flat.json
complains 1 flat.json ': KIVMV_ERR_PARAM_3 (1100010): the third input that is not an image is invalid; a frame of 6 x 1 is too small to fill contours in; 2 x 2 is the least'
printf 'x,y\n1,0\n2,0\n' >flat.csv
complains 1 flat.csv ': KIVMV_ERR_PARAM_1 (1100008): the first input that is not an image is empty or invalid; points in row 0 or column 0 alone, or before them, make no region'
printf '{}' >nothing.json
complains 2 nothing.json ': holds neither "runs" nor "counts" nor "contours" nor a "type" of GeoJSON'
expect 2 matrix semicolon.csv -o out.csv
expect 2 matrix none.png -o out.csv
expect 2 matrix matrix.csv -o out.jpg
expect 2 contours contours.svg -o out.json
expect 2 region ring.csv --to csv -o out.csv
for output in out.*; do
    [ "$output" = out.txt ] || fail "a failure leaves $output"
done

[ "$failures" = 0 ]
