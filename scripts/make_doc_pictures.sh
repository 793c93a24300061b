#!/usr/bin/env bash
# Makes the pictures of the pages from what the command and the detector's stages give, docs/pictures/. Needs the
# release build with its tests, and OpenCV for Python (scripts/setup.sh --extras).
#   make_doc_pictures.sh [FOLDER]    FOLDER takes the place of docs/pictures
# WITH_BROWSER=1 makes the picture of the report's page, too (chromium, imagemagick).
# QUORVEX_BUILD is the build, build/release if not given; PYTHON the Python, /usr/bin/python3 if not given. The same
# sources give the same pixels.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
folder=$(realpath --canonicalize-missing "${1:-$here/docs/pictures}")
build=${QUORVEX_BUILD:-$here/build/release}
trap 'echo "pictures: failed (line $LINENO)" >&2' ERR
scratch=$(mktemp --directory)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$folder"
cd "$scratch"

quorvex() { "$build/quorvex" "$@" --quiet; }
small() { "${PYTHON:-/usr/bin/python3}" "$here/scripts/site/doc_picture.py" "$@"; }

# What is found, whole and near.
quorvex render --preset fisheye --output board.png
quorvex detect board.png --no-check --output points.csv --overlay found.png --diagnostics healthy
quorvex detect board.png --precise --output precise.csv --overlay precise.png
small found.png "$folder/found.jpg" --crop 224,220,1660,1660 --by 4
small found.png "$folder/found-near.jpg" --crop 440,280,460,300
small precise.png "$folder/precise-near.jpg" --crop 440,280,460,300
small board.png "$folder/board.jpg" --by 6
quorvex render --preset dropped --output gaps.png
quorvex detect gaps.png --no-check --output gaps.csv --overlay gaps-overlay.png
small gaps-overlay.png "$folder/filled-near.jpg" --crop 580,360,460,300
small board.png "$folder/icon.png" --crop 946,946,244,244 --by 8 --levels 4

# The pictures of the stages: whole ones at an eighth, patches as they are.
for name in ProImage Region; do
  small "healthy/$name.bmp" "$folder/stage-$name.png" --by 8 --levels 52
done
for name in Binarization Dilation SRegion Mask Sobel Eliminate; do
  small "healthy/$name.bmp" "$folder/stage-$name.png" --by 8 --levels 16
done
for name in Contour; do
  small "healthy/$name.bmp" "$folder/stage-$name.png" --by 8 --levels 16 --brightest
done
for name in CrossMarkRegion Sauvola Thining Lines LineSegment; do
  small "healthy/$name.bmp" "$folder/stage-$name.png" --levels 52
done

# The same of pictures that are not as they should be. The detection may fail.
sick() { # NAME PICTURE-OPTION...
  local name=$1
  shift
  quorvex render --preset fisheye "$@" --output "$name.png"
  quorvex detect "$name.png" --no-check --output "$name-points.csv" --diagnostics "$name" 2>/dev/null || true
  small "$name.png" "$folder/bad-$name.jpg" --by 8
}
sick dark --board-level 60
sick uneven --gradient-x 0.9 --gradient-y 0.5
sick blurred --blur 4
sick noisy --noise 25
sick thick --stroke 2
sick turned --rotation 40
sick shifted --shift-x 90
sick centred --shift-x 0 --shift-y 0
small noisy/Binarization.bmp "$folder/sick-Binarization.png" --crop 150,150,512,512 --by 2 --levels 4
small thick/Eliminate.bmp "$folder/sick-Eliminate.png" --by 8 --levels 16
small uneven/Binarization.bmp "$folder/sick-Binarization-uneven.png" --by 8 --levels 16
small noisy/Sobel.bmp "$folder/sick-Sobel.png" --by 8 --levels 16
small blurred/CrossMarkRegion.bmp "$folder/sick-CrossMarkRegion.png" --levels 16
quorvex detect shifted.png --no-check --output shifted-points.csv --overlay shifted-overlay.png
small shifted-overlay.png "$folder/bad-shifted-found.jpg" --crop 0,200,2040,1840 --by 5

# The stages of the direct detection, of a board whose column 6 is not printed.
absent=()
for row in {0..6}; do absent+=(--missing "$row,6"); done
quorvex render --preset tilted "${absent[@]}" --output tilted.bmp
"$build/tests/direct_stages" tilted.bmp >stages.csv
for show in candidate,arm link seed grown measured; do
  small tilted.bmp "$folder/direct-${show%%,*}.jpg" --by 4 --stages stages.csv --show "$show"
done
quorvex detect tilted.bmp --precise --predict --output predicted.csv --overlay predicted.png
small predicted.png "$folder/direct-predicted.jpg" --by 4

# The report's page, by a browser. Letters differ from one browser to the next, so it is made on request only, and the
# test of the pictures leaves it alone.
if [[ -n ${WITH_BROWSER:-} ]]; then
  quorvex detect board.png --output points.csv --report report
  chromium --headless=new --no-sandbox --disable-gpu --window-size=1280,900 --hide-scrollbars --virtual-time-budget=4000 \
    --screenshot="$scratch/report.png" "file://$scratch/report/index.html#picture=0" 2>/dev/null
  convert report.png -resize 60% -quality 45 -strip "$folder/report.jpg"
fi
