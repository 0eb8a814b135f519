#!/usr/bin/env bash
# The road of one upload to a camera whose sets carry the conditions of their making: as upload.sh, with the question for
# gain, exposure and temperature.
# Usage: upload-with-conditions.sh FOLDER_OF_THE_PROGRAMS FOLDER_FOR_PICTURES
set -euo pipefail

camera=COOLED
row=0
set=DPC_User_1
. "$(dirname "$0")/steps.sh"

export ZLT_SIMULATION_RIG=$work/rig.json
cat >"$work/rig.json" <<'RIG'
{"cameras": [{"id": "COOLED", "model": "Tamorin Pro T-235m", "family": "Tamorin Pro", "serial": "1",
  "firmware": "tamorin-pro", "temperatureControl": true, "nonuniformityCorrection": true, "darkCurrent": 8, "covered": true}]}
RIG

step "a defect of the covered sensor"
"$programs/lorvane-cli" disable "$camera" DPC_000
dark_frame >"$work/before.txt"
read -r _ x y _ < <(awk '$1 == 0 && $2 > 30 && $2 < 420 && $3 > 30 && $3 < 380 { print; exit }' "$work/before.txt")
echo "pixel $x $y"

step "pick the camera, choose its first user set, enter the pixel"
start
pick_camera
choose_user_set
click 657 57
click "$x" $((98 + y))
has_blue_rows || fail "no blue row in the list"

step "upload, made at a gain of 2"
upload '^Upload To Camera : DPC_User_1$' ctrl+a 2 Tab Tab Tab space # no return key overwrites by chance
step "correction on"
correction_on
step "leave the program"
leave

step "what the camera has and hides"
expect "the set" "0 $x $y 1 1" "$("$programs/lorvane-cli" read "$camera" "$set")"
expect "its gain" Gain=2 "$("$programs/lorvane-cli" sets "$camera" | awk -v set="$set" '$1 == set' | grep -o 'Gain=[^,]*')"
dark_frame >"$work/after.txt"
expect "visible" 0 "$(grep -c -e "^0 $x $y " "$work/after.txt" || true)"
expect "others" "$(($(wc -l <"$work/before.txt") - 1))" "$(wc -l <"$work/after.txt")"
echo "hidden; visible: $(wc -l <"$work/after.txt") others"
