#!/usr/bin/env bash
# Builds Quorvex and runs all of its tests.
#   ./test.sh            the release build
#   ./test.sh PRESET...  other builds of CMakePresets.json, for example: ./test.sh clang-sanitize
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
trap 'echo "test: failed (line $LINENO)" >&2' ERR

presets=("$@")
[[ ${#presets[@]} -gt 0 ]] || presets=(release)

echo "test: installing what is missing"
setup=(scripts/setup.sh --tests)
[[ " ${presets[*]} " != *" clang"* ]] || setup+=(--clang)
"${setup[@]}"

for preset in "${presets[@]}"; do
  echo "test: building $preset"
  cmake --preset "$preset" -DQUORVEX_BUILD_TESTS=ON -DQUORVEX_WARNINGS_AS_ERRORS=ON >/dev/null
  cmake --build --preset "$preset"
  echo "test: running the tests of $preset"
  ctest --test-dir "build/$preset" --output-on-failure --parallel "$(nproc)"
done
