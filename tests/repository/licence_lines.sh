#!/bin/sh
# SPDX-License-Identifier: MIT
# Fails unless every file that can carry a comment has its licence line at its head.
set -eu
if ! git rev-parse --is-inside-work-tree > /dev/null 2>&1; then
    echo "not a git checkout: nothing to list the files with"
    exit 77
fi

# JSON, pictures, and files that are data byte for byte or made by a program have no room for comments.
missing=$(git ls-files --cached --others --exclude-standard -- ':!LICENSE' ':!fuzz/corpus/*/*' ':!*.json' ':!*.jpg' ':!*.png' ':!*/exported_symbols.txt' \
    ':!*.csv' ':!abi/*.txt' ':!docs/images/speed.svg' |
    while IFS= read -r file; do
        head -n 3 "$file" | grep -q 'SPDX-License-Identifier: MIT' || echo "$file"
    done)
if [ -n "$missing" ]; then
    printf 'no licence line in the first three lines of:\n%s\n' "$missing"
    exit 1
fi
