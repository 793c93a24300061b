#!/usr/bin/env bash
# Builds the fuzz targets for a service that runs them, by its variables: $CXX and $CXXFLAGS, which bring sanitizers
# and coverage, $LIB_FUZZING_ENGINE, and $OUT, which gets every target with its corpus, dictionary and options.
set -euo pipefail
source=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
work=${WORK:-$source/build/fuzz-service}

cmake -S "$source" -B "$work" -G Ninja -DCMAKE_BUILD_TYPE=None \
  -DQUORVEX_BUILD_FUZZERS=ON -DQUORVEX_FUZZING_ENGINE="$LIB_FUZZING_ENGINE" \
  -DQUORVEX_BUILD_C=OFF -DQUORVEX_BUILD_PYTHON=OFF
cmake --build "$work" --target fuzz_targets

for target in "$work"/fuzz/*; do
  [[ -f $target && -x $target ]] || continue
  name=$(basename "$target")
  cp "$target" "$OUT/"
  (cd "$source/fuzz/corpus/$name" && zip -q -j "$OUT/${name}_seed_corpus.zip" ./*)
  for kind in dict options; do
    if [[ -e $source/fuzz/$name.$kind ]]; then cp "$source/fuzz/$name.$kind" "$OUT/"; fi
  done
done
# The targets look for the shared libraries beside them.
cp -P "$work"/libquorvex*.so* "$OUT/"
