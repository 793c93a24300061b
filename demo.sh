#!/usr/bin/env bash
# Renders a fisheye picture of a cross-mark board, finds its points and compares them with the truth.
# Leaves the pictures in demo-output/.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
trap 'echo "demo: failed (line $LINENO)" >&2' ERR

echo "demo: 1/6 installing what is missing"
scripts/setup.sh

echo "demo: 2/6 building"
cmake --preset release >/dev/null
cmake --build --preset release --target quorvex_command
quorvex=$PWD/build/release/quorvex

output=demo-output
rm -rf "$output"
mkdir "$output"

echo "demo: 3/6 rendering a fisheye picture of a board of 9 x 9 marks"
"$quorvex" render --preset fisheye --output "$output/fisheye.png" --truth "$output/truth.csv"

echo "demo: 4/6 detecting its points"
"$quorvex" detect "$output/fisheye.png" --output "$output/points.csv" \
  --overlay "$output/overlay.png" --diagnostics "$output/diagnostics" --report "$output/report"

echo "demo: 5/6 measuring its marks directly"
"$quorvex" detect --precise "$output/fisheye.png" --output "$output/precise.csv" \
  --overlay "$output/precise-overlay.png" --report "$output/precise-report"

echo "demo: 6/6 comparing both with the truth"
echo "the detection:"
"$quorvex" compare "$output/points.csv" "$output/truth.csv"
echo "the direct detection:"
"$quorvex" compare "$output/precise.csv" "$output/truth.csv"

echo
echo "The first points:"
head -n 6 "$output/points.csv"
echo
echo "Look at $output/overlay.png: every point with its number, and the grid."
echo "Look at $output/precise-overlay.png: the marks measured directly, with their covariances."
echo "The pictures of each stage are in $output/diagnostics/."
echo "Open $output/report/index.html in a browser: all of this on one page; $output/precise-report/index.html: of the direct detection."
