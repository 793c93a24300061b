#!/usr/bin/env bash
# A program for calibration reads the corner table of twelve rendered poses and finds the camera.
#   twelve_poses_test.sh QUORVEX FOLDER
# Skipped, with exit code 77, where mrcal is not installed. The precise detection is held to what it reaches; the
# figures of the other one are printed beside it.
set -euo pipefail
export LC_ALL=C
quorvex=$1
folder=$2
if ! command -v mrcal-calibrate-cameras >/dev/null; then
  echo "skipped: mrcal-calibrate-cameras is missing (Debian: mrcal)"
  exit 77
fi
rm -rf "$folder"
mkdir -p "$folder"
cd "$folder"

# Tilts in degrees, rotation in degrees, distance in millimetres.
poses=(
  '0 0 20 156' '14 0 18 168' '-14 0 22 168' '0 14 24 168' '0 -14 20 168' '10 10 21 170'
  '-10 10 23 170' '10 -10 18 170' '-10 -10 24 170' '7 -12 20 168' '-12 6 22 168' '5 9 18 164'
)
for i in "${!poses[@]}"; do
  read -r tilt_x tilt_y rotation distance <<<"${poses[i]}"
  "$quorvex" render --quiet --preset fisheye --model kannala-brandt --focal-length 1000 --k1 -0.02 --k2 0.004 \
    --k3 -0.001 --rows 9 --columns 9 --pitch 30 --arm 12.75 --stroke 0.5 --margin 25.5 --shift-x 8.25 \
    --shift-y 6.75 --tilt-x "$tilt_x" --tilt-y "$tilt_y" --rotation "$rotation" --distance "$distance" \
    --noise 1.5 --seed $((i + 1)) --output "$(printf 'pose%02d.png' "$i")"
done

# Prints the root mean square of the residuals in pixels, the marks thrown out, and how many marks there were.
calibrate() {
  mrcal-calibrate-cameras --corners-cache "$1" \
    --lensmodel LENSMODEL_SPLINED_STEREOGRAPHIC_order=3_Nx=11_Ny=11_fov_x_deg=120 --skip-calobject-warp-solve \
    --focal 1000 --object-spacing 30 --object-width-n 9 --object-height-n 9 'pose*.png' >"$1.log" 2>&1 ||
    { tail -5 "$1.log" >&2; return 1; }
  awk '/## RMS error:/ { rms = $4 } /^Noutliers:/ { out = $2; all = $5 } END { print rms, out, all }' "$1.log"
}

"$quorvex" detect --precise --quiet --expect 9x9 --output precise.vnl pose*.png
read -r rms out all <<<"$(calibrate precise.vnl)"
echo "precise detection: $rms px, $out of $all marks thrown out"
"$quorvex" detect --quiet --no-check --expect 9x9 --output plain.vnl pose*.png || true
echo "plain detection: $(calibrate plain.vnl | awk '{ print $1 " px, " $2 " of " $3 " marks thrown out" }')" || true

awk -v rms="$rms" -v out="$out" -v all="$all" 'BEGIN {
  if (all != 12 * 81) { print "of 972 marks " all " were used"; exit 1 }
  if (!(rms > 0 && rms <= 0.02)) { print "the residuals are " rms " px, more than 0.02 px"; exit 1 }
  if (out > 0.02 * all) { print out " of " all " marks were thrown out, more than 2 %"; exit 1 }
}'
