#!/usr/bin/env bash
# Writes tests/road/positions/ anew: the marks that the direct detector finds on the renderer's
# presets. Run it after a change that is meant to move a mark, and read the difference.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cmake --preset release -DQUORVEX_BUILD_TESTS=ON >/dev/null
cmake --build --preset release --target write_positions
build/release/tests/write_positions tests/road
git --no-pager diff --stat -- tests/road/positions
