# SPDX-License-Identifier: MIT
# Makes the Debian packages, has lintian look at them, installs them into a root of their own, builds and runs the
# example there, and purges them.
. "$(dirname "$0")/common.sh"
need lintian fakeroot dpkg-deb dpkg-shlibdeps
work="$PWD/packages"
build="$KIV_SOURCE/build/package"
root="$work/root"
mkdir -p "$work"

# Prints what a command says only when it fails.
quietly() {
    "$@" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
}

rm -f "$build"/*.deb
(cd "$KIV_SOURCE" && quietly cmake --preset package)
quietly cmake --build "$build" --target all
(cd "$build" && quietly cpack)

# They are not for upload to Debian, so no bug is closed. CPack calls ldconfig, though the trigger would be enough.
lintian --no-cfg --allow-root --fail-on error,warning \
    --suppress-tags initial-upload-closes-no-bugs,maintscript-calls-ldconfig "$build"/*.deb

# dpkg checks the dependencies against the packages of this machine. The packages' scripts call ldconfig, which must not
# reach this machine.
new_folder "$root"
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates" "$work/path"
cp /var/lib/dpkg/status "$root/var/lib/dpkg/"
ln -sf /bin/true "$work/path/ldconfig"
dpkg_there() {
    PATH="$work/path:$PATH:/usr/sbin:/sbin" quietly fakeroot \
        dpkg --root="$root" --log="$work/dpkg.log" --force-not-root,script-chrootless "$@"
}
dpkg_there --install "$build"/*.deb

export LD_LIBRARY_PATH="$root/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)"
new_folder "$work/consumer"
cmake -S "$KIV_SOURCE/tests/install/consumer" -B "$work/consumer" -G Ninja -DCMAKE_CXX_COMPILER="$CXX" \
    -DCMAKE_PREFIX_PATH="$root/usr" -DEXAMPLE="$example" >"$work/log"
quietly cmake --build "$work/consumer"
expect_example "$work/consumer/example"
"$root/usr/bin/kivconvert" --version

dpkg_there --purge $(for file in "$build"/*.deb; do dpkg-deb -f "$file" Package; done)
left=$(find "$root" -path "$root/var" -prune -o ! -type d -print)
[ -z "$left" ] || { echo "left behind: $left" >&2; exit 1; }
