#!/bin/sh
# SPDX-License-Identifier: MIT
# Shapes as operands of kivconvert: every shape, where its frame is from, and what is refused.
#
#   shapes_command_line_test.sh KIVCONVERT
. "$(dirname "$0")/command_line.sh"

# pixels SHAPE COUNT: as runs and as an image, the shape has so many pixels in a frame of 64 x 48.
pixels() {
    expect 0 region "roi:$1" --width 64 --height 48 -o runs.csv
    expect 0 info runs.csv
    shows "pixels *$2\$"
    expect 0 image "roi:$1" --width 64 --height 48 -o painted.png
    expect 0 region painted.png -o back.csv
    same runs.csv back.csv
}

pixels rectangle:2,2,30,20 551
pixels rotated-rectangle:30,30,30,10,90 341
pixels circle:30,30,1 5
pixels ellipse:30,30,2,1,90 7
pixels ring:30,30,1,1 4
pixels ring-sector:30,30,1,2,0,90 5
pixels polygon:5,5,7,5,7,7,5,7 9
pixels circle:-90,0,5 0

# Between two shapes, and with a file on either side.
frame='--width 64 --height 48'
expect 0 region roi:rectangle:0,0,40,47 $frame -o a.csv
expect 0 region roi:circle:40,24,10 $frame -o b.csv
for operation in union intersection difference; do
    expect 0 "$operation" a.csv b.csv -o files.csv
    expect 0 "$operation" roi:rectangle:0,0,40,47 b.csv -o first.csv
    same files.csv first.csv
    expect 0 "$operation" a.csv roi:circle:40,24,10 -o second.csv
    same files.csv second.csv
    expect 0 "$operation" a.csv --roi circle:40,24,10 -o option.csv
    same files.csv option.csv
    expect 0 "$operation" a.csv --roi=circle:40,24,10 -o option.csv
    same files.csv option.csv
    expect 0 "$operation" --roi rectangle:0,0,40,47 b.csv -o option.csv
    same files.csv option.csv
    expect 0 "$operation" roi:rectangle:0,0,40,47 roi:circle:40,24,10 $frame -o shapes.png
    expect 0 info shapes.png
    shows 'frame *64 x 48'
done
expect 0 complement roi:rectangle:0,0,63,40 $frame -o complement.csv
expect 0 info complement.csv
shows 'pixels *448$'
expect 0 intersection roi:circle:9,9,3 roi:circle:-90,0,5 $frame -o nothing.csv
[ "$(cat nothing.csv)" = "$(printf '# width=64 height=48\nrow,colBegin,colEnd')" ] || fail "$(cat nothing.csv)"

# What has no frame, no need of one, or a wrong one.
circle=roi:circle:9,9,3
expect_refused 2 region $circle
expect_refused 2 region $circle --width 64
expect_refused 2 region $circle --width 0 --height 48
expect_refused 2 region $circle --width 2000000 --height 1
expect_refused 2 region $circle $frame --threshold 7
expect_refused 2 image $circle
expect_refused 2 union $circle $circle
expect_refused 2 union $circle $circle --height 48
expect_refused 2 union a.csv b.csv $frame
expect_refused 2 complement $circle
expect_refused 2 complement a.csv $frame
expect_refused 2 union $circle none.csv
for shape in '' circle circle: square:1,2 circle:1,2 circle:1,2,3,4 circle:1,2,x circle:1,2,-3 circle:inf,2,3 \
    rectangle:1,2,3 rotated-rectangle:1,2,-3,4,5 ellipse:1,2,3,-4,5 ring:1,2,-3,4 ring-sector:1,2,3,4,5,361 \
    polygon: polygon:1,2,3 'circle:1,2,
3'; do
    expect_refused 2 region "roi:$shape" $frame
    expect_refused 2 union a.csv "roi:$shape"
done

[ "$failures" = 0 ]
