#!/bin/sh
# SPDX-License-Identifier: MIT
# Contours and points of kivconvert: tracing, drawing, listing, and what is refused.
#
#   contours_command_line_test.sh KIVCONVERT
. "$(dirname "$0")/command_line.sh"

refused_everywhere() {
    expect_refused 2 "$@"
    for output in out.json out.svg out.png; do
        expect 2 "$@" -o "$output"
        [ ! -e "$output" ] || fail "kivconvert $*: leaves $output"
    done
}

expect 0 image roi:ring:30,24,8,20 --width 64 --height 48 -o ring.png
expect 0 region ring.png -o ring.csv

# Contours of an image are those of its runs: an outer border and a hole.
expect 0 contours ring.png -o ring.json
expect 0 contours ring.csv -o runs.json
same ring.json runs.json
[ "$(grep -c '"hole":false' ring.json)" = 1 ] || fail 'not one outer border'
[ "$(grep -c '"hole":true' ring.json)" = 1 ] || fail 'not one hole'
expect 0 contours ring.csv -o ring.svg --image ring.png
[ "$(grep -c '<path d="M[^M]*ZM[^M]*Z"/>' ring.svg)" = 1 ] || fail 'not one path with one hole'
[ "$(grep -c '<image ' ring.svg)" = 1 ] || fail 'no picture'

# A square is added, then cut out; what was traced and is drawn again gives what it encloses.
square='{"width":0,"height":0,"contours":[{"points":[[28,22],[32,22],[32,26],[28,26]]}]}'
echo "$square" >square.json
expect 0 edit ring.png square.json --add -o added.png
expect 0 union ring.png roi:rectangle:28,22,32,26 -o union.png
same added.png union.png
expect 0 edit added.png square.json --cut -o cut.png
same ring.png cut.png
expect 0 edit ring.png ring.json --add -o disc.png
expect 0 image roi:circle:30,24,20 --width 64 --height 48 -o circle.png
same disc.png circle.png
expect 0 edit disc.png ring.json --cut -o empty.png
expect 0 info empty.png
shows 'pixels *0'
expect 0 contours empty.png -o empty.json
expect 0 edit ring.png empty.json --cut -o unchanged.png
same ring.png unchanged.png
expect 0 edit empty.png square.json --add -o again.png

# A line per pixel.
expect 0 points ring.png -o points.csv
expect 0 info ring.png
shows "pixels *$(($(wc -l <points.csv) - 1))\$"
[ "$(head -n 2 points.csv)" = "$(printf 'x,y\n30,4')" ] || fail "points begin with $(head -n 2 points.csv)"
expect 0 points ring.csv -o same.csv
same points.csv same.csv

: >void.json
printf '{"width":7,' >half.json
printf '{"width":7,"height":5,"contours":[{"points":[]}]}' >pointless.json
printf '{"width":7,"height":5,"contours":[{"points":[[1,"2"]]}]}' >type.json
printf '{"width":7,"height":5,"contours":[{"points":[[1,2e9]]}]}' >far.json
printf '{"width":7,"height":5,"runs":[]}' >runs.json
for contours in none.json void.json half.json pointless.json type.json far.json runs.json ring.svg ring.csv .; do
    refused_everywhere edit ring.png $contours --add
done
printf '# width=7 height=3\nrow,colBegin,colEnd\n0,-2147483648,2147483647\n' >long.csv
printf '# width=0 height=0\nrow,colBegin,colEnd\n' >nothing.csv
printf 'P5\n1 1\n65535\n\001\001' >deep.pgm
printf 'no image' >text.png
expect_refused 2 points long.csv
for input in none.csv none.png text.png pointless.json .; do
    refused_everywhere contours $input
    refused_everywhere points $input
    refused_everywhere edit $input square.json --cut
done
expect 1 contours nothing.csv -o out.svg
expect 1 contours deep.pgm -o out.json
expect 1 points nothing.csv -o out.csv
expect 1 edit deep.pgm square.json --cut -o out.png
expect 2 contours ring.png -o out.csv
expect 2 contours ring.png -o out.json --image ring.png
expect 2 contours ring.png -o out.svg --image text.png
expect 2 contours ring.png -o out.svg --image deep.pgm
expect 2 points ring.png -o out.json
expect 2 edit ring.png square.json -o out.png
expect 2 edit ring.png square.json --add --cut -o out.png
expect 2 edit ring.png square.json --add -o out.jpg
for output in out.*; do
    [ "$output" = out.txt ] || fail "a failure leaves $output"
done

[ "$failures" = 0 ]
