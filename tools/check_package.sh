#!/usr/bin/env bash
# Installs the Debian package into a clean system, runs the trainer there as an ordinary user, upgrades the package, and
# removes it.
#
#   tools/check_package.sh [PACKAGE]
#
# Must be run as root, on Debian. Uses debootstrap. Without an argument builds the package twice and compares the two.
# Needs some minutes and a gigabyte, so the tests don't call it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/functions.sh

sources=$(cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources 2>/dev/null || true)
mirror=${DEBIAN_MIRROR:-$(awk '/^(deb|URIs:)/ { for (i = 2; i <= NF; ++i) if ($i ~ /^http/) { print $i; exit } }' <<<"$sources")}
suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
root=$(mktemp -d) && chmod 755 "$root"   # readable by the ordinary user in the chroot
trap 'umount -ql "$root/proc" || true; rm -rf --one-file-system "$root"' EXIT

install_missing debootstrap "${build_packages[@]}" dpkg-dev desktop-file-utils appstream file lintian
if [ $# -eq 0 ]; then
    # Two builds of one commit, in different folders, must give the same bytes.
    SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
    export SOURCE_DATE_EPOCH
    for folder in build/release build/release-again; do
        rm -rf "$folder"
        cmake --preset release -B "$folder" >/dev/null
        cmake --build "$folder" -j "$(getconf _NPROCESSORS_ONLN)"
        (cd "$folder" && cpack -G DEB >/dev/null)
    done
    cmp build/release/vorn_*.deb build/release-again/vorn_*.deb || { say "two builds differ"; exit 1; }
    say "two builds give the same package"
    unset SOURCE_DATE_EPOCH   # otherwise dpkg-deb would give this time to the files of the newer version below
    set -- build/release/vorn_*.deb
fi
package=$(realpath "$1")
lintian --fail-on error "$package"
[ "$(stat -c %s "$package")" -lt 70000000 ] || { say "the package is larger than 70 MB"; exit 1; }
if git rev-parse 2>/dev/null; then   # the package must contain exactly the data files that git tracks
    diff <(git ls-files data/ranges | sed 's,^data,./usr/share/vorn,' | sort) \
        <(dpkg-deb --fsys-tarfile "$package" | tar -t | grep '^./usr/share/vorn/.*[^/]$' | sort) ||
        { say "the data files in the package aren't those in git"; exit 1; }
fi

in_root() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 "$@"; }
files_of_root() { (cd "$root" && find . -xdev \( -path ./proc -o -path ./tmp -o -path ./var/cache -o -path ./var/lib -o -path ./var/log -o -path ./home \) -prune -o -print | sort); }

say "creating a clean $suite from $mirror"
debootstrap --variant=minbase "$suite" "$root" "$mirror" >/dev/null
cp /etc/apt/sources.list "$root/etc/apt/" 2>/dev/null || true
mkdir -p "$root/etc/apt/sources.list.d" "$root/etc/apt/apt.conf.d"
cp -r /etc/apt/sources.list.d/. "$root/etc/apt/sources.list.d/" 2>/dev/null || true
cp -r /etc/apt/apt.conf.d/. "$root/etc/apt/apt.conf.d/" 2>/dev/null || true
cp /etc/resolv.conf "$root/etc/" 2>/dev/null || true
mount -t proc proc "$root/proc"
in_root apt-get update -q >/dev/null
in_root apt-get install -q -y --no-install-recommends xvfb xauth xdotool openbox man-db shared-mime-info >/dev/null

say "installing the dependencies first, so that only files of the package count as left behind"
cp "$package" "$root/tmp/vorn.deb"
needs=$(dpkg-deb -f "$package" Depends | tr ',' '\n' | sed 's/|.*//; s/(.*//; s/ //g' | tr '\n' ' ')
# shellcheck disable=SC2086
in_root apt-get install -q -y --no-install-recommends $needs >/dev/null
files_of_root >"$root/tmp/before"

