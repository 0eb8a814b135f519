#!/usr/bin/env bash
# The road of one upload in the real program, by mouse and keyboard on a virtual display: live image, two defects entered,
# one of them edited, upload, restart, correction on. Then the batch tool looks whether the camera hides them.
# Usage: upload.sh FOLDER_OF_THE_PROGRAMS FOLDER_FOR_PICTURES
set -euo pipefail

camera=SIM-OSTREL-M1
row=0
set=User
. "$(dirname "$0")/steps.sh"

step "defects of the covered sensor"
"$programs/zlt-simulation-ctl" cover "$camera" on
"$programs/lorvane-cli" disable "$camera" Preset
dark_frame >"$work/before.txt"
# One that is in sight at full size, and another one somewhere.
read -r _ mouse_x mouse_y _ < <(awk '$1 == 0 && $2 > 30 && $2 < 420 && $3 > 30 && $3 < 380 { print; exit }' "$work/before.txt")
read -r _ dialog_x dialog_y _ < <(awk '$1 == 0 && $2 > 900 && $3 > 600 { print; exit }' "$work/before.txt")
echo "by mouse $mouse_x $mouse_y, by dialog $dialog_x $dialog_y"

step "pick the camera, choose the set User"
start
pick_camera
choose_user_set

step "one pixel by mouse"
click 657 57
click $((mouse_x)) $((98 + mouse_y))

step "one by dialog, at first in a wrong place, then edited"
click 993 434
window 'Add pixel' >/dev/null || fail "no dialog to add"
sleep 0.3
xdotool key Tab key ctrl+a type 5
xdotool key Tab key ctrl+a type "$dialog_y"
picture "$pictures/add-dialog.png"
xdotool key Return
gone 'Add pixel' || fail "the dialog stays"
click 1204 502 # the pencil of the second row
window 'pixel' >/dev/null || fail "no dialog to edit"
sleep 0.3
xdotool key ctrl+a type "$dialog_x" # the kind cannot be chosen: the first field is x
picture "$pictures/edit-dialog.png"
xdotool key Return
sleep 0.5
has_blue_rows || fail "no blue rows in the list"

step "upload"
upload '^Confirm$'
step "correction on"
correction_on
step "leave the program"
leave

step "what the camera has and hides"
expect "the set" "$(printf '0 %s %s 1 1\n' "$mouse_x" "$mouse_y" "$dialog_x" "$dialog_y" | sort)" \
  "$("$programs/lorvane-cli" read "$camera" "$set" | sort)"
dark_frame >"$work/after.txt"
expect "visible of the two" 0 "$(grep -c -e "^0 $mouse_x $mouse_y " -e "^0 $dialog_x $dialog_y " "$work/after.txt" || true)"
expect "others" "$(($(wc -l <"$work/before.txt") - 2))" "$(wc -l <"$work/after.txt")"
echo "hidden: both; visible: $(wc -l <"$work/after.txt") others"
