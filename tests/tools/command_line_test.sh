#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs kivconvert as its users do: round trips, exit statuses, one line on standard error, no output after a failure.
#
#   command_line_test.sh KIVCONVERT
. "$(dirname "$0")/command_line.sh"

#  .#..##.
#  #######
#  ..###..
printf '# width=7 height=3\nrow,colBegin,colEnd\n0,1,1\n0,4,5\n1,0,6\n2,2,4\n' >a.csv
printf '# width=7 height=3\nrow,colBegin,colEnd\n0,5,6\n1,2,3\n2,0,2\n2,4,4\n' >b.csv
printf 'P5\n4 1\n255\n\001\100\200\377' >grey.pgm

# Runs to an image and back, in every format, change nothing.
for image in a.png a.bmp a.pgm a.tif; do
    expect 0 image a.csv -o "$image"
    expect 0 region "$image" -o back.csv
    same a.csv back.csv
done
expect 0 region a.png -o a.json
expect 0 image a.json -o again.png
same a.png again.png
expect 0 image a.csv -o framed.pgm --foreground 3 --background 1 --width 2 --height 1
expect 0 region framed.pgm --threshold 2 -o framed.csv
printf '# width=2 height=1\nrow,colBegin,colEnd\n0,1,1\n' >expected.csv
same framed.csv expected.csv

# Pixels of the threshold itself are foreground.
for threshold in 0:0,0,3 1:0,0,3 2:0,1,3 64:0,1,3 65:0,2,3 129:0,3,3 255:0,3,3; do
    expect 0 region grey.pgm --threshold "${threshold%%:*}" -o out.csv
    [ "$(tail -n 1 out.csv)" = "${threshold#*:}" ] || fail "threshold $threshold gives $(tail -n 1 out.csv)"
done
rm -f out.csv

expect 0 info a.csv
shows 'frame *7 x 3'
shows 'runs *4'
shows 'pixels *13'
expect 0 info a.png
shows 'pixels *13'

# Set algebra: run files and images mix, as operands and as results.
expect 0 image b.csv -o b.png
for operation in union intersection difference; do
    expect 0 "$operation" a.csv b.csv -o runs.csv
    expect 0 "$operation" a.png b.csv -o mixed.csv
    same runs.csv mixed.csv
    expect 0 "$operation" a.png b.png -o mask.png
    expect 0 image runs.csv -o painted.png
    same mask.png painted.png
done
expect 0 union a.csv b.csv -o union.png
expect 0 info union.png
shows 'pixels *16'
expect 0 complement a.png -o complement.json
expect 0 complement a.csv -o a.csv

# An output that is there already stays as it is when the work fails.
cp b.csv kept.csv
expect 2 union b.csv none.csv -o kept.csv
same b.csv kept.csv

: >empty.csv
printf '# width=7 height=3\nrow,colBegin,colEnd\n0,1,1\n0,x,5\n' >number.csv
printf '# width=7 height=3\nrow,colBegin,colEnd\n0,1\n' >column.csv
printf '# width=7 height=3\nrow,colBegin,colEnd\n0,1,3000000000\n' >range.csv
printf '{"width":7,"height":3,"runs":[[0,1,"1"]]}' >type.json
printf '{"width":7,' >cut.json
printf '# width=2147483647 height=2147483647\nrow,colBegin,colEnd\n0,1,1\n' >huge.csv
printf '# width=0 height=0\nrow,colBegin,colEnd\n' >nothing.csv
printf 'no image' >text.png
head -c 40 a.png >cut.png
printf 'P5\n1 1\n65535\n\001\001' >deep.pgm
printf 'row,colBegin,colEnd\n0,1,1\n' >frameless.csv
for file in frameless.csv none.csv empty.csv number.csv column.csv range.csv type.json cut.json huge.csv text.png cut.png .; do
    expect 2 info "$file"
    expect_refused 2 complement "$file"
