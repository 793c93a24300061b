#!/usr/bin/env bash
# Looks for faults with what takes too long, or complains too often, to be part of all checks.
#   scripts/analyse.sh                 all of what follows
#   scripts/analyse.sh cppcheck        the sources, by cppcheck (scripts/cppcheck_suppressions.txt: where it is wrong)
#   scripts/analyse.sh memcheck        whole detections of both detectors, by valgrind
#   scripts/analyse.sh threads         the tests that detect and write in several threads, with ThreadSanitizer
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
trap 'echo "analyse: failed (line $LINENO)" >&2' ERR
scripts/setup.sh --tests --analysis --clang

run_cppcheck() {
  echo "analyse: cppcheck"
  cppcheck --enable=warning,performance,portability --std=c++17 --quiet --error-exitcode=1 -j "$(nproc)" -I . \
    --suppressions-list=scripts/cppcheck_suppressions.txt \
    base imageio preprocess crossmark grid postprocess interface platform/posix precise bindings tools examples
}

run_memcheck() {
  echo "analyse: memcheck"
  cmake --preset release -DQUORVEX_BUILD_TESTS=ON >/dev/null
  cmake --build --preset release --target road_tests direct_road_tests
  for program in road_tests direct_road_tests; do
    valgrind --quiet --error-exitcode=9 --leak-check=full --errors-for-leak-kinds=definite,indirect \
      "build/release/tests/$program" --gtest_brief=1
  done
}

run_threads() {
  echo "analyse: ThreadSanitizer"
  local programs=(interface_tests faults_tests tools_tests)
  # gcc's, a shared library, lets faults_tests have an operator new of their own.
  cmake --preset gcc-sanitize -B build/threads -DQUORVEX_SANITIZE=thread -DQUORVEX_BUILD_TESTS=ON \
    -DQUORVEX_TEST_SCENES=OFF >/dev/null
  cmake --build build/threads --target "${programs[@]}" quorvex_command
  for program in "${programs[@]}"; do
    (cd build/threads && "tests/$program" --gtest_brief=1 --gtest_filter='*hread*:SharedFolder.*')
  done
}

if [[ $# -eq 0 ]]; then set -- cppcheck memcheck threads; fi
for what in "$@"; do
  case "$what" in
    cppcheck | memcheck | threads) "run_$what" ;;
    *) echo "analyse: unknown: $what" >&2; exit 2 ;;
  esac
done
echo "analyse: nothing to complain of"
