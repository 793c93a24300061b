#!/usr/bin/env bash
# Builds Quorvex and runs its tests.
#   ./test.sh                       the release build, all tests
#   ./test.sh PRESET...             other builds of CMakePresets.json, for example: ./test.sh clang-sanitize
#   ./test.sh --extras              the tests of the release build that need heavy packages: OpenCV, mrcal, Dask,
#                                   a browser, a fresh Debian to install in; and all that the pages tell one to type
#   ./test.sh --windows             the Windows build, made with MinGW-w64 and run with Wine, all tests
#   ./test.sh --outputs PRESET...   whole detections only: their outputs are the same in every build; of the preset windows
#                                   also what only Windows has
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
trap 'echo "test: failed (line $LINENO)" >&2' ERR

windows_folders=(tests/windows tests/platform)
isWhole=true
label=(--label-exclude '^extras$')
presets=()
for argument in "$@"; do
  case "$argument" in
    --windows) presets+=(windows) ;;
    --extras) label=(--label-regex '^extras$') presets+=(release) ;;
    --outputs) isWhole=false ;;
    -*) echo "test: unknown option $argument" >&2; exit 2 ;;
    *) presets+=("$argument") ;;
  esac
done
[[ ${#presets[@]} -gt 0 ]] || presets=(release)

echo "test: installing what is missing"
setup=(scripts/setup.sh --tests)
[[ ${label[0]} != --label-regex ]] || setup+=(--extras)
[[ " ${presets[*]} " != *" clang"* ]] || setup+=(--clang)
[[ " ${presets[*]} " != *" windows "* ]] || setup+=(--windows)
"${setup[@]}"

for preset in "${presets[@]}"; do
  echo "test: building $preset"
  if [[ $preset == windows ]]; then
    trap 'scripts/wine.sh build/windows --stop' EXIT  # its server would outlive the tests
  fi
  # Rendered scenes say how precise the detector is, which no other build changes, and take long.
  if [[ $preset == release ]]; then scenes=ON joined=OFF; else scenes=OFF joined=ON; fi
  cmake --preset "$preset" -DQUORVEX_TEST_SCENES=$scenes -DQUORVEX_COMPILE_JOINED=$joined \
    -DQUORVEX_BUILD_TESTS=ON -DQUORVEX_WARNINGS_AS_ERRORS=ON >/dev/null
  target=()
  only=()
  if ! $isWhole; then
    # The direct detector takes minutes more where it is not optimised, and to build with gcc: one of them has it.
    target=(--target road_tests)
    only=(--tests-regex '^DetectionRoad\.')
    if [[ $preset == clang* || $preset == windows ]]; then
      target+=(direct_road_tests)
      only=(--tests-regex '^(Detection|Direct)Road\.')
    fi
    [[ $preset != windows ]] || target+=("${windows_folders[@]/%//all}")
  fi
  cmake --build --preset "$preset" "${target[@]}"
  if $isWhole; then
    if [[ $preset == windows ]]; then platform=windows; else platform=posix; fi
    if [[ $preset == release ]]; then without=(); else without=(--without benchmarks); fi
    ctest --test-dir "build/$preset" --show-only | scripts/check_tests_present.sh "${without[@]}" "$platform"
  fi
  if $isWhole && [[ ${label[0]} == --label-exclude ]]; then
    echo "test: left to ./test.sh --extras: $(ctest --test-dir "build/$preset" --show-only --label-regex '^extras$' |
      sed -nE 's/^ *Test +#[0-9]+: //p' | paste -sd ' ')"
  fi
  # Runs over many pictures take minutes where programs are slow, and other tests run all that is in them.
  if $isWhole && [[ $preset != release ]]; then
    echo "test: left to the release build: rendered scenes, ManyPictures, PointKinds, SetupVerdict, Presets"
    only+=(--exclude-regex '^(ManyPictures|PointKinds|SetupVerdict|All/Presets)\.')
  fi
  echo "test: running the tests of $preset"
  ctest --test-dir "build/$preset" --output-on-failure --parallel "$(nproc)" --no-tests=error "${label[@]}" "${only[@]}"
  if ! $isWhole && [[ $preset == windows ]]; then
    for folder in "${windows_folders[@]}"; do
      echo "test: running the tests of $folder"
      ctest --test-dir "build/$preset/$folder" --output-on-failure --parallel "$(nproc)" --no-tests=error
    done
  fi
done
