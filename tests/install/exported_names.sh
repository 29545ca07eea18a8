#!/bin/sh
# SPDX-License-Identifier: MIT
# Libraries export nothing but what is theirs: classes and operators whose names begin with Kiv or IKiv. What the compiler
# makes of the templates of others is not. Usage: exported_names.sh LIBRARY...
set -eu
for library in "$@"; do
    names=$(nm -DC --defined-only "$library" | sed 's/^[0-9a-f]* . //')
    echo "$names" | grep -q '^Kiv'
    others=$(echo "$names" | grep -v '^I\{0,1\}Kiv\|^operator[^ (]*(Kiv') || continue
    echo "$library exports also:" "$others" >&2
    exit 1
done
