#!/bin/sh
# SPDX-License-Identifier: MIT
# kivconvert does on files what the library does in memory.
set -eu
cd "$(mktemp -d)"
trap 'rm -r "$PWD"' EXIT
cat > parts.csv << 'END'
# width=640 height=480
row,colBegin,colEnd
100,50,500
239,50,500
240,50,500
241,50,500
END
kivconvert image parts.csv -o parts.png

kivconvert difference parts.png --roi circle:320,240,100 -o rest.png
kivconvert contours rest.png -o rest.svg
kivconvert info rest.png
test -s rest.svg
# Prints:
#   kind       image; the runs are those of its non-zero pixels
#   frame      640 x 480
#   runs       7
#   pixels     1205
#   columns    50 to 500
#   rows       100 to 241
