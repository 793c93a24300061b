#!/usr/bin/env bash
# Fails when a build lacks tests that stand in the sources: a source that no list of CMake names, a program
# that no longer registers its tests, a fuzz target that runs nothing. A test with parameters has to be there at least once.
#   ctest --test-dir build/release -N | scripts/check_tests_present.sh [--without NAME] posix [FOLDER]
# The platform, posix or windows, says which of the folders of these names the build holds; FOLDER is where
# the test sources are, tests/ if not given; NAME is a folder in it that the build leaves out.
set -euo pipefail
without=road  # its whole detections run under names of their own, one for each preset: DetectionRoad.large
if [[ ${1:-} == --without ]]; then
  without=$2
  shift 2
fi
platform=$1
folder=${2:-$(dirname "${BASH_SOURCE[0]}")/../tests}
case "$platform" in
  posix) other=windows ;;
  windows) other=posix ;;
  *) echo "check_tests_present: the platform is posix or windows, not $platform" >&2; exit 2 ;;
esac

# "Suite.Test" of every name that ctest lists: of Suite.Test, Values/Suite.Test/value and Suite.Test<type>.
present=$(sed -nE 's#^ *Test +\#[0-9]+: ([^/.]+/)?([^/.]+)\.(\w+).*#\2.\3#p' | LC_ALL=C sort -u)

# The same of every TEST, TEST_F, TEST_P, TYPED_TEST and DIFFERENTIAL_TEST, whose two names may stand on two lines.
mapfile -t sources < <(find "$folder" -name '*_test.cpp' -not -path "*/$other/*" -not -path '*/road/*' \
  -not -path "*/$without/*")
if [[ ${#sources[@]} -eq 0 ]]; then
  echo "check_tests_present: no test sources below $folder" >&2
  exit 2
fi
expected=$(cat "${sources[@]}" | tr '\n' ' ' |
  grep -oE '\b(TYPED_|DIFFERENTIAL_)?TEST(_F|_P)?\( *\w+, *\w+ *[,)]' |
  sed -E 's/.*\( *(\w+), *(\w+) *[,)]/\1.\2/' | LC_ALL=C sort)

# Fuzz.NAME of every fuzz target beside the tests; read_image needs a linker that Windows has not got.
targets=$(cd "$folder/.." && grep -lE '^extern "C" int LLVMFuzzerTestOneInput.*\{' fuzz/*.cpp 2>/dev/null |
  sed -E 's#fuzz/(.*)\.cpp#Fuzz.\1#' || true)
if [[ $platform == windows ]]; then targets=$(grep -vx Fuzz.read_image <<<"$targets" || true); fi
expected=$(printf '%s\n' "$expected" $targets | LC_ALL=C sort)

repeated=$(uniq -d <<<"$expected")
missing=$(LC_ALL=C comm -13 <(echo "$present") <(uniq <<<"$expected"))
if [[ -n $repeated ]]; then
  echo "check_tests_present: two tests of one name, which ctest does not tell apart:"
  echo "$repeated"
  exit 1
fi
if [[ -n $missing ]]; then
  echo "check_tests_present: $(wc -l <<<"$missing") of $(wc -l <<<"$expected") tests are in no program of this build:"
  echo "$missing"
  exit 1
fi >&2
echo "check_tests_present: all $(wc -l <<<"$expected") tests of the sources are there"
