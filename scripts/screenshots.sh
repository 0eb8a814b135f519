#!/usr/bin/env bash
# Makes the pictures in docs/images: starts the program on the simulated cameras under a virtual display with a window
# manager, works in it by mouse and keyboard, and takes screenshots. Usage: scripts/screenshots.sh [FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/packages.sh build screenshots

images=$(mkdir -p "${1:-docs/images}" && cd "${1:-docs/images}" && pwd)
program=$PWD/build/bin/lorvane
[ -x "$program" ] || { echo "Build the program first: ./run --build" >&2; exit 1; }

work=$(mktemp -d)
export DISPLAY=:${LORVANE_DISPLAY:-97}
export ZLT_SIMULATION_STATE=$work/state
started=()
finish() {
  for process in "${started[@]}"; do kill "$process" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

Xvfb "$DISPLAY" -dpi 96 -screen 0 1600x1000x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
started+=($!)
for _ in $(seq 50); do xdotool getmouselocation >/dev/null 2>&1 && break; sleep 0.1; done
openbox >"$work/openbox.log" 2>&1 &
started+=($!)
xcompmgr -n >"$work/xcompmgr.log" 2>&1 &
started+=($!)
xsetroot -solid '#3b4a5a'

# The window whose title matches, once it is there.
window() {
  xdotool search --sync --onlyvisible --name "$1" 2>/dev/null | tail -n 1
}
# Clicks at a place of the main window.
click() {
  xdotool mousemove --window "$main" "$1" "$2" sleep 0.2 click 1 sleep 0.4
}
shoot() {
  sleep "${2:-0.6}"
  import -window root "$work/shot.png"
  convert "$work/shot.png" -crop "${3:-1300x830+150+60}" +repage -strip "$images/$1.png"
  echo "$images/$1.png"
}

cd "$work"
"$program" >"$work/lorvane.log" 2>&1 &
started+=($!)
main=$(window '^Lorvane$')
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
drag() {
  xdotool mousemove --window "$main" "$1" "$2" sleep 0.2 mousedown 1
  xdotool mousemove --window "$main" $((($1 + $3) / 2)) $((($2 + $4) / 2)) sleep 0.1
  xdotool mousemove --window "$main" "$3" "$4" sleep 0.2 mouseup 1 sleep 0.3
}
click 150 173 # the first camera
sleep 3
click 657 57 # the tool that adds
xdotool mousemove --window "$main" 450 300 click --repeat 13 --delay 60 4 sleep 0.5
click 300 250
click 420 330
drag 520 200 540 330
drag 600 400 690 470
shoot zoomed 1
xdotool mousemove --window "$main" 450 300 click --repeat 18 --delay 60 5
shoot live 1
click 40 57
click 150 338 # the one with temperature control
sleep 3
click 181 57
shoot settings 2
xdotool mousemove --window "$main" 150 640 click --repeat 15 --delay 60 5
shoot settings-temperature 2
