# SPDX-License-Identifier: MIT
# Sourced by the tests that run kivconvert as its users do: a folder of its own, and what is expected of a run.
# The first argument of the test is the program.
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

# expect STATUS ARGUMENT...: runs kivconvert; a failure must say why in one line that begins with the program's name.
expect() {
    expected=$1
    shift
    "$kivconvert" "$@" >out.txt 2>err.txt
    status=$?
    [ "$status" = "$expected" ] || fail "kivconvert $*: exit status $status instead of $expected: $(cat err.txt)"
    if [ "$expected" != 0 ]; then
        [ "$(wc -l <err.txt)" = 1 ] && grep -q '^kivconvert: ' err.txt || fail "kivconvert $*: says $(cat err.txt)"
    fi
}

# expect_refused STATUS ARGUMENT...: the same, and nothing may be at out.csv or beside it.
expect_refused() {
    expect "$@" -o out.csv
    ls | grep -q '^out\.csv' && fail "kivconvert $*: leaves an output file"
}

same() {
    cmp -s "$1" "$2" || fail "$1 and $2 differ"
}

shows() {
    grep -q "$1" out.txt || fail "info does not tell \"$1\" but $(cat out.txt)"
}
