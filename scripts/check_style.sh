#!/usr/bin/env bash
# Checks how the code is written: clang-format over all C++ files, clang-tidy over the sources of the library,
# its interfaces for other languages, the command and the examples. Installs both tools where they are missing. Nothing is changed.
#   scripts/check_style.sh             both
#   scripts/check_style.sh --library   clang-tidy over the library and its C interface alone; the direct detector
#                                      and the command take three times as long again
#   scripts/check_style.sh --format    clang-format alone, which takes seconds
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
trap 'echo "style: failed (line $LINENO)" >&2' ERR
tidy=true
rooms='base|platform|imageio|preprocess|crossmark|grid|postprocess|interface|bindings/c|bindings/shared'
others='|precise|tools|examples|bindings/python'
case "${1:-}" in
  "") ;;
  --library) others='' ;;
  --format) tidy=false ;;
  *) echo "style: unknown option $1" >&2; exit 2 ;;
esac
scripts/setup.sh --style

echo "style: checking the format"
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run -Werror
$tidy || exit 0

# Nothing has to be built for the commands that sources are compiled with. A build of its own, so that other
# options of the release build do not count, for the compiler whose options clang-tidy knows.
cmake --preset clang -B build/style >/dev/null

# The sources in CMake's lists, tests and other systems' left out.
mapfile -t sources < <(git ls-files '*.cpp' | grep -E "^($rooms$others)/" |
  while read -r source; do
    if grep -qF "\"file\": \"$PWD/$source\"" build/style/compile_commands.json; then echo "$source"; fi
  done)
echo "style: clang-tidy on ${#sources[@]} sources"
# clang warns of gcc's options that it does not know.
printf '%s\0' "${sources[@]}" | xargs -0 -n 1 -P "$(nproc)" \
  clang-tidy --quiet -p build/style --extra-arg=-Wno-ignored-optimization-argument \
  2> >(grep -v "warnings* generated" >&2)
echo "style: nothing to complain of"
