#!/usr/bin/env bash
# Builds the libraries, the command and the Debian packages twice, in folders, at times, in time zones, with languages
# and file modes that differ, and compares the files byte by byte. Takes as long as two builds of all that.
#   scripts/check_reproducible.sh             of the last commit
#   scripts/check_reproducible.sh --library   libquorvex.so alone, which takes a minute
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
trap 'echo "reproducible: failed (line $LINENO)" >&2' ERR
isWhole=true
case "${1:-}" in
  "") ;;
  --library) isWhole=false ;;
  *) echo "reproducible: unknown option $1" >&2; exit 2 ;;
esac
if $isWhole; then scripts/setup.sh --packages; else scripts/setup.sh; fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
first=$work/one
second="$work/another folder/with a longer name"
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH

# A copy of the last commit, its files dated and readable as told.
copy() {
  mkdir -p "$1"
  git archive HEAD | tar -x -C "$1"
  chmod -R "$3" "$1"
  find "$1" -exec touch -d "$2" {} +
}

build_all() {
  if $isWhole; then
    cmake --preset release && cmake --build --preset release && scripts/make_packages.sh
  else
    cmake --preset release && cmake --build --preset release --target quorvex
  fi
}

# In the folder, with what it prints shown when it fails.
build() (
  cd "$1"
  # No cache: it would hand out the first build's files.
  export CCACHE_DISABLE=1
  build_all >"$work/log" 2>&1 || { tail -n 50 "$work/log" >&2; exit 1; }
)

echo "reproducible: building in $first"
copy "$first" 2020-01-01 go=rX
(umask 022; export TZ=UTC LC_ALL=C.UTF-8; build "$first")
echo "reproducible: building in $second"
copy "$second" 2024-06-30 go=
(umask 027; export TZ=Asia/Tokyo LC_ALL=C; build "$second")

differs=0
count=0
for path in "$first"/build/release/lib*.so.*.*.* "$first"/build/release/quorvex "$first"/build/debian/*.deb; do
  [[ -e $path ]] || continue
  name=${path#"$first"/}
  count=$((count + 1))
  if cmp --silent "$path" "$second/$name"; then
    echo "same     $(sha256sum "$path" | cut -c 1-16)  $name"
  else
    echo "DIFFERS                    $name"
    differs=1
  fi
done
[[ $count -gt 0 ]] || { echo "reproducible: nothing was built" >&2; exit 1; }
[[ $differs -eq 0 ]] || { echo "reproducible: the builds differ" >&2; exit 1; }
echo "reproducible: $count files are the same from both builds"
