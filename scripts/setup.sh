#!/usr/bin/env bash
# Installs what Quorvex needs on Debian and is not there yet. Cheap to run again.
#   scripts/setup.sh             what building needs
#   scripts/setup.sh --tests     and what the tests need
#   scripts/setup.sh --extras    and what ./test.sh --extras needs beyond these
#   scripts/setup.sh --site      and what the documentation's site is built with
#   scripts/setup.sh --python    and what the Python module is built with
#   scripts/setup.sh --clang     and the second compiler, its sanitizers and their symbolizer
#   scripts/setup.sh --windows   and the Windows build, and Wine to run it
#   scripts/setup.sh --benchmarks  and what the benchmarks need
#   scripts/setup.sh --packages  and what Debian packages are made with
#   scripts/setup.sh --cache     and a cache of what compilers made, for several builds of the same sources
#   scripts/setup.sh --style     and the tools of scripts/check_style.sh
#   scripts/setup.sh --analysis  and those of scripts/analyse.sh
#   scripts/setup.sh --list ...  prints the packages instead; why each is there says docs/supply-chain.md
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

packages=(
  cmake ninja-build g++                                  # build
  libcli11-dev libfmt-dev nlohmann-json3-dev             # libraries of the command
  libpng-dev libjpeg-dev libtiff-dev libcairo2-dev       # and for its pictures
  libeigen3-dev                                          # linear algebra of the direct detector, headers alone
)
libpng_source=build/sources/libpng1.6
windows=false
list=false
for option in "$@"; do
  case "$option" in
    --tests)
      packages+=(
        libgtest-dev libgmock-dev pkg-config
        imagemagick poppler-utils                                      # other readers of BMP files and of PDF
        python3-dev python3-numpy python3-pytest pybind11-dev          # the Python module
        python3-pip python3-venv python3-setuptools python3-wheel) ;;  # and its installation
    --benchmarks) packages+=(libbenchmark-dev) ;;
    --extras)
      packages+=(
        libopencv-dev python3-opencv mrcal python3-distributed
        chromium chromium-driver python3-selenium  # the report's page in a browser
        mkdocs mkdocs-material doxygen    # the pages as a site
        mmdebstrap dpkg-dev help2man) ;;  # Debian packages in a fresh Debian
    --site) packages+=(mkdocs mkdocs-material doxygen) ;;
    --packages) packages+=(dpkg-dev help2man python3-dev python3-numpy pybind11-dev) ;;
    --python) packages+=(python3-dev python3-numpy pybind11-dev) ;;
    --clang) packages+=(clang libclang-rt-14-dev llvm) ;;
    --cache) packages+=(ccache) ;;
    --style) packages+=(clang clang-format clang-tidy) ;;
    --analysis) packages+=(cppcheck valgrind) ;;
    --windows)
      windows=true
      packages+=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64 clang lld llvm dpkg-dev) ;;
    --list) list=true ;;
    *) echo "setup: unknown option $option" >&2; exit 2 ;;
  esac
done

if $list; then
  printf '%s\n' "${packages[@]}" | sort -u
  exit
fi

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
