#!/usr/bin/env bash
# Writes tests/road/manifest.txt anew, the hashes of everything that detection leaves behind on the
# renderer's presets. Run it after a change that is meant to change an output, and read the difference.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target write_manifest
build/release/tests/write_manifest > build/manifest.txt
mv build/manifest.txt tests/road/manifest.txt
git --no-pager diff --stat -- tests/road/manifest.txt
