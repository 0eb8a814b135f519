#!/usr/bin/env bash
# The road of one automatic detection in the real program, by mouse and keyboard on a virtual display: lens covered,
# 12-bit format, a longer exposure configured, detection, list taken over, upload, restart, correction on. What was found
# is held against what the sensor is made of, and then the batch tool looks whether the camera hides it.
# Usage: detection.sh FOLDER_OF_THE_PROGRAMS FOLDER_FOR_PICTURES CAMERA ROW_IN_THE_LIST
set -euo pipefail

camera=$3
row=$4
set=User
. "$(dirname "$0")/steps.sh"

exposure=20000
threshold=40
noise=4

dialog() { # X Y, at a place of the dialog
  xdotool mousemove --window "$detector" "$1" "$2" sleep 0.2 click 1 sleep 0.4
}
continue_shows() {
  import -window "$detector" -crop 1x1+395+519 "$work/continue.png"
  [ "$(convert "$work/continue.png" -fuzz 5% -fill white -opaque 'rgb(47,128,237)' -format '%[fx:mean]' info:)" = 1 ]
}
pixels() { # of the lines of a list of defects
  awk '{ for (i = 0; i < $4 * $5; ++i) print $2 + i % $4, $3 + int(i / $4) }' "$@" | sort -u
}
planted() { # GREY: faulty pixels that are at least that bright, but for noise
  "$programs/zlt-simulation-ctl" defects "$camera" |
    awk -v exposure="$exposure" -v grey="$1" '(32 + $4 * exposure / 10000) / 16 >= grey { print $1, $2 }' | sort -u
}

step "cover on, camera picked, set User"
"$programs/zlt-simulation-ctl" cover "$camera" on
start
pick_camera
choose_user_set

step "a 12-bit format in the settings"
click 181 57
click 142 195
xdotool key Down Down Return sleep 1
picture "$pictures/settings.png"

step "detection with $exposure microseconds"
click 1103 691 # Automatic Detection
detector=$(window '^Automatic Detection$') || fail "no dialog for the detection"
sleep 0.5
picture "$pictures/start.png"
dialog 305 519 # Configure
dialog 410 271 # the exposure
xdotool key ctrl+a type "$exposure"
xdotool key Return sleep 0.3
picture "$pictures/configuration.png"
dialog 440 519 # Start detection
picture "$pictures/search.png"
for _ in $(seq 100); do continue_shows && break; sleep 0.1; done
picture "$pictures/result.png"
continue_shows || fail "the detection offers nothing"
dialog 440 519 # Continue
sleep 0.5
picture "$pictures/done.png"
dialog 498 20 # the cross
gone '^Automatic Detection$' || fail "the dialog stays"
has_blue_rows || fail "no blue rows in the list"

step "upload"
upload '^Confirm$'
step "correction on"
correction_on
step "leave the program"
leave

step "what was found, and what the camera hides"
"$programs/lorvane-cli" read "$camera" "$set" | pixels >"$work/found.txt"
planted $((threshold + noise)) >"$work/bright.txt"
planted $((threshold - noise)) >"$work/shining.txt"
[ "$(wc -l <"$work/bright.txt")" -gt 100 ] || fail "the sensor has hardly a defect"
expect "missing" "" "$(comm -13 "$work/found.txt" "$work/bright.txt" | head -n 5)"
expect "invented" "" "$(comm -23 "$work/found.txt" "$work/shining.txt" | head -n 5)"
"$programs/lorvane-cli" set "$camera" ExposureTime "$exposure"
dark_frame | pixels >"$work/after.txt"
expect "visible" "" "$(comm -12 "$work/after.txt" "$work/bright.txt" | head -n 5)"
expect "visible and not planted" "" "$(comm -23 "$work/after.txt" "$work/shining.txt" | head -n 5)"
"$programs/lorvane-cli" disable "$camera" "$set"
dark_frame | pixels >"$work/uncorrected.txt"
expect "hidden without correction" "" "$(comm -13 "$work/uncorrected.txt" "$work/bright.txt" | head -n 5)"
echo "planted: $(wc -l <"$work/bright.txt") pixels, found: $(wc -l <"$work/found.txt"), visible: 0"
