#!/usr/bin/env bash
# Makes the Debian packages of the library, its headers, the command and the Python module, in build/debian.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
trap 'echo "packages: failed (line $LINENO)" >&2' ERR

scripts/setup.sh --packages
# Dates in the packages are that of the last change, so that the same sources give the same bytes.
if [[ -z ${SOURCE_DATE_EPOCH:-} ]]; then SOURCE_DATE_EPOCH=$(git log -1 --format=%ct); fi
export SOURCE_DATE_EPOCH
# The folders in the packages take their modes from here.
umask 022

echo "packages: building"
cmake --preset debian >/dev/null
cmake --build --preset debian
rm -f build/debian/*.deb
echo "packages: packing"
cpack --config build/debian/CPackConfig.cmake -B build/debian >build/debian/cpack.log || { cat build/debian/cpack.log >&2; exit 1; }
ls build/debian/*.deb
