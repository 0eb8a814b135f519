#!/usr/bin/env bash
# Makes the pictures in docs/images: starts the program on the simulated cameras under a virtual display with a window
# manager, works in it by mouse and keyboard, and takes screenshots. Usage: scripts/screenshots.sh [FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/packages.sh build screenshots

images=$(mkdir -p "${1:-docs/images}" && cd "${1:-docs/images}" && pwd)
program=$PWD/build/bin/lorvane
description=$PWD/tests/data/genicam/file-camera.xml
[ -x "$program" ] || { echo "Build the program first: ./run --build" >&2; exit 1; }

. scripts/display.sh

shoot() { # NAME [SECONDS]
  sleep "${2:-0.6}"
  picture "$images/$1.png" 1254x766+173+117
  echo "$images/$1.png"
}

start_program "$program"
shoot welcome 2
xdotool key Escape
shoot main-window 1.5
click 251 60
shoot tour 3
xdotool key Escape
click 70 16
shoot about 1
xdotool key Escape

choose_user_set() {
  click 1103 289
  xdotool key Return sleep 2
}
shoot_dialog() { # NAME TITLE
  local X Y WIDTH HEIGHT dialog
  dialog=$(window "$2")
  sleep 0.6
  eval "$(xdotool getwindowgeometry --shell "$dialog")"
  picture "$images/$1.png" "${WIDTH}x$HEIGHT+$X+$Y"
  echo "$images/$1.png"
}
press() { # KEYS...
  xdotool key "$@" sleep 1
}

# Live image: pixels, a run and a cluster entered by mouse.
click 150 173 # the first camera
sleep 3
choose_user_set
click 657 57 # the tool that adds
wheel 450 300 13
click 300 250
click 420 330
drag 520 200 540 330
drag 600 400 690 470
shoot zoomed 1
wheel 450 300 -18
shoot live 1

# Correction sets: entry and editing by dialog, upload.
add_pixel() { # X Y
  click 993 434
  window '^Add pixel' >/dev/null
  press Tab
  xdotool type "$1"
  press Tab
  xdotool type "$2"
}
add_pixel 1095 601
shoot_dialog add-dialog '^Add pixel'
press Return
click 1204 502 # the pencil of the second row
shoot_dialog edit-dialog '^Add pixel'
press Return
picture "$images/right-panel.png" 300x672+1127+211
click 1104 733 # Upload to camera
shoot_dialog upload-confirm '^Confirm$'
press Return
shoot_dialog upload-successful '^Upload successful$'
press Escape
# The camera whose sets carry conditions, near the end of the list.
click 40 57
wheel 150 400 -15
click 120 601
sleep 4
choose_user_set
add_pixel 320 256
press Return
click 1104 733
shoot_dialog upload-conditions '^Upload To Camera'
press Escape

click 40 57
wheel 150 400 15
click 150 338 # the one with temperature control
sleep 3
click 181 57
shoot settings 2
wheel 150 640 -15
shoot settings-temperature 2

# Automatic detection on the first camera, covered.
"$(dirname "$program")/zlt-simulation-ctl" cover SIM-OSTREL-M1 on
click 181 57 # the settings close
click 40 57
click 150 173
sleep 4
choose_user_set
dialog() { # X Y, at a place of the dialog
  xdotool mousemove --window "$detector" "$1" "$2" sleep 0.2 click 1 sleep 0.4
}
click 1103 691 # Automatic Detection
detector=$(window '^Automatic Detection$')
shoot detection-start 2
dialog 300 517 # Configure
shoot detection-configuration 1
dialog 440 517 # Start detection
shoot detection-search 0.3
sleep 3
shoot detection-result 1
dialog 440 517 # Continue
shoot detection-done 1

# What was found goes into the camera, and the camera hides it.
press Escape
click 1104 733 # Upload to camera
window '^Confirm$' >/dev/null
press Return
window '^Upload successful$' >/dev/null
press Return # Restart
window '^Connection lost$' >/dev/null
press Return
"$(dirname "$program")/zlt-simulation-ctl" cover SIM-OSTREL-M1 off
sleep 3
click 150 173
sleep 4
choose_user_set
click 1187 257 # the switch of the user's sets
shoot correction-on 3

# A real camera over its real protocol: the one in software that comes with Aravis.
kill "$program_process"
gone '^Lorvane$'
arv-fake-gv-camera-0.8 -i 127.0.0.1 -s 17 -g "$description" &
started+=($!)
export ZLT_PROVIDER_PATH=$(dirname "$program")/../lib/zlt-genicam
start_program "$program"
sleep 1
xdotool key Escape
click 150 173
sleep 4
click 40 57 # the list of cameras once more
shoot real-camera 1
