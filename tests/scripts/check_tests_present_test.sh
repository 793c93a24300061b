#!/usr/bin/env bash
# Holds scripts/check_tests_present.sh, the argument, against lists that are whole and lists that are not.
set -euo pipefail
check=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0

sources=$scratch/tests
mkdir -p "$sources"/{grid/posix,grid/windows,road} "$scratch/fuzz"
echo 'extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {' > "$scratch/fuzz/lists.cpp"
echo 'extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);' > "$scratch/fuzz/main.cpp"
cat > "$sources/grid/curve_test.cpp" <<'END'
TEST(Curve, IsStraight) {}
TEST_F(CurveFitTest,
       HasANameOnTwoLines) {}
TEST_P(CurveValues, AreKept) {}
TYPED_TEST(CurveMemory, IsFreed) {}
DIFFERENTIAL_TEST(CurveForms, SameBends, kCases / 2);
END
echo 'TEST(Link, IsFollowed) {}' > "$sources/grid/posix/link_test.cpp"
echo 'TEST(Drive, IsFound) {}' > "$sources/grid/windows/drive_test.cpp"
echo 'TEST_P(Road, RunsUnderOtherNames) {}' > "$sources/road/road_test.cpp"

cat > "$scratch/posix.txt" <<'END'
Test project /somewhere
  Test   #1: Curve.IsStraight
  Test   #2: CurveFitTest.HasANameOnTwoLines
  Test   #3: Values/CurveValues.AreKept/first
  Test   #4: Values/CurveValues.AreKept/second
  Test   #5: CurveMemory.IsFreed<(anonymous namespace)::Heap>
  Test   #6: Link.IsFollowed
  Test   #7: CurveForms.SameBends
  Test   #8: Fuzz.lists
  Test  #70: Road.large

Total Tests: 9
END
sed 's/Link.IsFollowed/Drive.IsFound/' "$scratch/posix.txt" > "$scratch/windows.txt"

# expect RESULT PLATFORM LIST WHAT: the script's exit code for a list.
expect() {
  local result=0
  "$check" "$2" "$sources" < "$3" > "$scratch/output" 2>&1 || result=$?
  if [[ $result -ne $1 ]]; then
    echo "$4: exit code $result instead of $1"
    cat "$scratch/output"
    failed=1
  fi
}

expect 0 posix "$scratch/posix.txt" "all tests are there"
expect 0 windows "$scratch/windows.txt" "all tests of the other platform are there"
expect 1 posix "$scratch/windows.txt" "the tests of the other platform instead"

# Each of the tests lost alone; the values of another test do not make up for it.
for name in Curve.IsStraight HasANameOnTwoLines AreKept IsFreed SameBends Link.IsFollowed Fuzz.lists; do
  grep -v "$name" "$scratch/posix.txt" > "$scratch/shorter.txt"
  expect 1 posix "$scratch/shorter.txt" "without $name"
  if ! grep -q "^[A-Za-z]*\.*${name#*.}$" "$scratch/output"; then
    echo "without $name: it is not named in"
    cat "$scratch/output"
    failed=1
  fi
done
expect 1 posix /dev/null "an empty list"

echo 'TEST(Curve, IsStraight) {}' > "$sources/grid/other_curve_test.cpp"
expect 1 posix "$scratch/posix.txt" "two tests of one name"
exit $failed
