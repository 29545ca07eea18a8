#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs kivconvert as its users do: standard streams that are full or closed, limits of files, memory and threads, and
# the progress bar.
#
#   kivconvert_smoke_test.sh KIVCONVERT
set -u

kivconvert=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

# ends STATUS COMMAND...
ends() {
    expected=$1
    shift
    "$@" >out.txt 2>err.txt
    status=$?
    [ "$status" = "$expected" ] || fail "$*: exit status $status instead of $expected: $(cat err.txt)"
}

says() {
    [ "$(cat err.txt)" = "kivconvert: $1" ] || fail "says $(cat err.txt) instead of $1"
}

ends 0 "$kivconvert" image roi:ring:30,24,8,20 --width 64 --height 48 -o ring.png
ends 0 "$kivconvert" region ring.png -o ring.csv

# Each shared library takes time at the start; the project's own are in the program.
ldd "$kivconvert" | grep libKiv && fail 'the program loads libraries of the project'

# What has been printed must arrive.
ends 2 sh -c '"$1" info ring.csv >/dev/full' sh "$kivconvert"
says 'standard output: cannot be written: No space left on device'
ends 2 sh -c '"$1" --help >&-' sh "$kivconvert"
says 'standard output: cannot be written: Bad file descriptor'
ends 0 sh -c '"$1" region ring.png -o out.csv <&- >&- 2>&-' sh "$kivconvert"
cmp ring.csv out.csv || fail 'without standard streams, the output differs'
ends 2 sh -c '"$1" info none.csv 2>/dev/full' sh "$kivconvert"

# A dash is standard input or output.
"$kivconvert" region - --from png -o - --to csv <ring.png >out.csv || fail 'does not convert standard input'
cmp ring.csv out.csv || fail 'from standard input, the output differs'
"$kivconvert" union ring.png - --from .csv -o - --to .csv <ring.csv | cmp - ring.csv || fail 'the union differs'
ends 2 "$kivconvert" region - -o out.csv
says '-: is standard input; --from ENDING says what it holds'
ends 2 "$kivconvert" region ring.png -o -
says '-: is standard output; --to ENDING says what it gets'
ends 2 "$kivconvert" compare - - --from csv
says '-: is standard input, which can be read once'
ends 2 sh -c '"$1" region ring.png -o - --to csv >/dev/full' sh "$kivconvert"
says '<stdout>.csv: cannot be written: No space left on device'

# JSON is read more than once: to see what it is, and in a data set for each annotation.
ends 0 "$kivconvert" dataset ring.png -o set.json --by file
ends 0 "$kivconvert" region set.json --annotation 1 -o set.csv
"$kivconvert" region - --from json --annotation 1 -o - --to csv <set.json | cmp - set.csv || fail 'the annotation differs'
"$kivconvert" dataset set.json -o polygons.json --segmentation polygons
cat set.json | "$kivconvert" dataset - --from json -o - --to .json --segmentation polygons | cmp - polygons.json ||
    fail 'from a pipe, the data set differs'
"$kivconvert" info - --from json <set.json | grep -q 'annotations 1' || fail 'does not describe standard input'
"$kivconvert" region ring.png -o ring.json
cat ring.json | "$kivconvert" region - --from json -o - --to csv | cmp - ring.csv || fail 'from JSON, the runs differ'
ends 2 sh -c '"$1" info - --from json </dev/null' sh "$kivconvert"
says '<stdin>.json: is empty'

# What is killed leaves whole outputs, and goes on behind them: here while it waits for the third input.
mkdir job
for i in 1 2 4; do cp ring.csv "job/$i.csv"; done
mkfifo job/3.csv
"$kivconvert" image job/1.csv job/2.csv job/3.csv job/4.csv -o results --jobs 1 &
while [ ! -e results/2.png ] && kill -0 $! 2>/dev/null; do sleep 0.05; done
kill -9 $! && wait $! 2>/dev/null
[ "$(ls -A results | tr '\n' ' ')" = '1.png 2.png ' ] || fail "leaves $(ls -A results)"
rm job/3.csv
cp ring.csv job/3.csv
before=$(ls -i results/2.png)
ends 0 "$kivconvert" image job -o results --resume
[ "$(ls -i results/2.png)" = "$before" ] || fail 'makes an output again'
for i in 1 2 3 4; do cmp ring.png "results/$i.png" || fail "$i.png is not whole"; done

# Limits. A thread has a stack as large as the limit of stacks.
ends 2 sh -c 'ulimit -f 1; "$1" image roi:circle:500,500,500 --width 1000 --height 1000 -o out.bmp' sh "$kivconvert"
says 'out.bmp: cannot be written: File too large'
[ "$(ls -A | grep -c '^\.kivconvert')" = 0 ] || fail "leaves $(ls -A)"
if (ulimit -v 500000 && "$kivconvert" --version) >out.txt 2>&1; then # sanitizers need more
    truncate -s 2G large.csv
    ends 1 sh -c 'ulimit -v 500000; "$1" region large.csv -o out.csv' sh "$kivconvert"
    says 'large.csv: out of memory'
    ends 1 sh -c 'ulimit -v 500000; "$1" union ring.csv large.csv -o out.csv' sh "$kivconvert"
    says 'union of ring.csv and large.csv: out of memory'
    mkdir in
    cp ring.csv in/1.csv
    cp ring.csv in/2.csv
    export OPENBLAS_NUM_THREADS=1 # which cannot live without threads
    ends 0 sh -c 'ulimit -v 500000; ulimit -s 1000000; "$1" image in -o images' sh "$kivconvert"
    [ "$(ls images | wc -l)" = 2 ] || fail "converts $(ls images)"
fi

# A bar on a terminal, and nothing on standard error elsewhere.
mkdir -p runs
cp ring.csv runs
ends 0 "$kivconvert" image runs -o images
[ ! -s err.txt ] || fail "prints $(cat err.txt)"
if command -v script >/dev/null; then
    script -qec "$kivconvert image runs -o images" /dev/null >terminal.txt
    grep -qF '[....................] 0 of 1' terminal.txt || fail "no bar: $(cat -v terminal.txt)"
fi

[ "$failures" = 0 ]
