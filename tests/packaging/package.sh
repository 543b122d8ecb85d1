#!/bin/sh
# Makes the Debian package twice, has lintian read it, and puts it into a bare system and takes it away again:
#
#   package.sh BUILD_FOLDER
#
# The last needs root and the network, and is passed over with a message without them.
set -eu
build=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
umask 022
export SOURCE_DATE_EPOCH=1767225600

for run in first second; do
    (cd "$build" && cpack -G DEB -B "$work/$run" >"$work/$run.log") || { cat "$work/$run.log"; exit 1; }
    sleep 1
done
cmp "$work"/first/*.deb "$work"/second/*.deb
package=$(echo "$work"/first/*.deb)
lintian --allow-root --fail-on error,warning "$package"
echo "The package is the same twice, and lintian finds nothing."

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