say "installing the package"
in_root dpkg -i /tmp/vorn.deb >/dev/null
desktop-file-validate "$root/usr/share/applications/vorn.desktop"
appstreamcli validate --no-net "$root/usr/share/metainfo/org.vorn.vorn.metainfo.xml"
in_root man -l /usr/share/man/man1/vorn.1.gz >/dev/null
types() { in_root update-mime-database /usr/share/mime && grep -c x-vorn "$root/usr/share/mime/globs2" || true; }
[ "$(types)" -eq 3 ] || { say "the MIME types of the package aren't registered"; exit 1; }
for type in $(sed -n 's,.*:application/\(x-vorn-[a-z]*\):.*,\1,p' "$root/usr/share/mime/globs2"); do
    [ "$(find "$root/usr/share/icons/hicolor" -path "*/mimetypes/application-$type.*" | wc -l)" -eq 8 ] ||
        { say "sizes of the icon of $type are missing"; exit 1; }
done

say "starting the trainer as an ordinary user, saving a practice, exiting"
in_root useradd -m student
# Starts the trainer, goes to the set-up screen, saves a practice if one is named, and exits.
cat >"$root/tmp/visit" <<'VISIT'
set -eu
export XDG_RUNTIME_DIR=/tmp/run-student && mkdir -p -m 700 $XDG_RUNTIME_DIR
openbox & sleep 1
vorn & program=$!
await() { for _ in $(seq 100); do xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 && return; sleep 0.1; done; echo "no window $1"; exit 1; }
await "V. O. R. N."
for _ in $(seq 10); do                           # the first Return closes the box, the next clicks START
    sleep 2 && xdotool search --onlyvisible --name "PRACTICE EDITOR" >/dev/null 2>&1 && break
    xdotool key Return
done
await "PRACTICE EDITOR" && sleep 1
window=$(xdotool search --onlyvisible --name "PRACTICE EDITOR" | head -1)
if [ $# -gt 0 ]; then
    xdotool mousemove --window "$window" 188 30 click 1   # SAVE PRACTICE
    await "SAVE PRACTICE SETUP" && sleep 1
    xdotool type "$1" && xdotool key Return && sleep 1
fi
xdotool mousemove --window "$window" 1000 30 click 1  # EXIT
sleep 1 && xdotool key alt+y
for _ in $(seq 50); do kill -0 $program 2>/dev/null || exit 0; sleep 0.1; done
echo "the program is still running"; exit 1
VISIT
visit() { in_root su student -c "xvfb-run -a -s '-screen 0 1280x1024x24' bash /tmp/visit $*"; }
home=$root/home/student data=$root/home/student/.local/share/vorn/ranges
visit student.prf
for file in student.prf visualrange.arf vorn.HLP; do
    [ -s "$data/$file" ] || { say "no $file in the user's data"; exit 1; }
done

say "upgrading the package and starting the new version"
in_root su student -c "cd ~/.local/share/vorn/ranges && cp wavs/coax.wav wavs/fire.wav && cp student.prf ~"
newer=$root/tmp/newer
dpkg-deb -R "$package" "$newer"
sed -i 's/^Version: .*/&+1/' "$newer/DEBIAN/control"
echo '<!-- newer -->' >>"$newer/usr/share/vorn/ranges/vorn.HLP"
find "$newer/usr/share/vorn" -type f -exec touch {} +
dpkg-deb --root-owner-group -b "$newer" "$newer.deb" >/dev/null
in_root dpkg -i /tmp/newer.deb >/dev/null
visit
cmp "$newer/usr/share/vorn/ranges/vorn.HLP" "$data/vorn.HLP" || { say "the user still has the old manual"; exit 1; }
cmp "$home/student.prf" "$data/student.prf" || { say "the practice saved by the user has changed"; exit 1; }
cmp "$data/wavs/coax.wav" "$data/wavs/fire.wav" || { say "the sound changed by the user was overwritten"; exit 1; }

say "removing the package"
in_root dpkg --purge vorn >/dev/null
[ "$(types)" -eq 0 ] && [ ! -e "$root/usr/share/mime/packages/vorn.xml" ] || { say "the MIME types of the package are still registered"; exit 1; }
files_of_root >"$root/tmp/after"
left=$({ diff "$root/tmp/before" "$root/tmp/after" || true; } | grep '^[<>]' | grep -v -e '/etc/passwd' -e '/etc/group' \
    -e '/etc/shadow' -e '/etc/gshadow' -e '/etc/subuid' -e '/etc/subgid' -e '/var/mail' || true)
[ -z "$left" ] || { say "the package leaves files behind, or removes files that aren't its own: $left"; exit 1; }
say "the package passes: $(basename "$package"), $(du -h "$package" | cut -f1)"
