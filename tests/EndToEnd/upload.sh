#!/usr/bin/env bash
# The road of one upload in the real program, by mouse and keyboard on a virtual display: live image, two defects entered,
# one of them edited, upload, restart, correction on. Then the batch tool looks whether the camera hides them.
# Usage: upload.sh FOLDER_OF_THE_PROGRAMS FOLDER_FOR_PICTURES
set -euo pipefail

programs=$1
pictures=$2
mkdir -p "$pictures"
. "$(dirname "$0")/../../scripts/display.sh"

camera=SIM-OSTREL-M1
step() {
  echo "-- $*"
}
fail() {
  picture "$pictures/failed.png" 1600x1000+0+0 || true
  echo "FAILED: $*" >&2
  exit 1
}
expect() { # WHAT EXPECTED ACTUAL
  [ "$2" = "$3" ] || fail "$1: expected '$2', got '$3'"
}
answer() { # TITLE: by its default button
  local dialog
  dialog=$(window "$1") || fail "no dialog '$1'"
  [ -n "$dialog" ] || fail "no dialog '$1'"
  sleep 0.3
  picture "$pictures/$2.png"
  xdotool key Return
  gone "$1" || fail "the dialog '$1' stays"
}
loaded() {
  sleep 0.5
  gone '^Loading$' || fail "the loader stays"
  sleep 0.3
}
# How many pixels of the list's place are of this colour.
coloured() {
  import -window root "$work/list.png"
  convert "$work/list.png" -crop 280x200+1140+570 -fuzz 3% -fill white -opaque "$1" -fill black +opaque white \
    -format '%[fx:round(mean*w*h)]' info:
}
dark_frame() {
  "$programs/lorvane-cli" grab "$camera" -o "$work/dark.png" >/dev/null
  "$programs/lorvane-cli" detect "$work/dark.png"
}

step "defects of the covered sensor"
"$programs/zlt-simulation-ctl" cover "$camera" on
"$programs/lorvane-cli" disable "$camera" Preset
dark_frame >"$work/before.txt"
# One that is in sight at full size, and another one somewhere.
read -r _ mouse_x mouse_y _ < <(awk '$1 == 0 && $2 > 30 && $2 < 420 && $3 > 30 && $3 < 380 { print; exit }' "$work/before.txt")
read -r _ dialog_x dialog_y _ < <(awk '$1 == 0 && $2 > 900 && $3 > 600 { print; exit }' "$work/before.txt")
echo "by mouse $mouse_x $mouse_y, by dialog $dialog_x $dialog_y"

step "pick the camera"
printf '[info]\nTutorialFinished=true\n' >"$work/Lorvane.ini"
start_program "$programs/lorvane"
sleep 1
click 150 173
loaded
sleep 1.5
loaded

step "choose the set User"
user_box=(1103 289)
click "${user_box[@]}"
xdotool key Return
loaded

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
[ "$(coloured 'rgb(57,130,223)')" -gt 0 ] || fail "no blue rows in the list"

step "upload"
click 1104 733
answer '^Confirm$' upload-confirm
sleep 0.5
loaded
answer '^Upload successful$' upload-successful

step "the camera leaves and returns"
answer '^Connection lost$' connection-lost
for _ in $(seq 100); do
  [ "$("$programs/zlt-simulation-ctl" list | awk -v id="$camera" '$1 == id { print $3 }')" = plugged ] && break
  sleep 0.1
done
sleep 1.5
click 150 173
loaded
sleep 1.5
loaded
click "${user_box[@]}"
xdotool key Return
loaded
picture "$pictures/right-panel.png"
expect "blue rows" 0 "$(coloured 'rgb(57,130,223)')"
[ "$(coloured 'rgb(37,171,37)')" -gt 0 ] || fail "no green rows in the list"

step "correction on"
click 1187 257
loaded
picture "$pictures/correction-on.png"

step "leave the program"
click 1231 16
for _ in $(seq 100); do kill -0 "$program_process" 2>/dev/null || break; sleep 0.1; done
wait "$program_process" || fail "the program ended with status $?"

step "what the camera has and hides"
expect "the set" "$(printf '0 %s %s 1 1\n' "$mouse_x" "$mouse_y" "$dialog_x" "$dialog_y" | sort)" \
  "$("$programs/lorvane-cli" read "$camera" User | sort)"
expect "enabled" yes "$("$programs/lorvane-cli" sets "$camera" | awk '$1 == "User" { print $5 }')"
dark_frame >"$work/after.txt"
expect "visible of the two" 0 "$(grep -c -e "^0 $mouse_x $mouse_y " -e "^0 $dialog_x $dialog_y " "$work/after.txt" || true)"
expect "others" "$(($(wc -l <"$work/before.txt") - 2))" "$(wc -l <"$work/after.txt")"
echo "hidden: both; visible: $(wc -l <"$work/after.txt") others"
