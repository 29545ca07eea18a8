#!/bin/sh
# SPDX-License-Identifier: MIT
# What surrounds a run of kivconvert: standard streams that are full or closed, limits of files, memory and threads.
#
#   processes_command_line_test.sh KIVCONVERT
. "$(dirname "$0")/command_line.sh"

# ends STATUS WHAT: the run before it ended so.
ends() {
    status=$?
    [ "$status" = "$1" ] || fail "$2: exit status $status instead of $1: $(cat err.txt)"
}

says() {
    [ "$(cat err.txt)" = "kivconvert: $1" ] || fail "says $(cat err.txt) instead of $1"
}

expect 0 image roi:ring:30,24,8,20 --width 64 --height 48 -o ring.png
expect 0 region ring.png -o ring.csv

# What has been printed must arrive.
for arguments in --help --version 'info ring.csv' 'region --help'; do
    # shellcheck disable=SC2086 # several words
    "$kivconvert" $arguments >/dev/full 2>err.txt
    ends 2 "$arguments into a full file"
    says 'standard output: cannot be written: No space left on device'
    # shellcheck disable=SC2086
    "$kivconvert" $arguments >&- 2>err.txt
    ends 2 "$arguments without standard output"
    says 'standard output: cannot be written: Bad file descriptor'
done
"$kivconvert" region ring.png -o out.csv >&- 2>err.txt
ends 0 'what prints nothing'
same ring.csv out.csv

# A complaint that cannot be told changes nothing else.
"$kivconvert" info none.csv 2>/dev/full
ends 2 'a full standard error'
"$kivconvert" info none.csv 2>&-
ends 2 'no standard error'

# A file never gets the place of a standard stream that is closed, and what is meant for that one. The input is a pipe, so
# that it is open while one looks.
mkfifo pipe.csv
"$kivconvert" region pipe.csv -o out.json <&- >&- 2>&- &
exec 9>pipe.csv
for stream in 0 1 2; do
    [ "$(readlink /proc/$!/fd/$stream)" = /dev/null ] || fail "a file is open as $stream"
done
cat ring.csv >&9
exec 9>&-
wait $!
ends 0 'no standard streams'
expect 0 region out.json -o out.csv
same ring.csv out.csv

# Limits, where the build can live with them. A thread has a stack as large as the limit of stacks.
(
    ulimit -f 1
    "$kivconvert" image roi:ring-sector:500,500,1,500,9,99 --width 1000 --height 1000 -o out.bmp 2>err.txt
)
ends 2 'a file that may not grow'
says 'out.bmp: cannot be written: File too large'
[ -z "$(ls -A | grep kivconvert)" ] || fail "leaves $(ls -A)"
if (ulimit -v 500000 && "$kivconvert" --version) >out.txt 2>&1; then
    truncate -s 2G large.csv
    (
        ulimit -v 500000
        "$kivconvert" region large.csv -o out.csv 2>err.txt
    )
    ends 1 'a lack of memory'
    says 'large.csv: out of memory'
    (
        ulimit -v 500000
        ulimit -s 1000000
        mkdir in
        cp ring.csv in/1.csv
        cp ring.csv in/2.csv
        "$kivconvert" image in -o images 2>err.txt
    )
    ends 0 'a lack of threads'
    [ "$(ls images | wc -l)" = 2 ] || fail "converts $(ls images)"
fi

[ "$failures" = 0 ]
