#!/bin/sh
# SPDX-License-Identifier: MIT
# Fails unless the code in the README and the guide is code of the examples or of the project that the tests of the
# installation build, which are built and run: every block of C++ and CMake stands there as it is, indentation aside, and so
# does every line for kivconvert. Of the project's own scripts, which cannot run within a test, it only asks
# that they exist. docs/installing.md, which another test follows word by word, is left out.
set -eu
examples=$(find examples tests/install/consumer -type f)

# shellcheck disable=SC2086 # one argument per example; no path has spaces
awk '
    function complain(what) {
        print FILENAME ":" FNR ": " what
        bad = 1
    }
    { sub(/^[ \t]+/, "") }
    FILENAME !~ /\.md$/ {
        examples = examples "\n" $0
        next
    }
    /^```/ {
        if (language ~ /^(cpp|cmake)$/ && index(examples "\n", block "\n") == 0) {
            complain("no example has the code that ends here")
        }
        language = language == "" && $0 != "```" ? substr($0, 4) : ""
        blocks += language == "cpp"
        block = ""
        next
    }
    language != "" { block = block "\n" $0 }
    language == "sh" && /^kivconvert / && index(examples "\n", "\n" $0 "\n") == 0 { complain("no example has this line") }
    language == "sh" && /^scripts\// && system("test -x " $1) != 0 { complain("there is no such script") }
    END {
        if (blocks == 0) {
            print "no code was found"
            bad = 1
        }
        exit bad
    }' $examples README.md $(ls docs/*.md | grep -vx docs/installing.md)
