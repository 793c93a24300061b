#!/usr/bin/env bash
# Installs what building and testing Quorvex needs on Debian and is not there yet. Cheap to run again.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

packages=(
  cmake ninja-build g++                                  # build
  libcli11-dev libfmt-dev nlohmann-json3-dev libpng-dev  # libraries of the command
  libgtest-dev libgmock-dev                              # the tests are part of every build
)
libpng_source=build/sources/libpng1.6
windows=false
for option in "$@"; do
  case "$option" in
    --tests)
      packages+=(imagemagick)                            # another reader and writer of BMP files
      packages+=(libbenchmark-dev) ;;                    # the benchmarks
    --clang) packages+=(clang libclang-rt-14-dev llvm) ;; # the second compiler, its sanitizers and their symbolizer
    --windows)                                           # the Windows build, and Wine to run it
      windows=true
      packages+=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64 clang lld llvm dpkg-dev) ;;
    *) echo "setup: unknown option $option" >&2; exit 2 ;;
  esac
done

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
  [[ "$status" == installed ]] || missing+=("$package")
done
if [[ ${#missing[@]} -gt 0 ]]; then
  echo "setup: installing ${missing[*]}"
  if [[ $(id -u) -eq 0 ]]; then run=(env); else run=(sudo env); fi
  "${run[@]}" DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${run[@]}" DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
fi

# Debian has no libpng for Windows; its source is built with ours.
if $windows && [[ ! -e $libpng_source ]]; then
  echo "setup: fetching the source of libpng"
  scripts/fetch_source.sh libpng1.6 "$libpng_source"
fi
echo "setup: everything is installed"
