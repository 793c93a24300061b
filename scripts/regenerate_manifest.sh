#!/usr/bin/env bash
# Writes tests/road/manifest.txt and numbers/ anew: what detection leaves behind on the renderer's
# presets. Run it after a change that is meant to change an output, and read the difference.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cmake --preset release -DQUORVEX_BUILD_TESTS=ON >/dev/null
cmake --build --preset release --target write_manifest
rm -rf build/manifest
build/release/tests/write_manifest build/manifest
rm -rf tests/road/numbers
mv build/manifest/manifest.txt build/manifest/numbers tests/road/
git --no-pager diff --stat -- tests/road
