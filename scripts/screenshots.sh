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
  picture "$images/$1.png"
  echo "$images/$1.png"
}

start_program "$program"
shoot welcome 2
xdotool key Escape
shoot main-window 1.5
click 234 60
shoot tour 1
xdotool key Escape
click 70 16
shoot about 1
xdotool key Escape

# Live image: pixels, a run and a cluster entered by mouse.
click 150 173 # the first camera
sleep 3
click 657 57 # the tool that adds
wheel 450 300 13
click 300 250
click 420 330
drag 520 200 540 330
drag 600 400 690 470
shoot zoomed 1
wheel 450 300 -18
shoot live 1
click 40 57
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
click 1103 289 # the set User
xdotool key Return sleep 2
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
