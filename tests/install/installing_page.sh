# SPDX-License-Identifier: MIT
# Follows docs/installing.md, and what docs/README.md says of the examples, on this system, of which nothing is changed: all
# is written into layers above it, which are gone afterwards. Mounting them takes root, who asks for it by KIV_ROOT_TESTS.
. "$(dirname "$0")/common.sh"
need unshare
[ -n "${KIV_ROOT_TESTS-}" ] || { echo "skipped: KIV_ROOT_TESTS is not set (scripts/check sets it)"; exit 77; }
[ "$(id -u)" = 0 ] || { echo "skipped: only root may install"; exit 77; }
layers="$PWD/installing_page"
new_folder "$layers"
unshare --mount sh -eu -c 'mount -t tmpfs tmpfs "$1"; mkdir "$1/a" "$1/b"
    mount -t overlay overlay /etc -o "lowerdir=/etc,upperdir=$1/a,workdir=$1/b"' sh "$layers" ||
    { echo "skipped: no file systems can be mounted here"; exit 77; }
unshare --mount sh -eu -c '
    mount -t tmpfs tmpfs "$1"
    for folder in /etc /usr /var "$KIV_SOURCE"; do
        mkdir -p "$1$folder/changes" "$1$folder/work"
        mount -t overlay overlay "$folder" -o "lowerdir=$folder,upperdir=$1$folder/changes,workdir=$1$folder/work"
    done
    cd "$KIV_SOURCE"
    exec tests/install/follow_pages.sh --examples' sh "$layers"
