#!/bin/sh
# SPDX-License-Identifier: MIT
# check_output.sh PROGRAM SOURCE: fails unless the program succeeds and prints what its source ends with, as a comment
# that begins with "Prints:".
set -eu
said=$(sed -E '1,/^(\/\/|#) Prints:$/d; s/^(\/\/|#)   //' "$2")
if [ -z "$said" ]; then
    echo "$2 does not say what it prints"
    exit 1
fi
printed=$("$1")
if [ "$printed" != "$said" ]; then
    printf '%s printed:\n%s\nand not, as it says:\n%s\n' "$1" "$printed" "$said"
    exit 1
fi
