#!/usr/bin/env bash
# Renders twelve pictures of one board before one fisheye camera, pose-01.bmp to pose-12.bmp, and a stereo pair.
#   render_poses.sh QUORVEX FOLDER
# QUORVEX is the command. The tilts decide how well a calibration tells the focal length from the distance.
set -euo pipefail
quorvex=$1
folder=$2

board=(--rows 8 --columns 8 --pitch 35 --arm 14.5 --stroke 0.55 --margin 28 --blur 0.8 --noise 1)
camera=(--width 2048 --height 2048 --model kannala-brandt --focal-length 1000 --k1 -0.02 --k2 0.004 --k3 -0.001
  --principal-x 1032.5 --principal-y 1017.5 --distance 160)

poses=(  # degrees: tilt about x, tilt about y, rotation
  '-14 0 17' '14 0 18' '0 -14 19' '0 14 20' '-10 -10 21' '-10 10 22'
  '10 -10 23' '10 10 24' '-7 3 25' '7 -3 26' '3 7 17.5' '-3 -7 21.5')
for i in "${!poses[@]}"; do
  read -r tilt_x tilt_y rotation <<<"${poses[$i]}"
  "$quorvex" render "${camera[@]}" "${board[@]}" --shift-x 8 --shift-y 7 --tilt-x "$tilt_x" --tilt-y "$tilt_y" \
    --rotation "$rotation" --seed $((i + 1)) --quiet --output "$folder/$(printf 'pose-%02d.bmp' $((i + 1)))"
done

# One board of 7 x 7 marks seen by two cameras 40 mm apart: whole, and with its first row hidden from the left
# camera and its last row from the right one.
pair=(--preset fisheye --rows 7 --columns 7 --rotation 20 --quiet)
row_0=(); row_6=()
for column in {0..6}; do
  row_0+=(--missing "0,$column")
  row_6+=(--missing "6,$column")
done
"$quorvex" render "${pair[@]}" --shift-x 31 --output "$folder/left.bmp"
"$quorvex" render "${pair[@]}" --shift-x -9 --output "$folder/right.bmp"
"$quorvex" render "${pair[@]}" --shift-x 31 "${row_0[@]}" --output "$folder/part-left.bmp"
"$quorvex" render "${pair[@]}" --shift-x -9 "${row_6[@]}" --output "$folder/part-right.bmp"
