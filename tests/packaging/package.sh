#!/bin/sh
# Makes the Debian package, has lintian read it, and puts it into a bare system and takes it away again:
#
#   package.sh SOURCES
#
# The last needs root and the network, and is passed over with a message without them. With
# QUELMONT_PACKAGE_TWICE=1 the package is made in a second folder too, for somebody with other habits, and has to be
# the same: that takes as long again.
set -eu
sources=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# make_package FOLDER UMASK: from a copy of the sources that somebody with that umask unpacked.
make_package() {
    (
        umask "$2"
        mkdir -p "$1"
        cd "$sources"
        tar --create --exclude=./build --exclude=./.git . | tar --extract --no-same-permissions --directory "$1"
        cd "$1"
        scripts/package
    ) >"$work/log" 2>&1 || { tail -30 "$work/log"; exit 1; }
}
make_package "$work/one" 022
package=$(echo "$work"/one/build/package/*.deb)
lintian --allow-root --fail-on error,warning "$package"
echo "lintian finds nothing."

if [ -n "${QUELMONT_PACKAGE_TWICE:-}" ]; then
    touch "$work/one/CHANGELOG.md" # its time tells nothing
    make_package "$work/a folder of another name" 027
    second=$(echo "$work/a folder of another name"/build/package/*.deb)
    sha256sum "$package" "$second"
    if ! cmp "$package" "$second"; then
        for made in "$package" "$second"; do
            dpkg-deb --fsys-tarfile "$made" | tar --list --verbose --full-time >"$made.list"
        done
        diff "$package.list" "$second.list" || true
        exit 1
    fi
    echo "The package is the same in both folders."
else
    echo "The package is made once; with QUELMONT_PACKAGE_TWICE=1 it is made in a second folder and compared."
fi

if [ "$(id -u)" != 0 ]; then
    echo "Not root: the package is not installed in a bare system."
    exit 0
fi
mirror=$(apt-cache policy | sed -n 's/^ *[0-9]* \(http[^ ]*\) .*/\1/p' | grep -v security | head -1)
if ! debootstrap --variant=minbase bookworm "$work/root" "$mirror" >"$work/debootstrap.log" 2>&1; then
    tail -3 "$work/debootstrap.log"
    echo "No bare system could be made: the package is not installed in one."
    exit 0
fi
within() { chroot "$work/root" env DEBIAN_FRONTEND=noninteractive "$@"; }
if ! within apt-get -q update >"$work/update.log" 2>&1; then
    tail -3 "$work/update.log"
    echo "The bare system has no packages to choose from: the package is not installed in one."
    exit 0
fi
cp "$package" "$work/root/tmp/quelmont.deb"
within apt-get -q -o Dpkg::Use-Pty=0 install -y --no-install-recommends /tmp/quelmont.deb >"$work/install.log" 2>&1 ||
    { tail -20 "$work/install.log"; exit 1; }
# The programs find their folder through /proc.
if mount --bind /proc "$work/root/proc" 2>/dev/null; then
    trap 'umount "$work/root/proc"; rm -rf "$work"' EXIT
    map=
else
    echo "There is no /proc in the bare system: drawing the grid alone."
    map=--no-map
fi
within quelmont-draw $map /tmp/world.png
within test -s /tmp/world.png
within quelmont --version
within quelmont-convert --version
within apt-get -q -o Dpkg::Use-Pty=0 remove -y quelmont >"$work/remove.log" 2>&1
left=$(find "$work/root" \( -path '*/proc' -o -path '*/sys' -o -path '*/tmp' -o -path '*/var' \) -prune \
    -o -iname '*quelmont*' -print)
if [ -n "$left" ]; then
    echo "These are left behind:"
    echo "$left"
    exit 1
fi
echo "Installed in a bare system, run, and removed without a trace."
