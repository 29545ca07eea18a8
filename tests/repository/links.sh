#!/bin/sh
# SPDX-License-Identifier: MIT
# Fails unless every link from a document to another file, or to a heading of a document, leads somewhere. The parts of
# docs/speed.md in bench/ are looked at where they end up.
set -eu
documents=$(find . -name '*.md' ! -path './build/*' ! -path './.git/*' ! -path './bench/*')

# shellcheck disable=SC2086 # one argument per document; no path has spaces
awk '
    function normal(path) { # without a/.. and ./
        gsub(/\/\.\//, "/", path)
        while (match(path, /[^\/.][^\/]*\/\.\.\//)) {
            path = substr(path, 1, RSTART - 1) substr(path, RSTART + RLENGTH)
        }
        return path
    }
    function check(link,    place, path) {
        if (link ~ /^[a-z]+:/) {
            return
        }
        ++links
        split(link, place, "#")
        path = place[1] == "" ? FILENAME : folder place[1]
        if (system("test -e \"" path "\"") != 0) {
            complain(link, "there is no such file")
        } else if (place[2] != "") {
            wanted[normal(path) "#" place[2]] = FILENAME ":" FNR ": " link
        }
    }
    function complain(link, what) {
        print FILENAME ":" FNR ": " link ": " what
        bad = 1
    }
    FNR == 1 {
        folder = FILENAME
        sub(/[^\/]*$/, "", folder)
        code = 0
    }
    /^```/ { code = !code }
    code { next }
    /^#+ / { # the name of a heading: its letters in lower case, hyphens for spaces, no punctuation
        name = tolower($0)
        sub(/^#+ /, "", name)
        gsub(/[^a-z0-9 _-]/, "", name)
        gsub(/ /, "-", name)
        headings[normal(FILENAME) "#" name] = 1
    }
    {
        rest = $0
        gsub(/`[^`]*`/, "", rest)
        while (match(rest, /\]\([^) ]+\)/)) {
            link = substr(rest, RSTART + 2, RLENGTH - 3)
            rest = substr(rest, RSTART + RLENGTH)
            check(link)
        }
    }
    END {
        for (place in wanted) {
            if (!(place in headings)) {
                print wanted[place] ": there is no such heading"
                bad = 1
            }
        }
        if (links == 0) {
            print "no links were found"
            bad = 1
        }
        exit bad
    }' $documents
