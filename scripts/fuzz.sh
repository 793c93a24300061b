#!/usr/bin/env bash
# Looks for inputs that break the fuzz targets (fuzz/README.md), with clang's libFuzzer.
#   scripts/fuzz.sh SECONDS [TARGET...]            every target, or those named, for so long each, one after the other
#   scripts/fuzz.sh --jobs N SECONDS [TARGET...]   N targets at a time
#   scripts/fuzz.sh --merge [TARGET...]            takes what was found into the corpora: of all inputs, few small
#                                                  ones that reach every edge that all of them do
# What reaches new code is kept in build/fuzz/found/TARGET, what breaks a target in build/fuzz/faults. Exit code 1
# when something broke.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

usage() {
  sed -n '2,9s/^# \{0,1\}//p' "scripts/fuzz.sh" >&2
  exit 2
}
jobs=1
merge=false
while [[ ${1:-} == --* ]]; do
  case "$1" in
    --jobs) jobs=${2:?}; shift 2 ;;
    --merge) merge=true; shift ;;
    *) usage ;;
  esac
done
seconds=1
if ! $merge; then
  [[ ${1:-} =~ ^[1-9][0-9]*$ ]] || usage
  seconds=$1
  shift
fi

scripts/setup.sh --tests --clang
if [[ $# -gt 0 ]]; then
  targets=("$@")
else
  mapfile -t targets < <(grep -l '^extern "C" int LLVMFuzzerTestOneInput.*{$' fuzz/*.cpp | xargs -n 1 basename -s .cpp)
fi
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target "${targets[@]/#/fuzz_}"

readonly place=$PWD/build/fuzz
# Leaks of other libraries are known; an address in a report is of no use without a symbolizer.
export LSAN_OPTIONS=suppressions=$PWD/tests/leak_suppressions.txt:print_suppressions=0
ASAN_SYMBOLIZER_PATH=$(command -v llvm-symbolizer || ls /usr/bin/llvm-symbolizer-* | head -n 1)
export ASAN_SYMBOLIZER_PATH

# Targets that read files write them first, thousands a second.
if [[ -w /dev/shm ]]; then export TMPDIR=/dev/shm; fi

# Options of its own stand in NAME.options, as other runners of these targets read them.
options_of() {
  if [[ -e fuzz/$1.options ]]; then sed -n 's/^\([a-z_]*\) *= *\(.*\)/-\1=\2/p' "fuzz/$1.options"; fi
  if [[ -e fuzz/$1.dict ]]; then echo "-dict=$PWD/fuzz/$1.dict"; fi
}

run_target() {
  local name=$1 options
  mapfile -t options < <(options_of "$name")
  mkdir -p "$place/found/$name" "$place/faults" "$place/work/$name"
  # From a folder of its own: detections leave pictures in the current one.
  if ! (cd "$place/work/$name" &&
    TIMEFORMAT='cpu: %U %S' &&
    time "$place/fuzz/$name" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 -print_final_stats=1 \
      "${options[@]}" -artifact_prefix="$place/faults/$name-" \
      "$place/found/$name" "$OLDPWD/fuzz/corpus/$name") >"$place/$name.log" 2>&1; then
    echo "fuzz: $name broke; the last lines of $place/$name.log:" >&2
    tail -n 40 "$place/$name.log" >&2
  fi
}

merge_target() {
  local name=$1 options
  mapfile -t options < <(options_of "$name")
  mkdir -p "$place/found/$name" "$place/work/$name"
  local old=fuzz/corpus/$name new=$place/merged/$name
  rm -rf "$new"
  mkdir -p "$new"
  (cd "$place/work/$name" && "$place/fuzz/$name" -set_cover_merge=1 -use_counters=0 -rss_limit_mb=2048 "${options[@]}" "$new" "$OLDPWD/$old" "$place/found/$name") \
    >"$place/$name.log" 2>&1
  # What showed a fault has a name with a dot, and stays.
  find "$old" -type f -not -name '*.*' -delete
  cp "$new"/* "$old"/
  echo "fuzz: $name: $(find "$old" -type f | wc -l) files, $(du -sb --apparent-size "$old" | cut -f 1) bytes"
}

if $merge; then
  for name in "${targets[@]}"; do merge_target "$name"; done
  exit
fi

for name in "${targets[@]}"; do
  while [[ $(jobs -rp | wc -l) -ge $jobs ]]; do wait -n; done
  run_target "$name" &
done
wait

# Of each log: CPU time, executions, edges reached and edges there are.
broken=0
printf '%-16s %8s %12s %17s  %s\n' target 'CPU s' executions 'edges of edges' faults
for name in "${targets[@]}"; do
  log=$place/$name.log
  cpu=$(awk '/^cpu: /{printf "%.0f", $2 + $3}' "$log")
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  reached=$(grep -oE 'cov: [0-9]+' "$log" | tail -n 1 | cut -d ' ' -f 2 || true)
  all=$(grep -oE '\(([0-9]+) inline 8-bit counters\)' "$log" | tail -n 1 | tr -dc '0-9 ' | awk '{print $1}' || true)
  faults=$(grep -cE '^artifact_prefix=|^Test unit written to' "$log" || true)
  [[ $faults -eq 0 ]] || broken=1
  printf '%-16s %8s %12s %17s  %s\n' "$name" "$cpu" "${runs:--}" "${reached:--} of ${all:--}" "$faults"
done
exit "$broken"
