#!/usr/bin/env bash
# Installs the Debian packages in a fresh Debian, uses each, removes them and looks for what they left behind.
#   packages_test.sh SOURCES WORK_FOLDER
# Exit code 77: the machine has no fresh Debian to offer; a sentence says why.
set -euo pipefail
sources=$1
work=$2
root=$work/root
trap 'echo "packages_test: failed (line $LINENO)" >&2' ERR

skip() {
  echo "packages_test: skipped: $1"
  exit 77
}
command -v mmdebstrap >/dev/null || skip "mmdebstrap is not installed"
command -v help2man >/dev/null || skip "help2man is not installed"
[[ $(id -u) -eq 0 ]] || skip "making a fresh Debian needs root"

rm -rf "$work"
mkdir -p "$work"
(umask 077 && "$sources/scripts/make_packages.sh")
echo "packages_test: looking into the packages"
closed=$(for package in "$sources"/build/debian/*.deb; do dpkg-deb --contents "$package"; done |
  grep -vE '^(d......r.x|[^d]......r..) ' || true)
[[ -z $closed ]] || { echo "packages_test: not everybody may read" "$closed" >&2; exit 1; }
mkdir "$work/a folder"
cp "$sources/build/debian/quorvex" "$sources"/build/debian/lib*.so* "$work/a folder/"
"$sources/scripts/make_man_pages.sh" "$work/a folder/quorvex" "$work/a folder/man"
diff -r "$work/a folder/man" "$sources/build/debian/man"

mmdebstrap --quiet --variant=minbase --include=g++,pkg-config bookworm "$root" </dev/null ||
  skip "mmdebstrap could not make a fresh Debian"

in_root() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 "$@"; }
mount -t proc proc "$root/proc" || skip "/proc cannot be mounted in a fresh Debian"
trap 'umount "$root/proc" && rm -rf --one-file-system "$root"' EXIT
mkdir "$root/debs" "$root/work"
cp "$sources"/build/debian/*.deb "$root/debs/"
cp -r "$sources/examples" "$root/work/"
echo "packages_test: installing"
in_root apt-get update -qq
in_root sh -c 'apt-get install -y -qq --no-install-recommends /debs/*.deb' >"$work/install.log" 2>&1 ||
  { cat "$work/install.log" >&2; exit 1; }

echo "packages_test: using the command"
in_root quorvex render --preset easy --output /work/board.bmp
in_root quorvex detect --quiet /work/board.bmp --output /work/points.csv
marks=$(($(wc -l <"$root/work/points.csv") - 1))
[[ $marks -eq 48 ]] || { echo "packages_test: the command found $marks marks of 48" >&2; exit 1; }
test -s "$root/usr/share/man/man1/quorvex-detect.1.gz" || test -s "$root/usr/share/man/man1/quorvex-detect.1"

echo "packages_test: building hosts in C++ and C"
in_root sh -ec 'cd /work
  g++ -I. examples/detect_points.cpp -o host $(pkg-config --cflags --libs quorvex)
  gcc -std=c99 examples/detect_points_c.c -o c_host $(pkg-config --cflags --libs quorvex_c)
  ./host board.bmp >host.txt
  ./c_host board.bmp >c_host.txt'
for list in host c_host; do
  marks=$(wc -l <"$root/work/$list.txt")
  [[ $marks -eq 48 ]] || { echo "packages_test: $list found $marks marks of 48" >&2; exit 1; }
done

echo "packages_test: using the Python module"
in_root python3 -c 'import numpy, quorvex
try:
    quorvex.detect(numpy.full((64, 64), 200, numpy.uint8))
except quorvex.DetectionError as error:
    print("an empty picture:", error)'

echo "packages_test: removing"
in_root sh -c "apt-get purge -y -qq '*quorvex*'" >"$work/remove.log" 2>&1 || { cat "$work/remove.log" >&2; exit 1; }
left=$(find "$root" -xdev -iname '*quorvex*' -not -path "$root/debs/*" -not -path "$root/work/*")
[[ -z $left ]] || { echo "packages_test: still there: $left" >&2; exit 1; }
echo "packages_test: the packages install, run and remove cleanly"
