#!/bin/sh
# SPDX-License-Identifier: MIT
# The library exports exactly the symbols of the committed list. Usage: exported_symbols.sh LIBRARY LIST
set -eu
nm -D --defined-only "$1" | sed 's/^[0-9a-f]* //' | c++filt | LC_ALL=C sort | diff -u "$2" -
