#!/bin/sh
# SPDX-License-Identifier: MIT
# Folders as inputs of kivconvert.
#
#   folders_command_line_test.sh KIVCONVERT
. "$(dirname "$0")/command_line.sh"

mkdir in
for i in 1 2 3 4 5 6 7 8 9; do
    expect 0 image roi:circle:9,9,$i --width 20 --height 20 -o in/$i.png
    expect 0 region in/$i.png -o $i.coco.json
    expect 0 region in/$i.png -o $i.csv
done

expect 0 region in -o runs
[ ! -s err.txt ] && [ ! -s out.txt ] || fail "is not quiet: $(cat err.txt out.txt)"
expect 0 region in -o coco --to .coco.json
expect 0 image coco -o images --to png
for i in 1 2 3 4 5 6 7 8 9; do
    same runs/$i.csv $i.csv
    same coco/$i.coco.json $i.coco.json
done
[ "$(ls images | wc -l)" = 9 ] || fail "images: $(ls images)"

# A bar on a terminal, and nothing of it left.
if command -v script >/dev/null; then
    script -qec "$kivconvert contours in -o contours" /dev/null >terminal.txt
    grep -q '\[#####*\] 9 of 9' terminal.txt || fail "no bar: $(cat -v terminal.txt)"
    script -qec "stty cols 30; $kivconvert contours in -o contours" /dev/null >terminal.txt
    grep -q '\[#*\] 9 of 9' terminal.txt || fail "no narrow bar: $(cat -v terminal.txt)"
    longest=$(tr '\r' '\n' <terminal.txt | sed 's/\x1b\[K//' | wc -L)
    [ "$longest" -le 30 ] || fail "a bar of $longest columns on a terminal of 30"
    [ "$(ls contours | wc -l)" = 9 ] || fail "contours: $(ls contours)"
fi

# What is damaged is reported, everything else converted.
printf 'no image' >in/3.png
printf 'P5\n1 1\n65535\n\001\001' >in/deep.pgm
"$kivconvert" points in -o points >out.txt 2>err.txt
[ $? = 2 ] || fail 'the worst status does not count'
printf '%s\n' 'kivconvert: in/3.png: is not an image of a known format, or a damaged or too large one' \
    'kivconvert: in/deep.pgm: KIVMV_ERR_BIT_DEPTH (2001014): the input image is not 8-bit' \
    'kivconvert: 2 of 10 files could not be converted' >expected.txt
same err.txt expected.txt
[ "$(ls -A points | tr '\n' ' ')" = '1.csv 2.csv 4.csv 5.csv 6.csv 7.csv 8.csv 9.csv ' ] || fail "points: $(ls -A points)"

# What is no file is reported as well, and is not waited for; files may be reached by links.
mkdir odd
ln -s ../in/1.png odd/1.png
ln -s 2.png odd/2.png
ln -s none.png odd/3.png
mkfifo odd/4.csv
"$kivconvert" region odd -o even >out.txt 2>err.txt
[ $? = 2 ] || fail 'the status does not tell what is no file'
printf 'kivconvert: %s\n' 'odd/2.png: is not a regular file' 'odd/3.png: is not a regular file' \
    'odd/4.csv: is not a regular file' '3 of 4 files could not be converted' >expected.txt
same err.txt expected.txt
same even/1.csv 1.csv

# In place, again and again: a.png becomes a.coco.json, which becomes itself.
mkdir place
cp 1.coco.json place
cp in/2.png place
for i in 1 2; do
    expect 0 region place -o place --to .coco.json
    rm -f place/2.png
    [ "$(ls place | tr '\n' ' ')" = '1.coco.json 2.coco.json ' ] || fail "in place: $(ls place)"
done

# An ending that is no output's is refused at once.
for command in region image contours points matrix; do
    expect 2 $command in -o never --to txt
    grep -q '^kivconvert: never/\*\.txt: is not named like ' err.txt || fail "says $(cat err.txt)"
    [ ! -e never ] || fail "kivconvert $command makes a folder for nothing"
done

mkdir void
cp in/1.png in/1.pgm
expect_refused 2 region void
expect_refused 2 region in
grep -q 'out.csv/1.csv: would be made of both in/1.pgm and in/1.png$' err.txt || fail "says $(cat err.txt)"
expect_refused 2 union in in
expect 2 image in -o 1.csv

[ "$failures" = 0 ]
