#!/usr/bin/env bash
# Writes interface/exports.def and interface/exports_msvc.def anew: the names under which the Windows
# builds export the functions of interface/quorvex.h. Run it after a change of an exported function.
#   scripts/generate_exports_def.sh          into interface/
#   scripts/generate_exports_def.sh FOLDER   into another folder
# Hosts declare the record as a struct or as a class, which Visual C++ writes into the names (U or V), so a
# function that takes it has two.
set -euo pipefail
trap 'echo "generate_exports_def: failed (line $LINENO)" >&2' ERR
folder=$(realpath "${1:-$(dirname "${BASH_SOURCE[0]}")/../interface}")
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# What the header marks as exported.
header=interface/quorvex.h
mapfile -t functions < <(
  sed -nE 's/^QUORVEX_API [a-z]+ ([A-Za-z_]+)\(.*/\1/p' "$header" | LC_ALL=C sort)
if [[ ${#functions[@]} -ne $(grep -c '^ *QUORVEX_API' "$header") || ${#functions[@]} -eq 0 ]]; then
  echo "generate_exports_def: cannot read all declarations of $header" >&2
  exit 1
fi

# A source that uses each of them, so that compilers name them all.
{
  echo '#include "interface/quorvex.h"'
  for function in "${functions[@]}"; do
    echo "extern decltype($function)* const use_$function;"
    echo "decltype($function)* const use_$function = &$function;"
  done
} > "$scratch/uses.cpp"

# The record spelt as a class, in a copy of its header that is found first.
mkdir -p "$scratch/class/base" "$scratch/class/interface"
sed 's/^struct CalibrationPoint {/class CalibrationPoint {\n public:/' base/calibration_point.h \
  > "$scratch/class/base/calibration_point.h"
grep -q '^class CalibrationPoint' "$scratch/class/base/calibration_point.h"
cp "$header" interface/calibration_point.h "$scratch/class/interface/"

visual_cpp() {
  clang++ --target=x86_64-pc-windows-msvc -std=c++17 -nostdlibinc -nostdinc++ \
    -isystem tests/msvc/stand_in/std -DQUORVEX_BUILDING_LIBRARY -c "$scratch/uses.cpp" "$@"
}
visual_cpp -I . -o "$scratch/struct.obj"
visual_cpp -I "$scratch/class" -o "$scratch/class.obj"
x86_64-w64-mingw32-g++-posix -std=c++17 -DQUORVEX_BUILDING_LIBRARY -I . -c "$scratch/uses.cpp" \
  -o "$scratch/mingw.obj"

# The decorated name of a function in an object that uses it.
name_in() {
  local names
  names=$(llvm-nm --undefined-only --format=just-symbols "$scratch/$1.obj" | grep -E "$2" || true)
  if [[ -z $names || $names == *$'\n'* ]]; then
    echo "generate_exports_def: not one name for $2: $names" >&2
    exit 1
  fi
  echo "$names"
}

{
  echo "; The names that Visual C++ hosts look up, each standing for the function of the MinGW build."
  echo "; Written by scripts/generate_exports_def.sh."
  echo "LIBRARY quorvex.dll"
  echo "EXPORTS"
} > "$scratch/exports.def"
{
  echo "; The names that hosts look up. The build with Visual C++ knows the record as a struct; the names"
  echo "; with a class stand for the same functions. Written by scripts/generate_exports_def.sh."
  echo "LIBRARY quorvex.dll"
  echo "EXPORTS"
} > "$scratch/exports_msvc.def"
for function in "${functions[@]}"; do
  as_struct=$(name_in struct "^\?$function@@")
  as_class=$(name_in class "^\?$function@@")
  mingw=$(name_in mingw "^_Z${#function}$function")
  echo "  \"$as_struct\" = $mingw" >> "$scratch/exports.def"
  echo "  \"$as_struct\"" >> "$scratch/exports_msvc.def"
  if [[ $as_class != "$as_struct" ]]; then
    echo "  \"$as_class\" = $mingw" >> "$scratch/exports.def"
    echo "  \"$as_class\" = \"$as_struct\"" >> "$scratch/exports_msvc.def"
  fi
done
mkdir -p "$folder"
mv "$scratch/exports.def" "$scratch/exports_msvc.def" "$folder/"