done
expect 2 info number.csv
grep -qx 'kivconvert: number.csv:4: colBegin is not an integer' err.txt || fail "wrong complaint: $(cat err.txt)"
expect 2 info frameless.csv
grep -qx 'kivconvert: frameless.csv: holds neither runs, which begin with "# width=", nor points, which begin with "x,y"' err.txt ||
    fail "wrong complaint: $(cat err.txt)"
expect_refused 1 complement nothing.csv

# Some programs begin a text with a byte order mark.
expect 0 region b.csv -o b.json
for file in b.csv b.json; do
    { printf '\357\273\277' && cat $file; } >marked-$file
    expect 0 region marked-$file -o out.csv
    same out.csv b.csv
    rm out.csv
done
{ printf '\357\273\277' && echo 1,2,3; } >marked.csv
expect 0 matrix marked.csv -o marked.png
for arguments in 'complement nothing.csv' 'union nothing.csv nothing.csv'; do
    # shellcheck disable=SC2086 # several words
    expect_refused 1 $arguments
    grep -q '[:f ]nothing\.csv.*: KIVMV_ERR_' err.txt || fail "$arguments: says $(cat err.txt)"
done
expect 1 image nothing.csv --width 5 --height 5 -o out.png
grep -q '^kivconvert: nothing\.csv: KIVMV_ERR_' err.txt || fail "says $(cat err.txt)"

# Images that are not 8-bit are refused by the library, with a threshold, too: 16-bit ones, and a TIFF of 32-bit ints.
{
    printf 'II*\0\10\0\0\0\12\0\0\1\3\0\1\0\0\0\1\0\0\0\1\1\3\0\1\0\0\0\1\0\0\0\2\1\3\0\1\0\0\0\40\0\0\0'
    printf '\3\1\3\0\1\0\0\0\1\0\0\0\6\1\3\0\1\0\0\0\1\0\0\0\21\1\4\0\1\0\0\0\206\0\0\0\25\1\3\0\1\0\0\0\1\0\0\0'
    printf '\26\1\3\0\1\0\0\0\1\0\0\0\27\1\4\0\1\0\0\0\4\0\0\0\123\1\3\0\1\0\0\0\2\0\0\0\0\0\0\0\7\0\0\0'
} >deep.tif
expect 0 matrix deep.tif -o deep.csv
[ "$(cat deep.csv)" = 7 ] || fail "the TIFF holds $(cat deep.csv)"
for deep in deep.pgm deep.tif; do
    expect_refused 1 region $deep
    expect_refused 1 region $deep --threshold 1
    grep -qx "kivconvert: $deep: KIVMV_ERR_BIT_DEPTH .*" err.txt || fail "$deep: says $(cat err.txt)"
done

expect 2 image b.csv -o huge.png --width 2000000000 --height 2000000000
expect 2 image b.csv -o lossy.jpg
expect 2 region a.png -o folder/out.csv
expect 2 region a.png -o a.png
expect 2 region a.png -o out.csv --threshold 256
expect 2 image b.csv -o out.png --foreground -1
expect 2 union a.csv -o out.csv
expect 2 regoin a.png -o out.csv
grep -q '^kivconvert: regoin: is no subcommand; there are region, image, ' err.txt || fail "says $(cat err.txt)"

# What is wrong is named before what is missing.
says() {
    expect 2 "$@"
    grep -qxF "kivconvert: $message" err.txt || fail "kivconvert $*: says $(cat err.txt)"
}
message='--bogus: is no option of kivconvert; see --help' says --bogus
message='--treshold: is no option of region; see --help' says region a.png --treshold 5 -o out.csv
message='--cut-out: is no option of edit; see --help' says edit a.png a.json --cut-out=1
message='A subcommand is required; see --help' says
message='--contour: Value -1 not in range 0 to 2147483647; see --help' says region a.png --contour -1 -o out.csv
message='--width: Value 1048577 not in range 1 to 1048576; see --help' says image a.csv --width 1048577 -o out.png
cp a.csv ./--a.csv
expect 0 info -- --a.csv
expect 0 edit a.png a.json --help
expect 0 --help
expect 0 --version

[ "$failures" = 0 ]
