# SPDX-License-Identifier: MIT
# Installs, with and without DESTDIR, which must give the same files; uninstalls; and moves a tree to KIV_TREE, where the
# program must work and the other tests go on.
. "$(dirname "$0")/common.sh"
work="$(dirname "$KIV_TREE")"
new_folder "$work"

DESTDIR="$work/stage" cmake --install "$KIV_BUILD" --prefix "/opt/kiv tree" >/dev/null
cmake --install "$KIV_BUILD" --prefix "$work/prefix" >/dev/null
files_of "$work/stage/opt/kiv tree" >"$work/staged"
files_of "$work/prefix" | diff -u "$work/staged" -
grep -q "/$KIV_LIBDIR/libKivDataConvert.so.3$" "$work/staged"

xargs -d '\n' rm -- <"$KIV_BUILD/install_manifest.txt"
[ -z "$(files_of "$work/prefix")" ]

mv "$work/stage/opt/kiv tree" "$KIV_TREE"
"$KIV_TREE/bin/kivconvert" --version
